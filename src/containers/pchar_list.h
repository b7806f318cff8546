// txpcharlist: owned C strings by position, each in a block of its own.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "containers/lists.h"

namespace optkw {

class txpcharlist {
 public:
  int32_t Add(std::string_view text) {
    auto block = std::make_unique_for_overwrite<char[]>(text.size() + 1);
    std::memcpy(block.get(), text.data(), text.size());
    block[text.size()] = '\0';
    FStrMemory += static_cast<int64_t>(text.size()) + 1;
    return FList.Add(std::move(block));
  }
  const char *Get(int32_t index) const { return FList.GetItem(index).get(); }
  int32_t Count() const { return FList.Count(); }
  // Bytes of the blocks, NULs included.
  int64_t StrMemory() const { return FStrMemory; }
  void Clear() {
    FList.Clear();
    FStrMemory = 0;
  }

 private:
  txlist<std::unique_ptr<char[]>> FList;
  int64_t FStrMemory = 0;
};

}  // namespace optkw
