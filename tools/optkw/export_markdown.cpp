// optkw export --format markdown: a reference page grouped like the help
// summary, a table of each group's options, then an entry per option.
#include "export_reference.h"

namespace optkw_tool {
namespace {

class Markdown : public ReferenceMarkup {
 public:
  // Text that can't break a table or start markup of its own.
  std::string Text(const std::string &text) const override {
    std::string out;
    for (char c : text) {
      if (c == '|' || c == '*' || c == '_' || c == '`' || c == '<' || c == '[' || c == ']')
        out += '\\';
      out += c;
    }
    return out;
  }
  std::string Code(const std::string &text) const override { return "`" + text + "`"; }

  std::string Page(const DefinitionModel &model) const override {
    return "# Options of " + Text(model.file) + "\n";
  }

  std::string Group(const GroupSection &section) const override {
    std::string out = "\n## " + Text(section.title) + "\n\n";
    if (section.options.empty()) return out + "No options.\n";
    out += "| Option | Type | Default | Description |\n|---|---|---|---|\n";
    for (const OptionInfo *o : section.options) {
      out += "| [" + Code(o->name) + "](#" + o->key + ") | " + TypeName(o->type) + " | " +
             (o->default_value ? Text(ShownValue(*o, *o->default_value)) : "") + " | " +
             Text(o->help) + " |\n";
    }
    return out + "\n";
  }

  std::string Option(const OptionInfo &o) const override {
    std::string out = "### " + Code(o.name) + "\n\n";
    if (!o.help.empty()) out += Text(o.help) + "\n";
    for (const std::string &line : o.more_help)
      out += Text(line) + "\n";
    return out;
  }

  std::string FactList(const Facts &facts) const override {
    std::string out = "\n";
    for (const auto &[label, text] : facts)
      out += "- " + label + ": " + text + "\n";
    return out;
  }

  std::string Values(const OptionInfo &o) const override {
    std::string out;
    if (!o.values.empty()) {
      out += "\n| Value | Meaning |\n|---|---|\n";
      for (const EnumValue &v : o.values)
        out += "| " + Code(v.value) + " | " + Text(v.help) + " |\n";
    }
    return out + "\n";
  }
};

}  // namespace

std::string ExportMarkdown(const DefinitionModel &model) {
  return ExportReference(model, Markdown());
}

}  // namespace optkw_tool
