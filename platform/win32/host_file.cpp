// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Files by the runtime's own calls. A scan's state is the find record with the entry that next() delivers,
// and the find handle, which is closed as soon as the system has no further entry.
#include <io.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <wchar.h>

#include "platform/capi_memory.h"
#include "platform/platform.h"

namespace Corvane::Print::platform {
namespace {

constexpr int kNarrowCapacity = 512;

struct ScanState {
  _wfinddata64_t entry;
  intptr_t handle;  // -1 when there is no entry that was not delivered
  DirectoryScan::Wanted wanted;
  const void* context;
};

ScanState* scan_state(void* state) {
  return static_cast<ScanState*>(state);
}

void fetch_following(ScanState& state) {
  if (_wfindnext64(state.handle, &state.entry) == 0) return;
  _findclose(state.handle);
  state.handle = -1;
}

// The fetched entry's name, cut to the capacity; the following entry is fetched.
void take_name(ScanState& state, CPWChar* name) {
  int length = 0;
  for (; length < DirectoryScan::kNameCapacity - 1 && state.entry.name[length] != 0; ++length)
    name[length] = state.entry.name[length];
  name[length] = 0;
  fetch_following(state);
}

bool is_wanted(const ScanState& state, const CPWChar* name) {
  return state.wanted == nullptr || state.wanted(name, state.context);
}

}  // namespace

bool host_file_exists(const CPWChar* spec) noexcept {
  return _waccess(spec, 0) == 0;
}

// KEEP(search-narrow-names): the file is looked for by its narrow name, in which the system puts similar
// characters for those that the code page lacks. Looks wrong; hosts open what was found by its narrow name,
// and what they cannot open is not found. Pinned by HostFileNarrow.ARegularFileIsLookedForByItsNarrowName.
bool host_file_is_regular(const CPWChar* spec, int) noexcept {
  char narrow[kNarrowCapacity];
  if (narrow_from_wide(spec, kToTerminator, narrow, kNarrowCapacity) == 0) return false;
  struct __stat64 status;
  return _access(narrow, 0) == 0 && _stat64(narrow, &status) == 0 && (status.st_mode & S_IFREG) != 0;
}

bool host_file_in_folder(const CPWChar* folder, int folder_length, const CPWChar* rest,
                         int rest_length) noexcept {
  CPWChar spec[kSpecCapacity];
  wmemcpy(spec, folder, static_cast<size_t>(folder_length));
  wmemcpy(spec + folder_length, rest, static_cast<size_t>(rest_length));
  spec[folder_length + rest_length] = L'\0';
  return host_file_is_regular(spec, folder_length + rest_length);
}

int host_file_name(const CPWChar* spec, CPWChar* out, int capacity) noexcept {
  const size_t length = wcslen(spec);
  const bool fits = length < static_cast<size_t>(capacity);
  wmemcpy(out, spec, fits ? length : 0);
  out[fits ? length : 0] = L'\0';
  return fits ? static_cast<int>(length) : 0;
}

DirectoryScan::Opened DirectoryScan::open(const CPWChar* spec, Wanted wanted, const void* context) noexcept {
  close();
  auto* const state = static_cast<ScanState*>(capi_alloc(sizeof(ScanState)));
  if (state == nullptr) return Opened::kNoMemory;
  state->handle = _wfindfirst64(spec, &state->entry);
  if (state->handle == -1) {
    capi_free(state);
    return Opened::kNo;
  }
  state->wanted = wanted;
  state->context = context;
  state_ = state;
  return Opened::kYes;
}

bool DirectoryScan::next(CPWChar* name) noexcept {
  ScanState* const state = scan_state(state_);
  if (state == nullptr) return false;
  while (state->handle != -1) {
    take_name(*state, name);
    if (is_wanted(*state, name)) return true;
  }
  close();
  return false;
}

void DirectoryScan::close() noexcept {
  ScanState* const state = scan_state(state_);
  if (state == nullptr) return;
  if (state->handle != -1) _findclose(state->handle);
  capi_free(state);
  state_ = nullptr;
}

}  // namespace Corvane::Print::platform
