#include "containers/heap_str.h"

#include <cstring>

namespace optkw {

namespace {

// Blocks come in sizes of 16 bytes, so that a value replaced by one of about
// the same length (the usual case when parameter text sets an option again)
// keeps its block instead of going through the allocator.
size_t BlockSize(size_t length) {
  return (length + 1 + 15) & ~size_t{15};
}

}  // namespace

void HeapStr::Set(std::string_view text) {
  const size_t n = text.size() < ShortStr::kMaxLength ? text.size() : ShortStr::kMaxLength;
  if (n == 0) {
    block_.reset();
    return;
  }
  if (block_ && BlockSize(block_[0]) == BlockSize(n)) {
    // `text` may lie in this very block.
    std::memmove(block_.get() + 1, text.data(), n);
    block_[0] = static_cast<unsigned char>(n);
    return;
  }
  // Build the new block before releasing the old one: `text` may point into it.
  auto block = std::make_unique_for_overwrite<unsigned char[]>(BlockSize(n));
  block[0] = static_cast<unsigned char>(n);
  std::memcpy(block.get() + 1, text.data(), n);
  block_ = std::move(block);
}

}  // namespace optkw
