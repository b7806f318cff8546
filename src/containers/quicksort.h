// tquicksortclass: the sort that every list inherits. It knows nothing of what
// it sorts and works on positions through the two virtual operations.
#pragma once

#include <cstdint>

namespace optkw {

class tquicksortclass {
 public:
  virtual ~tquicksortclass() = default;

  virtual void Exchange(int32_t i, int32_t j) = 0;
  virtual int32_t Compare(int32_t i, int32_t j) = 0;

  // Sorts the first `count` entries (from the index base). Not stable.
  void SortN(int32_t count);

  // Index base of the list's operations: false for 0, true for 1.
  bool OneBased = false;

 protected:
  int32_t IndexBase() const { return OneBased ? 1 : 0; }

 private:
  void QuickSort(int32_t lo, int32_t hi);
};

// Capacity after one growth step: eightfold below 1048576 entries (16 from an
// empty list), a quarter more above, and never less than `count`.
int32_t GrownCapacity(int32_t capacity, int32_t count);

}  // namespace optkw
