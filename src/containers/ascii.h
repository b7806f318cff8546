// Case folding for names: ASCII letters only, every other byte compares exactly.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace optkw {

constexpr unsigned char UpCase(unsigned char c) {
  return (c >= 'a' && c <= 'z') ? c - 32 : c;
}
constexpr char UpCase(char c) {
  return static_cast<char>(UpCase(static_cast<unsigned char>(c)));
}

constexpr bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Equal length and equal bytes after upper-casing.
constexpr bool EqualNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = a.size(); i-- > 0;) {
    if (UpCase(a[i]) != UpCase(b[i])) return false;
  }
  return true;
}

// Order of two texts without regard to case: the difference of the first pair of
// bytes that differ after upper-casing, else the difference of the lengths.
inline int32_t CompareNoCase(std::string_view a, std::string_view b) {
  const size_t n = a.size() < b.size() ? a.size() : b.size();
  for (size_t i = 0; i < n; ++i) {
    const int diff =
        UpCase(static_cast<unsigned char>(a[i])) - UpCase(static_cast<unsigned char>(b[i]));
    if (diff != 0) return diff;
  }
  return static_cast<int32_t>(a.size()) - static_cast<int32_t>(b.size());
}

inline std::string UpperCopy(std::string_view s) {
  std::string result(s);
  for (char &c : result)
    c = UpCase(c);
  return result;
}

}  // namespace optkw
