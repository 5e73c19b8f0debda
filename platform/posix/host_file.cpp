// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Files by the system's own calls, under the names that host_name() makes. A scan reads its directory whole
// when it is opened, because the names are delivered in order: `names` holds them one behind the other with
// their terminators, `order` where each begins, sorted.
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "platform/capi_memory.h"
#include "platform/platform.h"
#include "platform/posix/host_name.h"

namespace Corvane::Print::platform {
namespace {

struct ScanState {
  CapiVector<char> names;
  CapiVector<std::size_t> order;
  std::size_t at = 0;
};

ScanState* scan_state(void* state) {
  return static_cast<ScanState*>(state);
}

ScanState* new_state() {
  void* const block = capi_alloc(sizeof(ScanState));
  return block != nullptr ? new (block) ScanState : nullptr;
}

void delete_state(ScanState* state) {
  std::destroy_at(state);
  capi_free(state);
}

struct CloseDirectory {
  void operator()(DIR* directory) const noexcept { closedir(directory); }
};
using Directory = std::unique_ptr<DIR, CloseDirectory>;

// The directory of a name: what stands in front of its last component.
Directory open_directory_of(char* name) {
  char* const separator = std::strrchr(name, '/');
  if (separator == nullptr) return Directory(opendir("."));
  separator[1] = '\0';
  return Directory(opendir(name));
}

// The name as wide text; its units without the terminator, 0 when there is no room.
int widen_name(const char* narrow, CPWChar* name) {
  const int units = wide_from_narrow(narrow, kToTerminator, name, DirectoryScan::kNameCapacity);
  return units != 0 ? units - 1 : 0;
}

// Whether a host specification can name the file: its \ would be read as a separator, and bytes that are no
// UTF-8 would not come back.
bool can_be_named(const char* narrow) {
  if (std::strchr(narrow, '\\') != nullptr) return false;
  CPWChar wide[DirectoryScan::kNameCapacity];
  char back[3 * DirectoryScan::kNameCapacity];
  return widen_name(narrow, wide) != 0 && narrow_from_wide(wide, kToTerminator, back, sizeof back) != 0 &&
         std::strcmp(narrow, back) == 0;
}

void read_names(DIR& directory, ScanState& state) {
  while (const dirent* const entry = readdir(&directory)) {
    if (!can_be_named(entry->d_name)) continue;
    state.order.push_back(state.names.size());
    state.names.insert(state.names.end(), entry->d_name, entry->d_name + std::strlen(entry->d_name) + 1);
  }
  const char* const names = state.names.data();
  std::sort(state.order.begin(), state.order.end(),
            [names](std::size_t a, std::size_t b) { return std::strcmp(names + a, names + b) < 0; });
}

}  // namespace

bool host_file_exists(const CPWChar* spec) noexcept {
  char name[kHostNameCapacity];
  return host_name(spec, kToTerminator, name) && access(name, F_OK) == 0;
}

bool host_file_is_regular(const CPWChar* spec, int length) noexcept {
  char name[kHostNameCapacity];
  struct stat status;
  return host_name(spec, length, name) && stat(name, &status) == 0 && S_ISREG(status.st_mode);
}

int host_file_name(const CPWChar* spec, CPWChar* out, int capacity) noexcept {
  char name[kHostNameCapacity];
  const int units =
      host_name(spec, kToTerminator, name) ? wide_from_narrow(name, kToTerminator, out, capacity) : 0;
  if (units == 0) out[0] = 0;
  return units != 0 ? units - 1 : 0;
}

DirectoryScan::Opened DirectoryScan::open(const CPWChar* spec) noexcept {
  close();
  char name[kHostNameCapacity];
  if (!host_name(spec, kToTerminator, name)) return Opened::kNo;
  const Directory directory = open_directory_of(name);
  if (!directory) return Opened::kNo;
  ScanState* const state = new_state();
  if (state == nullptr) return Opened::kNoMemory;
  try {
    read_names(*directory, *state);
  } catch (const std::bad_alloc&) {
    delete_state(state);
    return Opened::kNoMemory;
  }
  state_ = state;
  return Opened::kYes;
}

bool DirectoryScan::next(CPWChar* name) noexcept {
  ScanState* const state = scan_state(state_);
  if (state == nullptr) return false;
  if (state->at == state->order.size()) {
    close();
    return false;
  }
  widen_name(state->names.data() + state->order[state->at++], name);
  return true;
}

void DirectoryScan::close() noexcept {
  if (state_ == nullptr) return;
  delete_state(scan_state(state_));
  state_ = nullptr;
}

}  // namespace Corvane::Print::platform
