// A set of byte values, such as the characters that start an end-of-line comment.
#pragma once

#include <bitset>
#include <initializer_list>
#include <string_view>

namespace optkw {

class CharSet {
 public:
  CharSet() = default;
  CharSet(std::initializer_list<char> members) {
    for (char c : members)
      Add(c);
  }
  void Add(char c) { bits_.set(static_cast<unsigned char>(c)); }
  void AddRange(unsigned char from, unsigned char to) {
    for (unsigned c = from; c <= to; ++c)
      bits_.set(c);
  }
  void AddAll(std::string_view chars) {
    for (char c : chars)
      Add(c);
  }
  bool Has(char c) const { return bits_[static_cast<unsigned char>(c)]; }
  bool Empty() const { return bits_.none(); }
  void Clear() { bits_.reset(); }

 private:
  std::bitset<256> bits_;
};

// The end-of-line comment characters of a scanner.
using EolCharSet = CharSet;

}  // namespace optkw
