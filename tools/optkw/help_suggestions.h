// "Did you mean" for a name that a definition doesn't know.
#pragma once

#include <string>
#include <vector>

#include "optkw.h"

namespace optkw_tool {

// "did you mean ...?" with the names of options and synonyms of `h` closest to
// `name`; empty when none is close.
std::string SuggestNames(optHandle_t h, const std::string &name);

}  // namespace optkw_tool
