// The character between the items of a multi-list value. It is one value per
// process, chosen by the load chain from the platform the library was built for.
#pragma once

namespace optkw {

extern char ListSeparatorChar;

// ";" for the Windows family (platform code 0), ":" for the Unix family (1),
// "?" for any other platform.
constexpr char ListSeparatorFor(int platform_code) {
  return platform_code == 0 ? ';' : platform_code == 1 ? ':' : '?';
}

}  // namespace optkw
