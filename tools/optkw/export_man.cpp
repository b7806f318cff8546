// optkw export --format man: the OPTIONS section of a program's own manual
// page, grouped like the help summary, an indented entry per option.
#include <algorithm>

#include "export_reference.h"

namespace optkw_tool {
namespace {

class ManPage : public ReferenceMarkup {
 public:
  // A text line of roff: backslashes written as such, and a leading "." or
  // "'" kept from reading as a request.
  std::string Text(const std::string &text) const override {
    std::string out = !text.empty() && (text[0] == '.' || text[0] == '\'') ? "\\&" : "";
    for (char c : text)
      out += c == '\\' ? "\\e" : c == '\n' ? " " : std::string(1, c);
    return out;
  }
  // Bold, with minus signs that copy and paste as such.
  std::string Code(const std::string &text) const override {
    std::string out = "\\fB";
    for (char c : Text(text))
      out += c == '-' ? "\\-" : std::string(1, c);
    return out + "\\fR";
  }

  std::string Page(const DefinitionModel &model) const override {
    return ".\\\" Options of " + Comment(model.file) +
           ", written by optkw export --format man.\n"
           ".\\\" The OPTIONS section of the program's manual page: paste it in, or\n"
           ".\\\" include it with .so.\n"
           ".SH OPTIONS\n";
  }

  std::string Group(const GroupSection &section) const override {
    std::string out = ".SS " + Argument(section.title) + "\n";
    return section.options.empty() ? out + ".PP\nNo options.\n" : out;
  }

  std::string Option(const OptionInfo &o) const override {
    // The help keeps its lines, as the help listing shows them.
    std::string out = ".TP\n" + Code(o.name) + "\n";
    if (!o.help.empty()) out += Text(o.help) + "\n";
    for (const std::string &line : o.more_help)
      out += ".br\n" + Text(line) + "\n";
    return out;
  }

  std::string FactList(const Facts &facts) const override {
    std::string out;
    for (const auto &[label, text] : facts)
      out += ".br\n" + label + ": " + text + "\n";
    return out;
  }

  // A list indented under the entry, without space between its lines, the
  // tags as wide as the widest value.
  std::string Values(const OptionInfo &o) const override {
    if (o.values.empty()) return "";
    size_t width = 0;
    for (const EnumValue &v : o.values)
      width = std::max(width, v.value.size());
    std::string out = ".br\nValues:\n.RS\n.PD 0\n";
    for (const EnumValue &v : o.values) {
      out += ".TP " + std::to_string(width + 2) + "n\n" + Code(v.value) + "\n";
      if (!v.help.empty()) out += Text(v.help) + "\n";
    }
    return out + ".PD\n.RE\n";
  }

 private:
  // An argument of a macro: in double quotes, with any double quote inside
  // written as a character name.
  std::string Argument(const std::string &text) const {
    std::string out = "\"";
    for (char c : Text(text))
      out += c == '"' ? "\\(dq" : std::string(1, c);
    return out + "\"";
  }
  static std::string Comment(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
  }
};

}  // namespace

std::string ExportMan(const DefinitionModel &model) {
  return ExportReference(model, ManPage());
}

}  // namespace optkw_tool
