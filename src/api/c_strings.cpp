#include "api/c_strings.h"

#include <cstring>

namespace optkw {

ShortStr StrFromC(const char *text) {
  if (text == nullptr) return {};
  const void *nul = std::memchr(text, '\0', ShortStr::kMaxLength);
  if (nul == nullptr) return "PCharToStr Overflow";
  return std::string_view(text, static_cast<size_t>(static_cast<const char *>(nul) - text));
}

void StrToC(char *buffer, const ShortStr &text) {
  std::memcpy(buffer, text.data(), static_cast<size_t>(text.size()));
  buffer[text.size()] = '\0';
}

}  // namespace optkw
