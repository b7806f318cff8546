// String lists kept in the order of their keys.
//
//   txsortedstringlist<C>  adds keep the list sorted while Sorted is set, and
//                          searches are binary; equal keys keep the order of adding
//   txstrstrlist           a sorted list whose companions are owned texts
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "containers/heap_str.h"
#include "containers/string_lists.h"

namespace optkw {

template <class C>
class txsortedstringlist : public txcustomstringlist<C> {
  using List = txcustomstringlist<C>;

 public:
  // Whether adds keep the order. Switching it on sorts the list.
  bool Sorted() const { return sorted_; }
  void SetSorted(bool sorted) {
    if (sorted && !sorted_) this->SortN(List::Count());
    sorted_ = sorted;
  }

  int32_t Add(std::string_view s) { return AddObject(s, C{}); }
  int32_t AddObject(std::string_view s, C obj) {
    const int32_t added = List::AddObject(s, std::move(obj));
    if (!sorted_) return added;
    // Move the new entry down behind the last key that isn't greater.
    int32_t position = added;
    while (position > this->IndexBase() && CompareKeys(this->Key(position - 1), s) > 0) {
      List::Exchange(position - 1, position);
      --position;
    }
    return position;
  }

  // First entry whose key equals `s` without regard to case, or -1.
  int32_t IndexOf(std::string_view s) const {
    if (!sorted_) return List::IndexOf(s);
    if (s.empty()) return -1;
    int32_t lo = this->IndexBase();
    int32_t hi = List::Count() - 1 + this->IndexBase();
    while (lo <= hi) {
      const int32_t mid = lo + (hi - lo) / 2;
      if (CompareKeys(this->Key(mid), s) < 0) {
        lo = mid + 1;
      } else {
        hi = mid - 1;
      }
    }
    return lo < List::Count() + this->IndexBase() && EqualNoCase(this->Key(lo), s) ? lo : -1;
  }

 private:
  bool sorted_ = true;
};

class txstrstrlist : public txsortedstringlist<HeapStr> {
 public:
  int32_t AddPair(std::string_view key, std::string_view value) {
    return AddObject(key, HeapStr(value));
  }
  std::string_view Value(int32_t index) const { return ObjectSlot(index).view(); }

  // Bytes held by keys and values.
  int64_t StrMemory() const {
    int64_t total = txsortedstringlist<HeapStr>::StrMemory();
    for (const auto &entry : *this)
      total += entry.FObject.Memory();
    return total;
  }
};

}  // namespace optkw
