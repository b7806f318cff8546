#include "containers/short_str.h"

namespace optkw {

ShortStr ShortStr::FromCounted(const char *counted) {
  ShortStr result;
  if (counted == nullptr) return result;
  result.length_ = static_cast<uint8_t>(counted[0]);
  std::memcpy(result.text_, counted + 1, result.length_);
  return result;
}

void ShortStr::ToCounted(char *buffer) const {
  buffer[0] = static_cast<char>(length_);
  std::memmove(buffer + 1, text_, length_);
}

ShortStr &ShortStr::operator+=(std::string_view text) {
  const size_t room = kMaxLength - length_;
  const size_t n = text.size() < room ? text.size() : room;
  if (n > 0) std::memmove(text_ + length_, text.data(), n);
  length_ = static_cast<uint8_t>(length_ + n);
  return *this;
}

ShortStr &ShortStr::operator+=(char c) {
  if (length_ < kMaxLength) text_[length_++] = c;
  return *this;
}

void ShortStr::EraseFront(int n) {
  if (n <= 0) return;
  if (n >= length_) {
    length_ = 0;
    return;
  }
  std::memmove(text_, text_ + n, length_ - n);
  length_ = static_cast<uint8_t>(length_ - n);
}

}  // namespace optkw
