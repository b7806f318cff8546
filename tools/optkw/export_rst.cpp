// optkw export --format rst: the reference page of the Markdown export in
// reStructuredText, for documentation built with docutils or Sphinx.
#include <cctype>
#include <string>
#include <vector>

#include "export_reference.h"

namespace optkw_tool {
namespace {

class Rst : public ReferenceMarkup {
 public:
  // Inline markup characters escaped, and a start that could open a list, a
  // comment or a field escaped too.
  std::string Text(const std::string &text) const override {
    std::string out;
    for (size_t k = 0; k < text.size(); ++k) {
      const char c = text[k];
      const bool inline_markup = c == '\\' || c == '*' || c == '`' || c == '_' || c == '|';
      if (inline_markup || (k == 0 && OpensBlock(text))) out += '\\';
      out += c == '\n' ? ' ' : c;
    }
    return out;
  }
  std::string Code(const std::string &text) const override {
    return text.empty() ? "\"\"" : "``" + text + "``";
  }

  std::string Page(const DefinitionModel &model) const override {
    return Heading(Text("Options of " + model.file), '=');
  }

  std::string Group(const GroupSection &section) const override {
    std::string out = "\n" + Heading(Text(section.title), '-') + "\n";
    if (section.options.empty()) return out + "No options.\n";
    std::vector<std::vector<std::string>> rows{{"Option", "Type", "Default", "Description"}};
    for (const OptionInfo *o : section.options) {
      rows.push_back({Code(o->name), TypeName(o->type),
                      o->default_value ? Text(ShownValue(*o, *o->default_value)) : "",
                      Text(o->help)});
    }
    return out + Table(rows);
  }

  std::string Option(const OptionInfo &o) const override {
    std::string out = "\n" + Heading(Code(o.name), '~') + "\n";
    if (!o.help.empty()) out += Text(o.help) + "\n";
    for (const std::string &line : o.more_help) {
      if (!line.empty()) out += Text(line) + "\n";
    }
    return out;
  }

  std::string FactList(const Facts &facts) const override {
    std::string out = "\n";
    for (const auto &[label, text] : facts)
      out += ":" + label + ": " + text + "\n";
    return out;
  }

  std::string Values(const OptionInfo &o) const override {
    if (o.values.empty()) return "";
    std::vector<std::vector<std::string>> rows{{"Value", "Meaning"}};
    for (const EnumValue &v : o.values)
      rows.push_back({Code(v.value), Text(v.help)});
    return "\n" + Table(rows);
  }

 private:
  // "- ", "#. ", "1) ", "a. ", ".. ", ":field:", ">>>", "(" or "--" at the
  // start of a text: a list, a comment, a field, a doctest, an enumeration or
  // a transition.
  static bool OpensBlock(const std::string &text) {
    auto at = [&](size_t k) { return k < text.size() ? text[k] : ' '; };
    if (text.empty()) return false;
    if (text[0] == ':' || text[0] == '(') return true;
    if (std::ispunct(static_cast<unsigned char>(text[0])) &&
        text.find_first_not_of(text[0]) == std::string::npos)
      return true;  // a line of one punctuation character reads as a title's underline
    if ((text[0] == '-' || text[0] == '+' || text[0] == '*') && at(1) == ' ') return true;
    if (text.rfind("..", 0) == 0 || text.rfind(">>>", 0) == 0 || text.rfind("#.", 0) == 0)
      return true;
    size_t end = 0;
    while (end < text.size() && std::isdigit(static_cast<unsigned char>(text[end])))
      ++end;
    if (end == 0 && std::isalpha(static_cast<unsigned char>(text[0]))) end = 1;
    return end > 0 && (at(end) == '.' || at(end) == ')') && at(end + 1) == ' ';
  }
  static std::string Heading(const std::string &title, char underline) {
    return title + "\n" + std::string(title.size(), underline) + "\n";
  }
  // A list table whose first row is the header.
  static std::string Table(const std::vector<std::vector<std::string>> &rows) {
    std::string out = ".. list-table::\n   :header-rows: 1\n\n";
    for (const std::vector<std::string> &row : rows) {
      for (size_t k = 0; k < row.size(); ++k) {
        out += k == 0 ? "   * -" : "     -";
        out += row[k].empty() ? "\n" : " " + row[k] + "\n";
      }
    }
    return out;
  }
};

}  // namespace

std::string ExportRst(const DefinitionModel &model) {
  return ExportReference(model, Rst());
}

}  // namespace optkw_tool
