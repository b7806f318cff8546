// "Did you mean" hints for unknown option names and unknown enumerated values,
// drawn from the definition model. They are ours, and kept apart from the
// library's text.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "definition_model.h"
#include "diagnostics.h"

namespace optkw_tool {

// "did you mean ...?" for a name that is no option, or nothing.
std::string NameHint(const std::string &name, const DefinitionModel &model);

// Fills the hint of each "Unknown option" and "Unknown value" message.
void AddHints(std::vector<Diagnostic> &diagnostics, const DefinitionModel &model);

}  // namespace optkw_tool
