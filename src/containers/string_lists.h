// String lists: a key (an owned HeapStr) with a companion per entry.
//
//   txstringlist<C>      the companion is a plain value: an integer, or a pointer
//                        the list doesn't own
//   txstringlistobj<T>   the companion is an object the list owns
//   tmysortstringlist<C> sorts numbered names by number ("x2" before "x10")
//
// Keys compare without regard to the case of ASCII letters, and a list accepts
// duplicates: IndexOf finds the first. A list may keep a hash index beside it
// (EnableIndex) so that IndexOf doesn't walk; the answers are the same.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "containers/ascii.h"
#include "containers/growing_vector.h"
#include "containers/heap_str.h"
#include "containers/lists.h"
#include "containers/no_case_index.h"
#include "containers/quicksort.h"

namespace optkw {

template <class C>
class txcustomstringlist : public tquicksortclass {
 public:
  using Raw = decltype(RawEntry(std::declval<const C &>()));

  struct Entry {
    HeapStr FString;
    C FObject{};
  };

  int32_t Add(std::string_view s) { return AddObject(s, C{}); }

  int32_t AddObject(std::string_view s, C obj) {
    items_.Append(Entry{HeapStr(s), std::move(obj)});
    const int32_t position = Count() - 1;
    if (index_valid_ && !s.empty()) index_.Insert(items_.back().FString.view(), position, KeyOf());
    return position + IndexBase();
  }

  ShortStr GetName(int32_t index) const { return Key(index); }
  std::string_view Key(int32_t index) const { return items_[index - IndexBase()].FString.view(); }
  Raw GetObject(int32_t index) const { return RawEntry(items_[index - IndexBase()].FObject); }
  C &ObjectSlot(int32_t index) { return items_[index - IndexBase()].FObject; }
  const C &ObjectSlot(int32_t index) const { return items_[index - IndexBase()].FObject; }

  // First entry whose key equals `s` without regard to case, or -1. An empty key
  // is stored as nil and is never found by the empty text.
  int32_t IndexOf(std::string_view s) const {
    if (s.empty()) return -1;
    if (indexed_) {
      if (!index_valid_) RebuildIndex();
      const int32_t position = index_.Find(s, KeyOf());
      return position < 0 ? -1 : position + IndexBase();
    }
    for (int32_t i = 0; i < Count(); ++i) {
      if (EqualNoCase(items_[i].FString.view(), s)) return i + IndexBase();
    }
    return -1;
  }

  int32_t IndexOfObject(Raw obj) const {
    for (int32_t i = 0; i < Count(); ++i) {
      if (RawEntry(items_[i].FObject) == obj) return i + IndexBase();
    }
    return -1;
  }

  // Releases the key and the companion (if owned) and closes the gap.
  void Delete(int32_t index) {
    items_.Erase(index - IndexBase());
    InvalidateIndex();
  }

  // Releases keys and companions from the last entry to the first, then the storage.
  void Clear() {
    items_.Release();
    InvalidateIndex();
  }

  void Exchange(int32_t i, int32_t j) override {
    std::swap(items_[i - IndexBase()], items_[j - IndexBase()]);
    InvalidateIndex();
  }

  int32_t Compare(int32_t i, int32_t j) override { return CompareKeys(Key(i), Key(j)); }

  int32_t Count() const { return items_.Count(); }
  int32_t Capacity() const { return items_.Capacity(); }
  bool empty() const { return items_.empty(); }

  // Bytes held by the keys: each counts its length plus one.
  int64_t StrMemory() const {
    int64_t total = 0;
    for (const Entry &e : items_)
      total += e.FString.Memory();
    return total;
  }

  // Keeps a hash index of the keys from now on, for lists searched by name often.
  void EnableIndex() {
    indexed_ = true;
    InvalidateIndex();
  }

  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  // The key at a zero-based position, for the index.
  auto KeyOf() const {
    return [this](int32_t i) { return items_[i].FString.view(); };
  }
  void InvalidateIndex() {
    index_valid_ = false;
    index_.Clear();
  }
  void RebuildIndex() const {
    index_.Clear();
    for (int32_t i = 0; i < Count(); ++i) {
      std::string_view key = items_[i].FString.view();
      if (!key.empty()) index_.Insert(key, i, KeyOf());
    }
    index_valid_ = true;
  }

  GrowingVector<Entry> items_;
  bool indexed_ = false;
  mutable bool index_valid_ = false;
  // Zero-based position of the first entry of each key.
  mutable NoCaseIndex index_;
};

template <class C>
using txstringlist = txcustomstringlist<C>;

template <class T>
using txstringlistobj = txcustomstringlist<std::unique_ptr<T>>;

// Natural order of two names: the run of digits at the end of each is its number
// (0 when there is none), the rest its stem. Stems compare without regard to
// case; equal stems compare by number.
int32_t CompareNatural(std::string_view a, std::string_view b);

template <class C>
class tmysortstringlist : public txstringlist<C> {
 public:
  int32_t Compare(int32_t i, int32_t j) override {
    return CompareNatural(this->Key(i), this->Key(j));
  }
};

}  // namespace optkw
