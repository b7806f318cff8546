// NoCaseIndex: positions of keys by their text without regard to the case of
// ASCII letters, in one flat table.
//
// Names are looked up once per statement of parameter text, so the lookup is
// built to cost a handful of instructions: the key is upper-cased and hashed
// eight bytes at a time, the table is open-addressed with a power-of-two size
// (no division, no node per key), and a slot keeps 32 bits of the hash so that
// a key is compared only where the hashes agree. The table holds no text: the
// caller says how to get the key of a position.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace optkw {

// Eight bytes with every ASCII lower-case letter upper-cased; bytes above 127
// stay as they are.
constexpr uint64_t UpperCaseWord(uint64_t x) {
  constexpr uint64_t kOnes = 0x0101010101010101ull;
  constexpr uint64_t kHigh = 0x8080808080808080ull;
  const uint64_t seven = x & ~kHigh;
  const uint64_t from_a = seven + (0x80 - 'a') * kOnes;      // high bit: byte >= 'a'
  const uint64_t past_z = seven + (0x80 - 'z' - 1) * kOnes;  // high bit: byte > 'z'
  const uint64_t lower = from_a & ~past_z & ~x & kHigh;
  return x ^ (lower >> 2);  // 0x80 >> 2 is the 0x20 between the cases
}

// The bytes of `s` from `offset` on, at most eight, as one little-endian word
// padded with zeros. A short tail is put together from loads that overlap
// rather than byte by byte; no byte outside `s` is read.
inline uint64_t LoadWord(std::string_view s, size_t offset) {
  const char *p = s.data() + offset;
  const size_t n = s.size() - offset;
  uint64_t word = 0;
  if (n >= 8) {
    std::memcpy(&word, p, 8);
    return word;
  }
  if (s.size() >= 8) {
    // The last eight bytes of the text, the ones before the tail shifted out.
    std::memcpy(&word, s.data() + s.size() - 8, 8);
    return word >> (8 * (8 - n));
  }
  if (n >= 4) {
    uint32_t low = 0;
    uint32_t high = 0;
    std::memcpy(&low, p, 4);
    std::memcpy(&high, p + n - 4, 4);
    return low | static_cast<uint64_t>(high) << (8 * (n - 4));
  }
  if (n == 0) return 0;
  const auto byte = [p](size_t i) {
    return static_cast<uint64_t>(static_cast<unsigned char>(p[i]));
  };
  return byte(0) | byte(n / 2) << (8 * (n / 2)) | byte(n - 1) << (8 * (n - 1));
}

inline uint64_t HashWordsNoCase(std::string_view s) {
  uint64_t h = 0x9E3779B97F4A7C15ull ^ s.size();
  for (size_t offset = 0; offset < s.size(); offset += 8) {
    h ^= UpperCaseWord(LoadWord(s, offset));
    h *= 0xBF58476D1CE4E5B9ull;
    h ^= h >> 29;
  }
  return h;
}

inline bool SameNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t offset = 0; offset < a.size(); offset += 8) {
    const uint64_t x = LoadWord(a, offset);
    const uint64_t y = LoadWord(b, offset);
    // Most keys come in the case they were defined in.
    if (x != y && UpperCaseWord(x) != UpperCaseWord(y)) return false;
  }
  return true;
}

class NoCaseIndex {
 public:
  void Clear() {
    slots_.clear();
    count_ = 0;
  }

  // Position of `key`, or -1. `key_at(position)` gives the key stored there.
  template <class KeyAt>
  int32_t Find(std::string_view key, const KeyAt &key_at) const {
    if (slots_.empty()) return -1;
    const uint64_t h = HashWordsNoCase(key);
    const uint32_t tag = Tag(h);
    for (size_t i = h & Mask();; i = (i + 1) & Mask()) {
      const Slot &slot = slots_[i];
      if (slot.position < 0) return -1;
      if (slot.tag == tag && SameNoCase(key_at(slot.position), key)) return slot.position;
    }
  }

  // Records `position` for `key` unless the key is there already: the first
  // position of a key is the one found.
  template <class KeyAt>
  void Insert(std::string_view key, int32_t position, const KeyAt &key_at) {
    if ((count_ + 1) * 2 > slots_.size()) Grow();
    const uint64_t h = HashWordsNoCase(key);
    const uint32_t tag = Tag(h);
    size_t i = h & Mask();
    for (; slots_[i].position >= 0; i = (i + 1) & Mask()) {
      if (slots_[i].tag == tag && SameNoCase(key_at(slots_[i].position), key)) return;
    }
    slots_[i] = Slot{tag, position, h};
    ++count_;
  }

 private:
  struct Slot {
    uint32_t tag = 0;
    int32_t position = -1;  // -1: empty
    uint64_t hash = 0;      // kept so that growing needs no key
  };

  static uint32_t Tag(uint64_t h) { return static_cast<uint32_t>(h >> 32); }
  size_t Mask() const { return slots_.size() - 1; }

  void Grow() {
    std::vector<Slot> old;
    old.swap(slots_);
    slots_.assign(old.empty() ? 16 : old.size() * 2, Slot{});
    for (const Slot &slot : old) {
      if (slot.position < 0) continue;
      size_t i = slot.hash & Mask();
      while (slots_[i].position >= 0)
        i = (i + 1) & Mask();
      slots_[i] = slot;
    }
  }

  std::vector<Slot> slots_;
  size_t count_ = 0;
};

}  // namespace optkw
