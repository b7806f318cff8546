// String lists with a hash table beside them, for lists searched by name far
// more often than they change.
//
//   txhashedstringlist<C>  keys equal without regard to case, as in every list
//   txstrpool              hashes like the list above (upper-cased), but keys
//                          are equal only byte for byte: "Abc" and "abc" are two
//                          entries that share a bucket
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "containers/ascii.h"
#include "containers/string_lists.h"

namespace optkw {

// h := h * 211 + the upper-cased byte, wrapping in 32 bits; the top bit cleared,
// modulo the table size. A size of 0 is a programming error.
inline uint32_t HashNoCase(std::string_view text, uint32_t size) {
  uint32_t h = 0;
  for (char c : text)
    h = h * 211u + UpCase(static_cast<unsigned char>(c));
  return (h & 0x7FFFFFFFu) % size;
}

template <class C>
class txhashedstringlist : public txcustomstringlist<C> {
  using List = txcustomstringlist<C>;

 public:
  // The table goes first, then the entries.
  ~txhashedstringlist() override { ReleaseTable(); }

  int32_t Add(std::string_view s) { return AddObject(s, C{}); }
  int32_t AddObject(std::string_view s, C obj) {
    const int32_t index = List::AddObject(s, std::move(obj));
    if (!dirty_ && List::Count() <= 2 * static_cast<int32_t>(FHashSize)) {
      Insert(index - this->IndexBase());
    } else {
      dirty_ = true;
    }
    return index;
  }

  // First entry whose key is equal to `s`, or -1.
  int32_t IndexOf(std::string_view s) const {
    if (dirty_) Rebuild();
    if (FHashSize == 0) return -1;
    for (int32_t position : FHashTable[Hash(s)]) {
      if (EntryEqual(s, position)) return position + this->IndexBase();
    }
    return -1;
  }

  void Delete(int32_t index) {
    List::Delete(index);
    dirty_ = true;
  }
  void Clear() {
    ReleaseTable();
    List::Clear();
  }
  void Exchange(int32_t i, int32_t j) override {
    List::Exchange(i, j);
    dirty_ = true;
  }

  uint32_t Hash(std::string_view s) const { return HashNoCase(s, FHashSize); }
  // Whether `key` equals the key at raw position `position` (from 0). Nil, the
  // empty key, equals nil alone.
  virtual bool EntryEqual(std::string_view key, int32_t position) const {
    return !key.empty() && EqualNoCase(this->Key(position + this->IndexBase()), key);
  }
  uint32_t HashSize() const { return FHashSize; }

 private:
  void Insert(int32_t position) const {
    FHashTable[Hash(this->Key(position + this->IndexBase()))].push_back(position);
  }
  // A table of about twice as many buckets as entries, filled in list order so
  // that each chain finds the earliest entry first.
  void Rebuild() const {
    FHashSize = static_cast<uint32_t>(2 * List::Count() + 31);
    FHashTable.assign(FHashSize, {});
    for (int32_t position = 0; position < List::Count(); ++position)
      Insert(position);
    dirty_ = false;
  }
  void ReleaseTable() {
    std::vector<std::vector<int32_t>>().swap(FHashTable);
    FHashSize = 0;
    dirty_ = true;
  }

  // Bucket heads; each chain holds raw positions in the order of the list.
  mutable std::vector<std::vector<int32_t>> FHashTable;
  mutable uint32_t FHashSize = 0;
  mutable bool dirty_ = true;
};

// A pool of distinct texts that keeps case apart, though it hashes without it.
class txstrpool : public txhashedstringlist<int32_t> {
 public:
  bool EntryEqual(std::string_view key, int32_t position) const override {
    return key == Key(position + IndexBase());
  }
  // Plain bytes, then lengths; nil before any text.
  int32_t Compare(int32_t i, int32_t j) override {
    const std::string_view a = Key(i);
    const std::string_view b = Key(j);
    if (a.empty() || b.empty()) return CompareKeys(a, b);
    for (size_t k = 0; k < a.size() && k < b.size(); ++k) {
      const int diff = static_cast<unsigned char>(a[k]) - static_cast<unsigned char>(b[k]);
      if (diff != 0) return diff;
    }
    return static_cast<int32_t>(a.size()) - static_cast<int32_t>(b.size());
  }
};

}  // namespace optkw
