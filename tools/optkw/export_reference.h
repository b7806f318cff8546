// Reference pages of a definition (Markdown, reStructuredText, a man page
// section): one walk over the groups and options as the help summary shows
// them, written out in the markup of each format.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "definition_model.h"

namespace optkw_tool {

// A group with its listed options in the order of the help listings.
struct GroupSection {
  std::string title;  // the group's help, or its name when it has none
  std::vector<const OptionInfo *> options;
};

// The groups with a help context, as the help summary shows them.
std::vector<GroupSection> HelpSections(const DefinitionModel &model);

// "Type", "Range", "Default", "Synonym", "Deprecated"... with their text
// already in the page's markup.
using Facts = std::vector<std::pair<std::string, std::string>>;

// How one format marks up the parts of a reference page. Text handed in is
// plain; each part escapes what its format needs.
class ReferenceMarkup {
 public:
  virtual ~ReferenceMarkup() = default;
  virtual std::string Text(const std::string &text) const = 0;
  virtual std::string Code(const std::string &text) const = 0;  // a name or a value
  virtual std::string Page(const DefinitionModel &model) const = 0;
  virtual std::string Group(const GroupSection &section) const = 0;  // heading, summary
  virtual std::string Option(const OptionInfo &option) const = 0;    // heading, help
  virtual std::string FactList(const Facts &facts) const = 0;
  virtual std::string Values(const OptionInfo &option) const = 0;
  virtual std::string PageEnd() const { return ""; }
};

std::string ExportReference(const DefinitionModel &model, const ReferenceMarkup &markup);

}  // namespace optkw_tool
