#include "containers/quicksort.h"

#include <cstdint>
#include <tuple>
#include <utility>
#include <vector>

namespace optkw {

void tquicksortclass::SortN(int32_t count) {
  if (count < 2) return;
  QuickSort(IndexBase(), IndexBase() + count - 1);
}

void tquicksortclass::QuickSort(int32_t lo, int32_t hi) {
  // Parts still to sort, the next on top: the left part of a partition comes
  // before its right part, as in the plain recursive form, so the entries are
  // compared and exchanged in the same sequence, while no input, however
  // unlucky, can make the call stack deep.
  std::vector<std::pair<int32_t, int32_t>> parts{{lo, hi}};
  while (!parts.empty()) {
    std::tie(lo, hi) = parts.back();
    parts.pop_back();
    // The pivot is a position, not a value: it moves with the entry it names
    // whenever that entry takes part in an exchange.
    int32_t p = (lo + hi) >> 1;
    int32_t i = lo;
    int32_t j = hi;
    do {
      while (Compare(i, p) < 0)
        ++i;
      while (Compare(j, p) > 0)
        --j;
      if (i <= j) {
        Exchange(i, j);
        if (p == i) {
          p = j;
        } else if (p == j) {
          p = i;
        }
        ++i;
        --j;
      }
    } while (i <= j);
    if (i < hi) parts.emplace_back(i, hi);
    if (lo < j) parts.emplace_back(lo, j);
  }
}

int32_t GrownCapacity(int32_t capacity, int32_t count) {
  constexpr int32_t kThreshold = 1048576;
  int32_t increase;
  if (capacity < kThreshold) {
    increase = capacity == 0 ? 16 : 7 * capacity;
  } else {
    increase = capacity / 4;
  }
  // 64-bit sum so that a list near the top of the int32 range clamps instead of wrapping.
  int64_t grown = static_cast<int64_t>(capacity) + increase;
  if (grown > INT32_MAX) grown = INT32_MAX;
  return grown < count ? count : static_cast<int32_t>(grown);
}

}  // namespace optkw
