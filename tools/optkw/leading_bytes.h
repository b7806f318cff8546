// A parameter file saved by an editor that puts a byte-order mark or other
// non-ASCII bytes first gives only "Option keyword expected" from the library;
// this finds the cause.
#pragma once

#include <optional>
#include <string>

namespace optkw_tool {

// A hint for a file whose first bytes are not ASCII, or nothing.
std::optional<std::string> LeadingBytesHint(const std::string &file);

}  // namespace optkw_tool
