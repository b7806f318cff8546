// The table of the interface as clients check it: every row of
// optkw_table.def with its argument count and signature codes, and xcheck.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "containers/short_str.h"

namespace optkw {

struct InterfaceRow {
  std::string_view name;  // mixed case, as clients check it
  std::string_view lower;
  int32_t arg_count;
  std::array<int32_t, 8> codes;  // the result, then the arguments; -1 behind them
  bool has_c_form;
};

std::span<const InterfaceRow> InterfaceRows();

// Checks that `name` is a row with `arg_count` arguments of the codes
// `codes[0..arg_count]`. Gives 1, or 0 with the reason in `message`.
int32_t CheckSignature(const ShortStr &name, int32_t arg_count, const int32_t *codes,
                       ShortStr &message);

}  // namespace optkw
