#include "leading_bytes.h"

#include <cstdio>
#include <fstream>

namespace optkw_tool {

std::optional<std::string> LeadingBytesHint(const std::string &file) {
  std::ifstream in(file, std::ios::binary);
  unsigned char bytes[3] = {0, 0, 0};
  in.read(reinterpret_cast<char *>(bytes), 3);
  const std::streamsize got = in.gcount();
  if (got == 3 && bytes[0] == 0xEF && bytes[1] == 0xBB && bytes[2] == 0xBF)
    return file + " starts with a UTF-8 byte-order mark; save it without one";
  if (got >= 2 &&
      ((bytes[0] == 0xFF && bytes[1] == 0xFE) || (bytes[0] == 0xFE && bytes[1] == 0xFF)))
    return file + " starts with a UTF-16 byte-order mark; save it as plain ASCII text";
  if (got >= 1 && bytes[0] >= 0x80) {
    char byte[8];
    std::snprintf(byte, sizeof byte, "0x%02X", bytes[0]);
    return file + " starts with the non-ASCII byte " + byte +
           "; parameter text begins with an option name in ASCII";
  }
  return std::nullopt;
}

}  // namespace optkw_tool
