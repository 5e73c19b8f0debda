// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The process environment, whose names and values are taken to be UTF-8. The value is converted where it
// lies, in one pass, so a variable that is replaced meanwhile costs nothing but a stale answer.
#include <cstdlib>
#include <cstring>

#include "platform/capi_block.h"
#include "platform/platform.h"

namespace Corvane::Print::platform {
namespace {

using NarrowBlock = CapiBlock<char>;

NarrowBlock narrow_name(const CPWChar* name) noexcept {
  const int bytes = narrow_from_wide(name, kToTerminator, nullptr, 0);
  if (bytes == 0) return nullptr;
  NarrowBlock block(static_cast<char*>(capi_alloc(static_cast<std::size_t>(bytes))));
  if (block) narrow_from_wide(name, kToTerminator, block.get(), bytes);
  return block;
}

}  // namespace

int environment_text(const CPWChar* name, CPWChar* buffer, int capacity) noexcept {
  const NarrowBlock narrow = narrow_name(name);
  // No variable has a '=' in its name, but getenv would find "A=B" in the definition "A=B=c".
  if (!narrow || std::strchr(narrow.get(), '=') != nullptr) return 0;
  const char* const value = std::getenv(narrow.get());
  if (value == nullptr || *value == '\0') return 0;
  const int count = wide_from_narrow(value, kToTerminator, buffer, capacity);
  return count != 0 ? count : wide_from_narrow(value, kToTerminator, nullptr, 0);
}

}  // namespace Corvane::Print::platform
