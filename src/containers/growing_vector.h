// The storage of every list: a vector that grows by the lists' own rule
// (GrownCapacity) and, when cleared, releases its entries from the last to the
// first and then its memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "containers/quicksort.h"

namespace optkw {

template <class T>
class GrowingVector {
 public:
  void Append(T item) {
    if (Count() == capacity_) {
      capacity_ = GrownCapacity(capacity_, Count());
      items_.reserve(static_cast<size_t>(capacity_));
    }
    items_.push_back(std::move(item));
  }
  void Erase(int32_t position) { items_.erase(items_.begin() + position); }
  void Release() {
    while (!items_.empty())
      items_.pop_back();
    std::vector<T>().swap(items_);
    capacity_ = 0;
  }

  T &operator[](int32_t position) { return items_[static_cast<size_t>(position)]; }
  const T &operator[](int32_t position) const { return items_[static_cast<size_t>(position)]; }
  const T &back() const { return items_.back(); }
  int32_t Count() const { return static_cast<int32_t>(items_.size()); }
  int32_t Capacity() const { return capacity_; }
  bool empty() const { return items_.empty(); }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::vector<T> items_;
  int32_t capacity_ = 0;
};

}  // namespace optkw
