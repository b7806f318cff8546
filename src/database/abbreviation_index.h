// An index of option names for the lookups that allow abbreviations.
//
// Under Path and Minos a name matches an option's name only if both have the
// same number of "_" and the same first three characters (without regard to
// case). Path asks each word to agree in its first three letters, so the first
// word does; Minos asks it of the first three characters outright. Both count
// the words alike. So the options whose names share that key with the name
// asked for are the only candidates: they are tried by the full rules in the
// order of the definition, and the first that matches is the answer a walk
// over every option would give.
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace optkw {

class AbbreviationIndex {
 public:
  // Takes in the names from position Indexed() on; names are only ever added
  // behind the others, and never change.
  template <class Names>
  void CatchUp(const Names &names) {
    for (; indexed_ < names.Count(); ++indexed_)
      buckets_[KeyOf(names.Key(indexed_))].push_back(indexed_);
  }

  // The first position, in ascending order, whose name `matches` accepts among
  // the candidates of `wanted`; -1 if none.
  template <class Names, class Match>
  int32_t Find(const Names &names, std::string_view wanted, Match matches) {
    CatchUp(names);
    const auto bucket = buckets_.find(KeyOf(wanted));
    if (bucket == buckets_.end()) return -1;
    for (int32_t position : bucket->second) {
      if (matches(wanted, names.Key(position))) return position;
    }
    return -1;
  }

  // The number of "_", the length of the first three characters (up to 3)
  // and those characters in upper case.
  static uint64_t KeyOf(std::string_view name) {
    uint64_t key = 0;
    for (char c : name)
      key += c == '_';
    const size_t lead = name.size() < 3 ? name.size() : 3;
    key = key << 8 | lead;
    for (size_t k = 0; k < 3; ++k) {
      unsigned char c = k < lead ? static_cast<unsigned char>(name[k]) : 0;
      if (c >= 'a' && c <= 'z') c = static_cast<unsigned char>(c - 'a' + 'A');
      key = key << 8 | c;
    }
    return key;
  }

 private:
  int32_t indexed_ = 0;
  std::unordered_map<uint64_t, std::vector<int32_t>> buckets_;
};

}  // namespace optkw
