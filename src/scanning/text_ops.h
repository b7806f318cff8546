// Small text operations shared by the readers and writers. Case folding is
// ASCII only ("a" to "z"); every other byte compares exactly.
#pragma once

#include <cstdint>
#include <string_view>

#include "containers/heap_str.h"
#include "containers/short_str.h"
#include "scanning/char_set.h"

namespace optkw {

enum class Truth { kFalse, kTrue, kNeither };

// "1", "Y", "YES", "ON", "TRUE", "T" are true; "0", "N", "NO", "OFF", "FALSE",
// "F" are false, in any case; everything else, the empty text included, is neither.
Truth ScanBoolean(std::string_view text);

bool SameText(std::string_view a, std::string_view b);
bool SameTextPtr(const HeapStr &a, const HeapStr &b);
ShortStr UpperText(std::string_view text);

// Positions count from 1 and 0 means "not there".
int32_t CharPosFrom(char c, std::string_view text, int32_t start);
inline int32_t CharPos(char c, std::string_view text) {
  return CharPosFrom(c, text, 1);
}
int32_t LastCharPos(char c, std::string_view text);
int32_t FirstCharInSet(const CharSet &set, std::string_view text);
ShortStr ReplaceCharsInSet(std::string_view text, const CharSet &set, char replacement);

// The text between double quotes, as messages quote names and values.
ShortStr Quoted(std::string_view text);

ShortStr PadRightText(std::string_view text, int32_t width);
ShortStr BlankText(int32_t n);
// Removes blanks and control characters (bytes up to 32) from both ends.
std::string_view TrimText(std::string_view text);

}  // namespace optkw
