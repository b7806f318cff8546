#include "scanning/value_text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <system_error>

#include "containers/ascii.h"
#include "scanning/text_ops.h"

namespace optkw {
namespace {

bool IsHexDigit(char c) {
  return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

int HexValue(char c) {
  if (IsDigit(c)) return c - '0';
  return UpCase(c) - 'A' + 10;
}

int32_t Saturate(uint64_t magnitude, bool negative) {
  if (negative) {
    return magnitude >= 2147483648ull ? INT32_MIN : -static_cast<int32_t>(magnitude);
  }
  return magnitude >= 2147483647ull ? INT32_MAX : static_cast<int32_t>(magnitude);
}

// The value of a decimal number that std::from_chars found out of range: an
// infinity when it is too large, zero when it is too small.
double OutOfRangeValue(std::string_view number) {
  size_t i = 0;
  int64_t magnitude = 0;  // decimal exponent of the leading digit
  bool seen_nonzero = false;
  int64_t leading_zeros = 0;
  int64_t int_digits = 0;
  while (i < number.size() && IsDigit(number[i])) {
    if (number[i] != '0') seen_nonzero = true;
    if (seen_nonzero) ++int_digits;
    ++i;
  }
  if (i < number.size() && number[i] == '.') {
    ++i;
    while (i < number.size() && IsDigit(number[i])) {
      if (!seen_nonzero && int_digits == 0) {
        if (number[i] == '0') {
          ++leading_zeros;
        } else {
          seen_nonzero = true;
        }
      }
      ++i;
    }
  }
  int64_t exponent = 0;
  if (i < number.size() && (number[i] == 'e' || number[i] == 'E')) {
    ++i;
    bool negative = false;
    if (i < number.size() && (number[i] == '+' || number[i] == '-')) negative = number[i++] == '-';
    while (i < number.size() && IsDigit(number[i])) {
      if (exponent < 1000000) exponent = exponent * 10 + (number[i] - '0');
      ++i;
    }
    if (negative) exponent = -exponent;
  }
  magnitude = int_digits > 0 ? int_digits - 1 + exponent : -leading_zeros - 1 + exponent;
  return magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

// Converts the decimal number at the front of `text`; gives how many bytes it took.
size_t ConvertDecimal(std::string_view text, double &value) {
  const char *first = text.data();
  const char *last = first + text.size();
  value = 0;  // from_chars leaves the value alone when it finds no number
  auto [ptr, ec] = std::from_chars(first, last, value, std::chars_format::general);
  if (ec == std::errc::result_out_of_range) value = OutOfRangeValue({first, ptr});
  return static_cast<size_t>(ptr - first);
}

// Where a number begins: behind leading blanks and an optional sign.
size_t SkipBlanksAndSign(std::string_view text, bool &negative) {
  size_t i = 0;
  while (i < text.size() && text[i] == ' ')
    ++i;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
  return i;
}

ShortStr RightAligned(std::string_view text, int32_t width) {
  return BlankText(width - static_cast<int32_t>(text.size())) + text;
}

}  // namespace

int32_t ValInteger(std::string_view text, int32_t &position) {
  const size_t n = text.size();
  bool negative = false;
  size_t i = SkipBlanksAndSign(text, negative);

  int base = 10;
  size_t digits_start;
  if (i + 1 < n && text[i] == '$' && IsHexDigit(text[i + 1])) {
    base = 16;
    digits_start = i + 1;
  } else if (i + 1 < n && text[i] == '0' && (text[i + 1] == 'x' || text[i + 1] == 'X')) {
    base = 16;
    digits_start = i + 2;
  } else if (i < n && IsDigit(text[i]) && (text[i] != '0' || i + 1 == n || IsDigit(text[i + 1]))) {
    digits_start = i;
  } else {
    position = static_cast<int32_t>(i) + 1;
    return 0;
  }

  // Take as many digits as there are; a number beyond 32 bits saturates.
  uint64_t magnitude = 0;
  size_t j = digits_start;
  while (j < n && (base == 16 ? IsHexDigit(text[j]) : IsDigit(text[j]))) {
    if (magnitude < (1ull << 40)) magnitude = magnitude * base + HexValue(text[j]);
    ++j;
  }
  if (j == digits_start) j = digits_start - 1;  // "0x" with no digit: stop at the "x"
  position = j == n ? 0 : static_cast<int32_t>(j) + 1;
  return Saturate(magnitude, negative);
}

void ValDouble(std::string_view text, double &value, int32_t &position) {
  const size_t n = text.size();
  bool negative = false;
  size_t i = SkipBlanksAndSign(text, negative);

  size_t stop;  // index of the first byte not taken
  if (i < n && IsDigit(text[i])) {
    if (i + 1 < n && (text[i + 1] == 'x' || text[i + 1] == 'X')) {
      // Hexadecimal isn't taken: the digit alone is the value.
      value = text[i] - '0';
      stop = i + 1;
    } else {
      stop = i + ConvertDecimal(text.substr(i), value);
    }
  } else if (i < n && text[i] == '.') {
    if (i + 1 == n) {
      value = 0;
      stop = n;
    } else if (text[i + 1] == 'e' || text[i + 1] == 'E') {
      // A bare "." reads as "0", so ".e5" is zero.
      ShortStr with_zero = ShortStr("0") + text.substr(i);
      stop = i + ConvertDecimal(with_zero.view(), value) - 1;
    } else {
      stop = i + ConvertDecimal(text.substr(i), value);
    }
  } else {
    value = 0;
    position = static_cast<int32_t>(i) + 1;
    return;
  }
  if (negative) value = -value;
  position = stop >= n ? 0 : static_cast<int32_t>(stop) + 1;
}

bool TextToInteger(std::string_view text, int32_t &value) {
  if (SameText(text, "maxint")) {
    value = INT32_MAX;
    return true;
  }
  if (SameText(text, "minint")) {
    value = INT32_MIN;
    return true;
  }
  int32_t position = 0;
  value = ValInteger(text, position);
  return position == 0;
}

bool TextToIntegerLax(std::string_view text, int32_t &value) {
  if (TextToInteger(text, value)) return true;
  value = 0;
  double d;
  if (!TextToDouble(text, d)) return false;
  if (d < -2147483648.0 || d > 2147483647.0 || d != std::trunc(d)) return false;
  value = static_cast<int32_t>(d);
  return true;
}

bool TextToDouble(std::string_view text, double &value) {
  if (SameText(text, "maxdouble")) {
    value = kMaxDoubleValue;
    return true;
  }
  if (SameText(text, "mindouble")) {
    value = -kMaxDoubleValue;
    return true;
  }
  if (SameText(text, "eps")) {
    value = kEpsValue;
    return true;
  }
  int32_t position = 0;
  if (text.size() <= ShortStr::kMaxLength && text.find_first_of("Dd") == std::string_view::npos) {
    ValDouble(text, value, position);
  } else {
    // A "D" exponent, as Fortran writes one.
    const ShortStr with_e = ReplaceCharsInSet(text, CharSet{'D', 'd'}, 'E');
    ValDouble(with_e.view(), value, position);
  }
  return position == 0 && std::isfinite(value);
}

ShortStr IntegerToText(int32_t value) {
  char buffer[16];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  return ShortStr(std::string_view(buffer, static_cast<size_t>(end - buffer)));
}

ShortStr IntegerToKeywordText(int32_t value) {
  if (value == INT32_MAX) return "maxint";
  if (value == INT32_MIN) return "minint";
  return IntegerToText(value);
}

ShortStr IntegerToWidthText(int32_t value, int32_t width) {
  return RightAligned(IntegerToText(value).view(), width > 255 ? 255 : width);
}

ShortStr DoubleToSciText(double value) {
  constexpr int32_t kWidth = 23;
  if (std::isnan(value)) return RightAligned("NaN", kWidth);
  if (std::isinf(value)) return RightAligned(value < 0 ? "-Inf" : "Inf", kWidth);

  // "d.dddddddddddddde+xx", correctly rounded to 15 significant digits.
  char digits[40];
  auto [end, ec] = std::to_chars(digits, digits + sizeof digits, std::fabs(value),
                                 std::chars_format::scientific, 14);
  const std::string_view raw(digits, static_cast<size_t>(end - digits));
  const size_t e = raw.find('e');
  int exponent = 0;
  std::from_chars(raw.data() + e + 2, raw.data() + raw.size(), exponent);
  const bool negative_exponent = raw[e + 1] == '-';

  ShortStr result(value < 0 ? "-" : " ");
  result += raw.substr(0, e);
  result += negative_exponent ? "E-" : "E+";
  char exp_digits[4] = {'0', '0', '0', '0'};
  for (int k = 3; k >= 0 && exponent > 0; --k, exponent /= 10)
    exp_digits[k] = '0' + exponent % 10;
  result += std::string_view(exp_digits, 4);
  return result;
}

ShortStr DoubleToText(double value) {
  if (value == 0) return "0";
  if (!std::isfinite(value)) return TrimText(DoubleToSciText(value).view());

  const ShortStr sci = DoubleToSciText(value);
  // Layout of `sci`: [0] sign, [1] first digit, [2] ".", [3..16] fraction,
  // [17] "E", [18] exponent sign, [19..22] exponent.
  const std::string_view first_digit = sci.view().substr(1, 1);
  std::string_view fraction = sci.view().substr(3, 14);
  int exponent = 0;
  std::from_chars(sci.data() + 19, sci.data() + 23, exponent);
  if (sci[18] == '-') exponent = -exponent;

  ShortStr result(value < 0 ? "-" : "");
  const double magnitude = std::fabs(value);
  if (magnitude < 0.0001 || magnitude >= 1.0e15) {
    while (!fraction.empty() && fraction.back() == '0')
      fraction.remove_suffix(1);
    result += first_digit;
    if (!fraction.empty()) result += ShortStr(".") + fraction;
    result += 'E';
    result += IntegerToText(exponent);
    return result;
  }

  // Plain form: put the decimal point where the exponent says.
  ShortStr all_digits = ShortStr(first_digit) + fraction;
  ShortStr int_part;
  ShortStr frac_part;
  if (exponent >= 0) {
    const int int_len = exponent + 1;
    int_part = all_digits.view().substr(0, static_cast<size_t>(int_len));
    while (int_part.size() < int_len)
      int_part += '0';
    if (int_len < all_digits.size())
      frac_part = all_digits.view().substr(static_cast<size_t>(int_len));
  } else {
    int_part = "0";
    for (int k = 1; k < -exponent; ++k)
      frac_part += '0';
    frac_part += all_digits;
  }
  std::string_view frac = frac_part.view();
  while (!frac.empty() && frac.back() == '0')
    frac.remove_suffix(1);
  result += int_part;
  if (!frac.empty()) result += ShortStr(".") + frac;
  return result;
}

ShortStr DoubleToKeywordText(double value) {
  if (value == kMaxDoubleValue) return "maxdouble";
  if (value == -kMaxDoubleValue) return "mindouble";
  return DoubleToText(value);
}

}  // namespace optkw
