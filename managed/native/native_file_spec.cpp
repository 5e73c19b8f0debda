// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// NativeFileSpec and the plain functions for its fields, through which the managed layer sees it. The texts
// are standard strings, on the general heap; their running out is caught here wherever the interface is C's.
#include "corvane/print/nativefilespec.h"

#include <cassert>
#include <cstddef>
#include <exception>
#include <memory>
#include <new>
#include <type_traits>

#include "platform/capi_memory.h"

namespace Corvane::Print {
namespace {

using Text = std::basic_string<CPWChar>;

static_assert(std::is_standard_layout_v<NativeFileSpec>);
static_assert(sizeof(int) == 4);
static_assert(offsetof(NativeFileSpec, ufs) == 0);
static_assert(offsetof(NativeFileSpec, hfs) == sizeof(Text));
static_assert(offsetof(NativeFileSpec, monikerString) == 2 * sizeof(Text));
static_assert(offsetof(NativeFileSpec, accessMode) == 3 * sizeof(Text));

// Null for what is no text's number.
Text* text_of(NativeFileSpec& spec, int which) {
  switch (which) {
    case NATIVEFILESPEC_UFS:
      return &spec.ufs;
    case NATIVEFILESPEC_HFS:
      return &spec.hfs;
    case NATIVEFILESPEC_MONIKER:
      return &spec.monikerString;
    default:
      return nullptr;
  }
}

}  // namespace

const Text& NativeFileSpec::GetHfsOrUfs() const {
  return hfs.empty() ? ufs : hfs;
}

NativeFileSpec& NativeFileSpec::operator=(const NativeFileSpec& other) {
  NativeFileSpec copy(other);
  ufs.swap(copy.ufs);
  hfs.swap(copy.hfs);
  monikerString.swap(copy.monikerString);
  accessMode = copy.accessMode;
  return *this;
}

void NativeFileSpec::clear() {
  ufs.clear();
  hfs.clear();
  monikerString.clear();
  accessMode = CP_FILE_GIVE_OUT;
}

}  // namespace Corvane::Print

using Corvane::Print::NativeFileSpec;
namespace platform = Corvane::Print::platform;

NativeFileSpec* NativeFileSpec_create(void) {
  void* const block = platform::capi_alloc(sizeof(NativeFileSpec));
  return block != nullptr ? new (block) NativeFileSpec : nullptr;
}

void NativeFileSpec_release(NativeFileSpec* spec) {
  if (spec == nullptr) return;
  std::destroy_at(spec);
  platform::capi_free(spec);
}

const CPWChar* NativeFileSpec_text(const NativeFileSpec* spec, int which, int* length) {
  assert(spec != nullptr && length != nullptr);
  const auto* const text = Corvane::Print::text_of(const_cast<NativeFileSpec&>(*spec), which);
  *length = text != nullptr ? static_cast<int>(text->size()) : 0;
  return text != nullptr ? text->c_str() : nullptr;
}

int NativeFileSpec_setText(NativeFileSpec* spec, int which, const CPWChar* text, int length) {
  assert(spec != nullptr);
  auto* const field = Corvane::Print::text_of(*spec, which);
  if (field == nullptr || (text != nullptr && length < 0)) return NATIVEFILESPEC_BAD_ARGUMENT;
  if (text == nullptr) {
    field->clear();
    return NATIVEFILESPEC_OK;
  }
  try {
    field->assign(text, static_cast<std::size_t>(length));
    return NATIVEFILESPEC_OK;
  } catch (const std::exception&) {
    return NATIVEFILESPEC_NO_MEMORY;
  }
}

int NativeFileSpec_accessMode(const NativeFileSpec* spec) {
  assert(spec != nullptr);
  return spec->accessMode;
}

void NativeFileSpec_setAccessMode(NativeFileSpec* spec, int accessMode) {
  assert(spec != nullptr);
  spec->accessMode = accessMode;
}

void NativeFileSpec_clear(NativeFileSpec* spec) {
  assert(spec != nullptr);
  spec->clear();
}
