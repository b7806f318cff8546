// Conversions between C strings and ShortStr at the exported boundary.
#pragma once

#include "containers/short_str.h"

namespace optkw {

// The size a client's buffer for a string result must have: 255 bytes and a NUL.
inline constexpr int kStrBufSize = 256;

// A C string as a ShortStr. A text of 255 bytes or more is not cut but replaced
// by "PCharToStr Overflow", so that it can't pass for a shorter one; nil is empty.
ShortStr StrFromC(const char *text);
// Copies the text and a NUL into a client's buffer of kStrBufSize bytes.
void StrToC(char *buffer, const ShortStr &text);

}  // namespace optkw
