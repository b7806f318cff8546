#include "containers/quicksort.h"

#include <cstdint>

namespace optkw {

void tquicksortclass::SortN(int32_t count) {
  if (count < 2) return;
  QuickSort(IndexBase(), IndexBase() + count - 1);
}

void tquicksortclass::QuickSort(int32_t lo, int32_t hi) {
  // The right part is handled by the loop, the left part by recursion.
  for (;;) {
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
    if (lo < j) QuickSort(lo, j);
    lo = i;
    if (i >= hi) return;
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
