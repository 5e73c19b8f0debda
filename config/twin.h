// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The narrow/wide convention, written once. Wide functions hold the behaviour; a narrow twin is one
// expression that calls its wide function through these adaptors:
//
//     int FUBuildThing(const char* device, const char* name, char* result) {
//       return FUBuildThingW(twin::in_or_empty(device), twin::in_or_null(name), twin::out(result));
//     }
//
// An adaptor converts on entry, stands for the wide argument during the call, and (out, out_opt, inout)
// writes the result back at the end of the expression. Inputs are read before any output is written, so a
// caller may give one buffer for both.
//
//                null becomes      converts in   writes back
//   in           empty text        yes                          null is not provided for; it does no harm
//   in_or_empty  empty text        yes                          null is a documented argument
//   in_or_null   null              yes
//   out          a spare buffer                  yes            the result is dropped
//   out_opt      null                            yes            the wide function sees that nobody asks
//   inout        null              yes           yes
//   sized_in     null              yes                          heap block, any length
//   sized_out    null                            (returns it)   heap block, any length
//
// Capacities: all but the last two work in 256 wide characters and read and write narrow text of any length
// and of 512 bytes; what does not fit is cut behind the last whole character that does, and every text is
// terminated. Index 255 of a wide buffer is the terminator's: a character that a wide function leaves there
// is not part of the result.
#ifndef CORVANE_PRINT_CONFIG_TWIN_H
#define CORVANE_PRINT_CONFIG_TWIN_H

#include "config/codepage.h"
#include "corvane/print/types.h"
#include "platform/capi_memory.h"

namespace Corvane::Print::config::twin {

inline constexpr int kWideCapacity = 256;    // characters
inline constexpr int kNarrowCapacity = 512;  // bytes

// Converts in. Made by in, in_or_empty and in_or_null.
class FixedIn {
public:
  enum class Null { kStaysNull, kBecomesEmpty };

  FixedIn(const char* text, Null null) noexcept {
    if (text != nullptr) {
      widen_cut(text, wide_, kWideCapacity);
    } else if (null == Null::kStaysNull) {
      shown_ = nullptr;
    } else {
      wide_[0] = 0;
    }
  }
  FixedIn(const FixedIn&) = delete;
  FixedIn& operator=(const FixedIn&) = delete;

  operator const CPWChar*() const noexcept { return shown_; }

private:
  CPWChar wide_[kWideCapacity];
  const CPWChar* shown_ = wide_;
};

// Writes back. Made by out, out_opt and inout. The wide buffer starts as empty text, so that a wide function
// that leaves it alone yields that.
class FixedOut {
public:
  enum class Null { kStaysNull, kBecomesSpare };

  FixedOut(char* narrow, Null null) noexcept : narrow_(narrow) {
    wide_[0] = 0;
    if (narrow == nullptr && null == Null::kStaysNull) shown_ = nullptr;
  }
  ~FixedOut() {
    if (narrow_ == nullptr) return;
    int length = 0;
    while (length < kWideCapacity - 1 && wide_[length] != 0) ++length;
    narrow_cut(wide_, length, narrow_, kNarrowCapacity);
  }
  FixedOut(const FixedOut&) = delete;
  FixedOut& operator=(const FixedOut&) = delete;

  operator CPWChar*() noexcept { return shown_; }

protected:
  CPWChar* wide() noexcept { return wide_; }

private:
  CPWChar wide_[kWideCapacity];
  CPWChar* shown_ = wide_;
  char* narrow_;
};

class FixedInOut : public FixedOut {
public:
  explicit FixedInOut(char* narrow) noexcept : FixedOut(narrow, Null::kStaysNull) {
    if (narrow != nullptr) widen_cut(narrow, wide(), kWideCapacity);
  }
};

// A text of any length in a heap block of 2(L+1) bytes; null also when memory ran out.
class SizedIn {
public:
  explicit SizedIn(const char* text) noexcept : block_(widened_block(text)) {}
  ~SizedIn() { platform::capi_free(block_); }
  SizedIn(const SizedIn&) = delete;
  SizedIn& operator=(const SizedIn&) = delete;

  operator const CPWChar*() const noexcept { return block_; }

private:
  CPWChar* block_;
};

inline FixedIn in(const char* text) noexcept {
  return {text, FixedIn::Null::kBecomesEmpty};
}
inline FixedIn in_or_empty(const char* text) noexcept {
  return {text, FixedIn::Null::kBecomesEmpty};
}
inline FixedIn in_or_null(const char* text) noexcept {
  return {text, FixedIn::Null::kStaysNull};
}
inline FixedOut out(char* narrow) noexcept {
  return {narrow, FixedOut::Null::kBecomesSpare};
}
inline FixedOut out_opt(char* narrow) noexcept {
  return {narrow, FixedOut::Null::kStaysNull};
}
inline FixedInOut inout(char* narrow) noexcept {
  return FixedInOut(narrow);
}
inline SizedIn sized_in(const char* text) noexcept {
  return SizedIn(text);
}

// A new narrow block for the caller, who owns it; null for null and when memory ran out.
inline char* sized_out(const CPWChar* wide) noexcept {
  return narrowed_block(wide);
}

}  // namespace Corvane::Print::config::twin

#endif
