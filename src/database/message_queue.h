// The message queue of a handle: texts with their types, in the order of adding.
//
// The queue keeps a count of its entries by type beside the list, so that the
// error counts that every setter takes before and after its work cost nothing.
// Echo lines reach the list straight from the scanner (EchoTarget); they are of
// type 0, which the counts never need.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "containers/string_lists.h"

namespace optkw {

class tmessagequeue {
 public:
  static constexpr int32_t kTypes = 10;

  int32_t Count() const { return entries_.Count(); }
  std::string_view Text(int32_t index) const { return entries_.Key(index); }
  int32_t Type(int32_t index) const { return entries_.GetObject(index); }
  bool empty() const { return entries_.empty(); }

  void Append(int32_t type, std::string_view text) {
    entries_.AddObject(text, type);
    if (type > 0 && type < kTypes) ++counts_[type];
  }
  void DeleteLast() {
    const int32_t type = Type(Count() - 1);
    if (type > 0 && type < kTypes) --counts_[type];
    entries_.Delete(Count() - 1);
  }
  void Clear() {
    entries_.Clear();
    counts_.fill(0);
  }

  // Number of entries whose type is one of `types` (none of them 0).
  int32_t CountOf(std::initializer_list<int32_t> types) const {
    int32_t total = 0;
    for (int32_t t : types)
      total += counts_[t];
    return total;
  }

  // The list that a scanner adds its echo lines to.
  txstringlist<int32_t> &EchoTarget() { return entries_; }

 private:
  txstringlist<int32_t> entries_;
  std::array<int32_t, kTypes> counts_{};
};

}  // namespace optkw
