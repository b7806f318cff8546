// --write checks its own output: the written parameter text is read back into
// a fresh handle of the same definition, and every value that doesn't come
// back as it was gets a warning with the likely cause. The writer writes what
// its rules say; the warnings go to the report, never into the file.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "optkw.h"

namespace optkw_tool {

// Writes the parameter text of `h` to `file` ("" for standard output) and
// gives the warnings about it; `ok` tells whether the file could be written.
struct WriteResult {
  bool ok = true;
  std::vector<std::string> warnings;
};
WriteResult WriteAndVerify(optHandle_t h, const std::string &file,
                           const std::function<void(optHandle_t)> &prepare);

}  // namespace optkw_tool
