// txlist and its variants: growable lists addressed by position.
//
//   txlist<T>      entries are plain values (integers, or pointers it doesn't own)
//   txlistobj<T>   entries are objects the list owns
//   txstrings      entries are owned HeapStr texts
//
// No operation checks an index: callers test against Count() first. Growth
// follows GrownCapacity, eightfold while the list is small.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "containers/ascii.h"
#include "containers/growing_vector.h"
#include "containers/heap_str.h"
#include "containers/quicksort.h"
#include "containers/short_str.h"

namespace optkw {

// The raw value of an entry: the pointer of an owned object, the value itself otherwise.
template <class T>
auto RawEntry(const T &item) {
  return item;
}
template <class T>
T *RawEntry(const std::unique_ptr<T> &item) {
  return item.get();
}

template <class T>
class txlist : public tquicksortclass {
 public:
  using Raw = decltype(RawEntry(std::declval<const T &>()));

  int32_t Add(T item) {
    items_.Append(std::move(item));
    return Count() - 1 + IndexBase();
  }

  T &GetItem(int32_t index) { return items_[index - IndexBase()]; }
  const T &GetItem(int32_t index) const { return items_[index - IndexBase()]; }
  Raw Get(int32_t index) const { return RawEntry(GetItem(index)); }

  // The last entry, or nil (0) for an empty list.
  Raw Last() const { return items_.empty() ? Raw{} : RawEntry(items_.back()); }

  // First position whose entry is `item`, or -1.
  int32_t IndexOf(Raw item) const {
    for (int32_t i = 0; i < Count(); ++i) {
      if (RawEntry(items_[i]) == item) return i + IndexBase();
    }
    return -1;
  }

  // Frees the entry (if the list owns it) and closes the gap. Storage is kept.
  void Delete(int32_t index) { items_.Erase(index - IndexBase()); }

  // Searches from the last entry; the last match is deleted. Gives its position or -1.
  int32_t Remove(Raw item) {
    for (int32_t i = Count(); i-- > 0;) {
      if (RawEntry(items_[i]) == item) {
        items_.Erase(i);
        return i + IndexBase();
      }
    }
    return -1;
  }

  // Frees the entries from the last to the first and releases the storage.
  void Clear() { items_.Release(); }

  void Exchange(int32_t i, int32_t j) override { std::swap(GetItem(i), GetItem(j)); }
  // A plain list has no order of its own; sorting one is a programming error.
  int32_t Compare(int32_t, int32_t) override { throw std::logic_error("Abstract error"); }

  int32_t Count() const { return items_.Count(); }
  int32_t Capacity() const { return items_.Capacity(); }

  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  GrowingVector<T> items_;
};

template <class T>
using txlistobj = txlist<std::unique_ptr<T>>;

// Order of two optional texts: a nil (empty) text sorts before any other.
inline int32_t CompareKeys(std::string_view a, std::string_view b) {
  if (a.empty() || b.empty()) return (a.empty() ? 0 : 1) - (b.empty() ? 0 : 1);
  return CompareNoCase(a, b);
}

class txstrings : public txlist<HeapStr> {
 public:
  int32_t Add(std::string_view s) { return txlist<HeapStr>::Add(HeapStr(s)); }
  ShortStr GetName(int32_t index) const { return GetItem(index).Get(); }
  std::string_view View(int32_t index) const { return GetItem(index).view(); }

  // First entry equal to `s` without regard to case, or -1. The empty text is
  // stored as nil and nil equals only nil, so the empty text is never found.
  int32_t IndexOf(std::string_view s) const {
    if (s.empty()) return -1;
    for (int32_t i = 0; i < Count(); ++i) {
      if (EqualNoCase(GetItem(i + IndexBase()).view(), s)) return i + IndexBase();
    }
    return -1;
  }

  int32_t Compare(int32_t i, int32_t j) override {
    return CompareKeys(GetItem(i).view(), GetItem(j).view());
  }

  // Bytes held by the texts: each counts its length plus one, nil counts 0.
  int64_t StrMemory() const {
    int64_t total = 0;
    for (const HeapStr &s : *this)
      total += s.Memory();
    return total;
  }
};

}  // namespace optkw
