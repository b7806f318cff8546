#include "export_reference.h"

#include <algorithm>
#include <cctype>

namespace optkw_tool {
namespace {

// The order of the help listings: names that end in a number sort by its value.
bool NaturalLess(const std::string &a, const std::string &b) {
  auto split = [](const std::string &s) {
    size_t start = s.size();
    while (start > 0 && std::isdigit(static_cast<unsigned char>(s[start - 1])))
      --start;
    std::string stem = s.substr(0, start);
    for (char &c : stem)
      c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const std::string digits = s.substr(start);
    return std::make_pair(stem, digits.empty() ? 0.0 : std::stod(digits));
  };
  return split(a) < split(b);
}

std::string TypeFact(const OptionInfo &o) {
  std::string text = TypeName(o.type);
  if (o.subtype == optsubNoValue) text += ", takes no value";
  if (o.subtype == optsubOptional) text += ", value optional";
  if (o.subtype == optsub2Values) text += ", takes two values";
  return text;
}

Facts FactsOf(const OptionInfo &o, const ReferenceMarkup &markup) {
  Facts facts{{"Type", TypeFact(o)}};
  if (o.lower)
    facts.push_back({"Range", ShownValue(o, *o.lower) + " to " + ShownValue(o, *o.upper)});
  if (o.default_value) facts.push_back({"Default", markup.Text(ShownValue(o, *o.default_value))});
  for (const SynonymInfo &synonym : o.synonyms) {
    std::string text = markup.Code(synonym.name);
    if (synonym.deprecation)
      text +=
          " (" + synonym.deprecation->kind + ": " + markup.Text(synonym.deprecation->text) + ")";
    facts.push_back({"Synonym", text});
  }
  if (o.deprecation) {
    facts.push_back({o.deprecation->kind == "obsolete" ? "Obsolete" : "Deprecated",
                     markup.Text(o.deprecation->text)});
  }
  return facts;
}

}  // namespace

std::vector<GroupSection> HelpSections(const DefinitionModel &model) {
  std::vector<GroupSection> sections;
  for (const GroupInfo &group : model.groups) {
    if (group.help_context <= 0) continue;
    GroupSection section{group.help.empty() ? group.name : group.help, {}};
    for (const OptionInfo &option : model.options) {
      if (option.listed && option.group == group.number) section.options.push_back(&option);
    }
    std::sort(section.options.begin(), section.options.end(),
              [](const OptionInfo *a, const OptionInfo *b) { return NaturalLess(a->key, b->key); });
    sections.push_back(std::move(section));
  }
  return sections;
}

std::string ExportReference(const DefinitionModel &model, const ReferenceMarkup &markup) {
  std::string out = markup.Page(model);
  for (const GroupSection &section : HelpSections(model)) {
    out += markup.Group(section);
    for (const OptionInfo *option : section.options) {
      out += markup.Option(*option);
      out += markup.FactList(FactsOf(*option, markup));
      out += markup.Values(*option);
    }
  }
  return out + markup.PageEnd();
}

}  // namespace optkw_tool
