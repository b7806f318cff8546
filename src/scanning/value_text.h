// Conversions between value text and numbers, shared by every reader and writer.
//
// The numeric keywords live here and nowhere else: "maxint" and "minint" for
// integers, "maxdouble", "mindouble" and "eps" for doubles. Parsing is correctly
// rounded and writing gives 15 significant digits, so that what a writer puts out
// a reader takes back, apart from digits beyond the fifteenth.
#pragma once

#include <cstdint>
#include <string_view>

#include "containers/short_str.h"

namespace optkw {

inline constexpr double kMaxDoubleValue = 1.0e299;
inline constexpr double kEpsValue = 1.0e-20;

// Positions count from 1; a position of 0 means that the whole text was taken.
int32_t ValInteger(std::string_view text, int32_t &position);
void ValDouble(std::string_view text, double &value, int32_t &position);

// "maxint", "minint" or a decimal (or "$"/"0x" hexadecimal) integer. Numbers too
// large for 32 bits saturate and pass.
bool TextToInteger(std::string_view text, int32_t &value);
// As TextToInteger, and beside it any double text with an integral value in range
// ("1e3", "1000.0"). On that second road a failure leaves 0.
bool TextToIntegerLax(std::string_view text, int32_t &value);
// A finite double, with "D" or "d" accepted for the exponent sign, or a keyword.
bool TextToDouble(std::string_view text, double &value);

ShortStr IntegerToText(int32_t value);
ShortStr IntegerToKeywordText(int32_t value);
ShortStr IntegerToWidthText(int32_t value, int32_t width);

// " 1.50000000000000E+0000": sign or blank, 15 significant digits, 4-digit exponent.
ShortStr DoubleToSciText(double value);
// The shortest plain or scientific rendering of the 15 significant digits.
ShortStr DoubleToText(double value);
// As DoubleToText, with exactly 1.0e299 and -1.0e299 shown as the keywords.
ShortStr DoubleToKeywordText(double value);

}  // namespace optkw
