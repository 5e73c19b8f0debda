// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The process environment, whose names and values are taken to be UTF-8. The value is converted where it
// lies, in one pass, so a variable that is replaced meanwhile costs nothing but a stale answer.
#include <cstdlib>
#include <cstring>

#include "platform/capi_block.h"
#include "platform/platform.h"
#include "platform/text_vector.h"

namespace Corvane::Print::platform {
namespace {

// A name as narrow text, without the heap unless it is long.
class NarrowName {
public:
  explicit NarrowName(const CPWChar* name) noexcept {
    const std::size_t length = length_of(name);
    if (find_unit(name, length, u'=') != length) return;
    if (length < sizeof usual_ && copy_ascii(name, length + 1, usual_) > length) {
      text_ = usual_;
    } else {
      convert(name);
    }
  }
  NarrowName(const NarrowName&) = delete;
  NarrowName& operator=(const NarrowName&) = delete;

  // Null when memory ran out, and when there is a '=' in it: no variable's name has one, but getenv would
  // find "A=B" in the definition "A=B=c".
  const char* text() const { return text_; }

private:
  void convert(const CPWChar* name) noexcept {
    if (narrow_from_wide(name, kToTerminator, usual_, sizeof usual_) != 0) {
      text_ = usual_;
      return;
    }
    const int bytes = narrow_from_wide(name, kToTerminator, nullptr, 0);
    if (bytes == 0) return;
    long_.reset(static_cast<char*>(capi_alloc(static_cast<std::size_t>(bytes))));
    if (long_) narrow_from_wide(name, kToTerminator, long_.get(), bytes);
    text_ = long_.get();
  }

  char usual_[256];
  CapiBlock<char> long_;
  const char* text_ = nullptr;
};

}  // namespace

int environment_text(const CPWChar* name, CPWChar* buffer, int capacity) noexcept {
  if (*name == 0) return 0;
  const NarrowName narrow(name);
  if (narrow.text() == nullptr) return 0;
  const char* const value = std::getenv(narrow.text());
  if (value == nullptr || *value == '\0') return 0;
  const int count = wide_from_narrow(value, kToTerminator, buffer, capacity);
  return count != 0 ? count : wide_from_narrow(value, kToTerminator, nullptr, 0);
}

}  // namespace Corvane::Print::platform
