// "Did you mean" for a name that a definition doesn't know.
#pragma once

#include <string>
#include <vector>

#include "optkw.h"

namespace optkw_tool {

// The names of options and synonyms of `h` closest to `name`, best first, at
// most three.
std::vector<std::string> SuggestNames(optHandle_t h, const std::string &name);

}  // namespace optkw_tool
