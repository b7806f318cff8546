// ShortStr: the counted string that every internal interface passes around.
//
// One length byte and at most 255 bytes of text, kept inline so that copies and
// locals never allocate. Every way of putting text in (construction, assignment,
// concatenation) cuts at 255 bytes without complaint, so the 255-byte limits of
// the option texts hold by construction and no caller has to check a length.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace optkw {

class ShortStr {
 public:
  static constexpr int kMaxLength = 255;

  ShortStr() = default;
  ShortStr(std::string_view text) { Assign(text); }  // NOLINT: implicit by design
  ShortStr(const char *text) : ShortStr(std::string_view(text)) {}

  ShortStr(const ShortStr &other) { CopyFrom(other); }
  ShortStr &operator=(const ShortStr &other) {
    if (this != &other) CopyFrom(other);
    return *this;
  }
  ShortStr &operator=(std::string_view text) {
    Assign(text);
    return *this;
  }
  ShortStr &operator=(const char *text) { return *this = std::string_view(text); }

  // Reads the ABI layout of a counted string: byte 0 the length, then the text.
  static ShortStr FromCounted(const char *counted);
  // Writes the ABI layout: the length byte and the text, no NUL.
  void ToCounted(char *buffer) const;

  ShortStr &operator+=(std::string_view text);
  ShortStr &operator+=(char c);
  friend ShortStr operator+(ShortStr left, std::string_view right) { return left += right; }
  friend ShortStr operator+(ShortStr left, char right) { return left += right; }

  // The token readers' rule: once the text is full, a further character replaces
  // the last one, so a long token keeps its first 254 characters and its last.
  void PushCapped(char c) {
    if (length_ < kMaxLength) {
      text_[length_++] = c;
    } else {
      text_[kMaxLength - 1] = c;
    }
  }

  void Clear() { length_ = 0; }
  // Keeps the first `n` characters (n is clamped to the current length).
  void Truncate(int n) {
    if (n < length_) length_ = static_cast<uint8_t>(n < 0 ? 0 : n);
  }
  // Removes the first `n` characters.
  void EraseFront(int n);

  int size() const { return length_; }
  bool empty() const { return length_ == 0; }
  const char *data() const { return text_; }
  char operator[](int index) const { return text_[index]; }
  char back() const { return text_[length_ - 1]; }
  void SetAt(int index, char c) { text_[index] = c; }

  std::string_view view() const { return {text_, length_}; }
  operator std::string_view() const { return view(); }  // NOLINT: implicit by design

  friend bool operator==(const ShortStr &a, const ShortStr &b) { return a.view() == b.view(); }
  friend bool operator==(const ShortStr &a, std::string_view b) { return a.view() == b; }

 private:
  void Assign(std::string_view text) {
    length_ = static_cast<uint8_t>(text.size() < kMaxLength ? text.size() : kMaxLength);
    if (length_ > 0) std::memmove(text_, text.data(), length_);
  }
  // Copies of a fixed size: names and values are mostly short, and a move of
  // a size the compiler knows beats one of a length it doesn't.
  void CopyFrom(const ShortStr &other) {
    length_ = other.length_;
    if (length_ <= kShortCopy) {
      std::memcpy(text_, other.text_, kShortCopy);
    } else {
      std::memcpy(text_, other.text_, kMaxLength);
    }
  }
  static constexpr int kShortCopy = 32;

  uint8_t length_ = 0;
  char text_[kMaxLength];  // only the first length_ bytes are meaningful
};

}  // namespace optkw
