#include "scanning/text_ops.h"

#include <string_view>

#include "containers/ascii.h"

namespace optkw {

Truth ScanBoolean(std::string_view text) {
  for (std::string_view word : {"1", "Y", "YES", "ON", "TRUE", "T"}) {
    if (EqualNoCase(text, word)) return Truth::kTrue;
  }
  for (std::string_view word : {"0", "N", "NO", "OFF", "FALSE", "F"}) {
    if (EqualNoCase(text, word)) return Truth::kFalse;
  }
  return Truth::kNeither;
}

bool SameText(std::string_view a, std::string_view b) {
  return EqualNoCase(a, b);
}

bool SameTextPtr(const HeapStr &a, const HeapStr &b) {
  // Nil stands for the empty text, which is never allocated, so comparing the
  // views gives "nil equals nil alone" for free.
  return EqualNoCase(a.view(), b.view());
}

ShortStr UpperText(std::string_view text) {
  ShortStr result(text);
  for (int i = 0; i < result.size(); ++i)
    result.SetAt(i, UpCase(result[i]));
  return result;
}

int32_t CharPosFrom(char c, std::string_view text, int32_t start) {
  if (start < 1) start = 1;
  const size_t pos = text.find(c, static_cast<size_t>(start - 1));
  return pos == std::string_view::npos ? 0 : static_cast<int32_t>(pos) + 1;
}

int32_t LastCharPos(char c, std::string_view text) {
  const size_t pos = text.rfind(c);
  return pos == std::string_view::npos ? 0 : static_cast<int32_t>(pos) + 1;
}

int32_t FirstCharInSet(const CharSet &set, std::string_view text) {
  for (size_t i = 0; i < text.size(); ++i) {
    if (set.Has(text[i])) return static_cast<int32_t>(i) + 1;
  }
  return 0;
}

ShortStr ReplaceCharsInSet(std::string_view text, const CharSet &set, char replacement) {
  ShortStr result(text);
  for (int i = 0; i < result.size(); ++i) {
    if (set.Has(result[i])) result.SetAt(i, replacement);
  }
  return result;
}

ShortStr Quoted(std::string_view text) {
  return ShortStr("\"") + text + "\"";
}

ShortStr PadRightText(std::string_view text, int32_t width) {
  ShortStr result(text);
  while (result.size() < width && result.size() < ShortStr::kMaxLength)
    result += ' ';
  return result;
}

ShortStr BlankText(int32_t n) {
  return PadRightText("", n);
}

std::string_view TrimText(std::string_view text) {
  while (!text.empty() && static_cast<unsigned char>(text.front()) <= ' ')
    text.remove_prefix(1);
  while (!text.empty() && static_cast<unsigned char>(text.back()) <= ' ')
    text.remove_suffix(1);
  return text;
}

}  // namespace optkw
