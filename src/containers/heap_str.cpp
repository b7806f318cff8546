#include "containers/heap_str.h"

#include <cstring>

namespace optkw {

void HeapStr::Set(std::string_view text) {
  const size_t n = text.size() < ShortStr::kMaxLength ? text.size() : ShortStr::kMaxLength;
  if (n == 0) {
    block_.reset();
    return;
  }
  // Build the new block before releasing the old one: `text` may point into it.
  auto block = std::make_unique_for_overwrite<unsigned char[]>(n + 1);
  block[0] = static_cast<unsigned char>(n);
  std::memcpy(block.get() + 1, text.data(), n);
  block_ = std::move(block);
}

}  // namespace optkw
