// The operating system's text for an error code, as the messages of a failed
// open quote it.
#pragma once

#include <string>
#include <system_error>

namespace optkw {

// "No such file or directory" for ENOENT; "Unknown error N" for a code the
// system has no text for.
inline std::string SystemErrorText(int code) {
  return std::generic_category().message(code);
}

}  // namespace optkw
