// tbooleanbitarray: a set of non-negative integers as a bit array that grows.
#pragma once

#include <cstdint>
#include <vector>

namespace optkw {

class tbooleanbitarray {
 public:
  bool GetBit(int32_t index) const {
    if (index < 0 || index > FHighest) return false;
    return (FData[static_cast<size_t>(index) / 8] >> (index % 8)) & 1;
  }
  void SetBit(int32_t index, bool value) {
    if (index < 0) return;
    if (index > FHighest) {
      if (!value) return;  // unset bits beyond the end are unset already
      if (static_cast<size_t>(index) / 8 >= FData.size())
        FData.resize(static_cast<size_t>(index) / 8 + 1, 0);
      FHighest = index;
    }
    uint8_t &byte = FData[static_cast<size_t>(index) / 8];
    const uint8_t mask = static_cast<uint8_t>(1u << (index % 8));
    byte = value ? (byte | mask) : (byte & ~mask);
  }
  // The highest index set so far, -1 for none.
  int32_t Highest() const { return FHighest; }
  int64_t Allocated() const { return static_cast<int64_t>(FData.size()); }

 private:
  std::vector<uint8_t> FData;
  int32_t FHighest = -1;
};

}  // namespace optkw
