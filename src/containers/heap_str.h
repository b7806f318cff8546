// HeapStr: an owned heap copy of a ShortStr: a length byte and the text, in a
// block rounded up to 16 bytes. The empty text is never allocated: it is the
// nil HeapStr.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "containers/short_str.h"

namespace optkw {

class HeapStr {
 public:
  HeapStr() = default;
  explicit HeapStr(std::string_view text) { Set(text); }
  HeapStr(const HeapStr &other) { Set(other.view()); }
  HeapStr &operator=(const HeapStr &other) {
    if (this != &other) Set(other.view());
    return *this;
  }
  HeapStr(HeapStr &&) noexcept = default;
  HeapStr &operator=(HeapStr &&) noexcept = default;
  HeapStr &operator=(std::string_view text) {
    Set(text);
    return *this;
  }

  // Replaces the text; the empty text releases the block and leaves nil. Text
  // beyond 255 bytes is cut, as for any ShortStr.
  void Set(std::string_view text);

  bool IsNil() const { return block_ == nullptr; }
  std::string_view view() const {
    if (!block_) return {};
    return {reinterpret_cast<const char *>(block_.get() + 1), block_[0]};
  }
  ShortStr Get() const { return ShortStr(view()); }
  // Bytes held: the length plus one, or 0 for nil.
  int64_t Memory() const { return block_ ? block_[0] + 1 : 0; }

 private:
  std::unique_ptr<unsigned char[]> block_;
};

}  // namespace optkw
