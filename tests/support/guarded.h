// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// An output array with canaries behind it: any write past its end is found, with and without sanitizers.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_GUARDED_H
#define CORVANE_PRINT_TESTS_SUPPORT_GUARDED_H

#include <cstddef>
#include <cstring>
#include <memory>

namespace Corvane::Print::tests {

template <class T>
class Guarded {
public:
  explicit Guarded(int size)
      : size_(size > 0 ? static_cast<std::size_t>(size) : 0), block_(new T[size_ + kCanaries]) {
    std::memset(block_.get(), kFill, (size_ + kCanaries) * sizeof(T));
  }

  T* data() { return block_.get(); }
  std::size_t size() const { return size_; }
  const T& operator[](std::size_t i) const { return block_[i]; }

  bool intact() const { return untouched_from(size_); }

  // Nothing was written from index `first` on.
  bool untouched_from(std::size_t first) const {
    const auto* bytes = reinterpret_cast<const unsigned char*>(block_.get());
    for (std::size_t i = first * sizeof(T); i < (size_ + kCanaries) * sizeof(T); ++i) {
      if (bytes[i] != kFill) return false;
    }
    return true;
  }

private:
  static constexpr std::size_t kCanaries = 8;
  static constexpr unsigned char kFill = 0xC5;
  std::size_t size_;
  std::unique_ptr<T[]> block_;
};

}  // namespace Corvane::Print::tests

#endif
