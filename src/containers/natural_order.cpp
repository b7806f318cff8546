#include <charconv>
#include <cstdint>
#include <string_view>

#include "containers/ascii.h"
#include "containers/string_lists.h"

namespace optkw {
namespace {

struct StemAndNumber {
  std::string_view stem;
  int32_t number = 0;
};

StemAndNumber Split(std::string_view key) {
  size_t start = key.size();
  while (start > 0 && IsDigit(key[start - 1]))
    --start;
  StemAndNumber result{key.substr(0, start), 0};
  std::string_view digits = key.substr(start);
  if (!digits.empty()) {
    auto [ptr, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), result.number);
    // A run of digits too long for 32 bits counts as the largest number.
    if (ec == std::errc::result_out_of_range) result.number = INT32_MAX;
  }
  return result;
}

}  // namespace

int32_t CompareNatural(std::string_view a, std::string_view b) {
  const StemAndNumber left = Split(a);
  const StemAndNumber right = Split(b);
  const int32_t by_stem = CompareNoCase(left.stem, right.stem);
  if (by_stem != 0) return by_stem;
  return left.number - right.number;
}

}  // namespace optkw
