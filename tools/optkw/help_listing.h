// The whole help listing of a definition, whatever its size. The library
// renders a listing in one go and stops at its limit of messages; when a
// listing doesn't fit, it is put together here from pieces that do: the
// library's own detail entry of each option, in the library's sorted order,
// and a summary written by the same rules as the library's.
#pragma once

#include <string>
#include <vector>

#include "client.h"
#include "definition_text.h"

namespace optkw_tool {

struct Listing {
  std::vector<std::string> lines;
  std::vector<std::string> problems;  // what couldn't be rendered; empty when whole
};

// The listing for `request` (a mode, or text that isn't a name), as the library
// would render it without a limit. `h` has read the definition from `file`;
// `piecewise` puts the listing together from pieces even when the library's
// own fits, which is how the pieces are compared with the library's text.
Listing RenderListing(optHandle_t h, const std::string &file, const std::string &request,
                      bool piecewise);

// Whether the library takes `request` as a listing mode, and which; otherwise
// the library looks the request up as a name.
bool ListingMode(const std::string &request, int &mode);

}  // namespace optkw_tool
