// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The enumeration of files by wildcards: what a specification resolves to, which directories that means, and
// the walk through them. No shared state: a caller's handle is all there is.
#include <memory>
#include <new>

#include "config/twin.h"
#include "corvane/print/fu.h"
#include "filespec/bounded.h"
#include "filespec/list_walk.h"
#include "filespec/spec.h"
#include "platform/capi_memory.h"
#include "platform/platform.h"
#include "util/cursor.h"
#include "util/match.h"

// While `scan` is open it is the scan of `directory`; `directories` stands behind that one.
struct FUMatchLFSHandle {
  Corvane::Print::filespec::WideBuffer pattern;
  Corvane::Print::util::SameIgnoringCase same;  // as the locale has it during a call
  Corvane::Print::filespec::ListWalk directories;
  Corvane::Print::filespec::WideView directory;
  Corvane::Print::platform::DirectoryScan scan;
};

namespace {

using namespace Corvane::Print;
using namespace Corvane::Print::filespec;
using platform::DirectoryScan;
namespace twin = config::twin;

// The specification itself, or the first entry of the variable's value that it names.
void take_specification(const CPWChar* lfs, WideBuffer& spec) {
  spec.set(lfs);
  const VariableValue value(spec);
  if (!value) return;
  spec.set(value.text());
  if (CPWChar* const end = find_first(spec, u';')) *end = 0;
}

void fill(WideBuffer& component, const CPWChar* default_text) {
  if (component.empty()) component.set(default_text);
}

bool has_wildcards(const WideBuffer& spec) {
  return spec.view().find_first_of(WideView(W_("*?"))) != WideView::npos;
}

FUMatchLFSHandle* new_handle() {
  void* const block = platform::capi_alloc(sizeof(FUMatchLFSHandle));
  return block != nullptr ? new (block) FUMatchLFSHandle : nullptr;
}

int no_match(int status, FUMatchLFSHandle** handle, CPWChar* out) {
  FUMatchLFSFreeW(*handle);
  *handle = nullptr;
  FUStrCopyW(out, nullptr, kWide);
  return status;
}

// The directories that the device stands for, or the one that the specification names. False when memory ran
// out.
//
// KEEP(match-list-drops-directory): the directories of a device's list are taken as they are, without the
// specification's own. Looks wrong; a device stands for the whole directory. Pinned by
// MatchLfs.ADevicesDirectoriesAreWalkedOneAfterTheOther.
bool list_directories(const Components& spec, FUMatchLFSHandle& handle) {
  if (!spec.dev.empty()) {
    const VariableValue list(spec.dev);
    if (list) return handle.directories.start(list.text(), W_(";"));
  }
  WideBuffer single;
  FUBuildLFSW(spec.dev, spec.dir.empty() ? W_(".") : spec.dir, nullptr, nullptr, nullptr, single);
  return handle.directories.start_single(single);
}

// The name of a directory's entry, and the handle.
bool is_match(const CPWChar* name, const void* handle) {
  if (name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0))) return false;
  const FUMatchLFSHandle& state = *static_cast<const FUMatchLFSHandle*>(handle);
  return util::matches_ignoring_case(util::WideCursor(name), util::WideCursor(state.pattern), state.same);
}

// Begins the scan of a directory. One that leaves no room for the pattern in a specification has no matches:
// cut, the pattern would mean others.
DirectoryScan::Opened open_scan(FUMatchLFSHandle& handle) {
  WideBuffer spec;
  FUBuildLFSW(nullptr, handle.directory.data(), handle.pattern, nullptr, nullptr, spec);
  if (!spec.view().ends_with(handle.pattern.view())) return DirectoryScan::Opened::kNo;
  return handle.scan.open(spec, is_match, &handle);
}

// The next match in the directory that is being scanned.
bool next_in_scan(FUMatchLFSHandle& handle, CPWChar* out) {
  CPWChar name[DirectoryScan::kNameCapacity];
  if (!handle.scan.next(name)) return false;
  CPWChar text[kWide];
  GrowingText spec(text);
  join({{}, handle.directory, view_of(name), {}, {}}, spec);
  copy_view(out, spec.finish());
  return true;
}

}  // namespace

// KEEP(match-hands-back): a specification without wildcards is handed back as it came, not as it resolved,
// and whether or not there is such a file. Looks wrong; callers pass what the user typed and resolve it
// themselves when they get it back. Pinned by MatchLfs.WithoutWildcardsTheSpecificationItselfIsHandedBack.
int CORVANE_PRINT_CALL FUMatchLFSFirstW(const CPWChar* lfs, const CPWChar* defDev, const CPWChar* defDir,
                                        const CPWChar* defExt, const CPWChar* defVer, CPWChar* out,
                                        FUMatchLFSHandle** handle) {
  *handle = nullptr;
  WideBuffer resolved;
  take_specification(lfs, resolved);
  Components spec;
  parse(resolved, spec);
  fill(spec.dev, defDev);
  fill(spec.dir, defDir);
  fill(spec.ext, defExt);
  fill(spec.ver, defVer);
  build(spec, resolved);
  if (!has_wildcards(resolved)) {
    FUStrCopyW(out, lfs, kWide);
    return FU_OK;
  }

  *handle = new_handle();
  if (*handle == nullptr) return no_match(FU_NO_MEMORY, handle, out);
  parse(resolved, spec);
  FUBuildLFSW(nullptr, nullptr, spec.name, spec.ext, spec.ver, (*handle)->pattern);
  if (!list_directories(spec, **handle)) return no_match(FU_NO_MEMORY, handle, out);
  return FUMatchLFSNextW(handle, out);
}

int CORVANE_PRINT_CALL FUMatchLFSFirst(const char* lfs, const char* defDev, const char* defDir,
                                       const char* defExt, const char* defVer, char* out,
                                       FUMatchLFSHandle** handle) {
  return FUMatchLFSFirstW(twin::in(lfs), twin::in(defDev), twin::in(defDir), twin::in(defExt),
                          twin::in(defVer), twin::out(out), handle);
}

int CORVANE_PRINT_CALL FUMatchLFSNextW(FUMatchLFSHandle** handle, CPWChar* out) {
  if (*handle == nullptr) return no_match(FU_FAILED, handle, out);
  FUMatchLFSHandle& state = **handle;
  state.same = {};
  for (;;) {
    if (next_in_scan(state, out)) return FU_OK;
    state.directory = state.directories.next_view();
    if (state.directory.empty()) return no_match(FU_FAILED, handle, out);
    if (open_scan(state) == DirectoryScan::Opened::kNoMemory) return no_match(FU_NO_MEMORY, handle, out);
  }
}

int CORVANE_PRINT_CALL FUMatchLFSNext(FUMatchLFSHandle** handle, char* out) {
  return FUMatchLFSNextW(handle, twin::out(out));
}

void CORVANE_PRINT_CALL FUMatchLFSFreeW(FUMatchLFSHandle* handle) {
  if (handle == nullptr) return;
  std::destroy_at(handle);
  platform::capi_free(handle);
}

void CORVANE_PRINT_CALL FUMatchLFSFree(FUMatchLFSHandle* handle) {
  FUMatchLFSFreeW(handle);
}
