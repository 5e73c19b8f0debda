// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The exported calls of the search, and the two switches.
//
// Shared state: the two switches in process_switches, -1 until the first search of the process has read them,
// which must not run on two threads at once.
#include "config/twin.h"
#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "corvane/print/str.h"
#include "filespec/search.h"
#include "platform/platform.h"

namespace Corvane::Print::filespec {
namespace {

bool says_true(const char* variable) {
  char* const value = CFGetenv(variable);
  const bool result = value != nullptr && STRCompareCI(value, "TRUE") == 0;
  CFReleaseValue(value);
  return result;
}

// What a host's observer throws ends here: the search goes on.
class HostObserver : public SearchObserver {
public:
  HostObserver(FUSearchTried call, void* context) : call_(call), context_(context) {}

  void tried(int step, const CPWChar* candidate, bool found) override {
    Report report{this, step, candidate, found ? 1 : 0};
    platform::guarded_call(
        [](void* address) {
          const Report& told = *static_cast<Report*>(address);
          told.to->call_(told.to->context_, told.step, told.candidate, told.found);
          return 0;
        },
        &report);
  }

private:
  struct Report {
    HostObserver* to;
    int step;
    const CPWChar* candidate;
    int found;
  };
  FUSearchTried call_;
  void* context_;
};

}  // namespace

// KEEP(search-switches-once): the two variables are read once per process. Looks wrong; what a host sets
// before its first search holds for all of them, also when its configuration is exchanged later. Pinned by
// SearchSwitches.AreReadOnceAndLaterChangesAreNotSeen.
SearchSwitches process_switches() {
  static int s_nSearchInCurrDir = -1;
  static int s_nSearchAsIs = -1;
  if (s_nSearchInCurrDir == -1) s_nSearchInCurrDir = says_true("VX_SEARCH_CURRENTDIR_FIRST") ? 1 : 0;
  if (s_nSearchAsIs == -1) s_nSearchAsIs = says_true("VX_NOSEARCH_ASIS") ? 0 : 1;
  return {.current_directory_first = s_nSearchInCurrDir == 1, .as_is = s_nSearchAsIs == 1};
}

}  // namespace Corvane::Print::filespec

using namespace Corvane::Print;
namespace twin = config::twin;

int CORVANE_PRINT_CALL FUSearchUFSW(const CPWChar* ufs, const CPWChar* searchPath, const CPWChar* defExt,
                                    const CPWChar* defVer, CPWChar* out) {
  return filespec::search_file({.switches = filespec::process_switches()}, ufs, searchPath, defExt, defVer,
                               out);
}

int CORVANE_PRINT_CALL FUSearchUFS(const char* ufs, const char* searchPath, const char* defExt,
                                   const char* defVer, char* out) {
  const twin::SizedIn list(searchPath);
  const bool list_lost = searchPath != nullptr && static_cast<const CPWChar*>(list) == nullptr;
  const int status = FUSearchUFSW(twin::in(ufs), list, twin::in(defExt), twin::in(defVer), twin::out(out));
  return status == FU_NOT_FOUND && list_lost ? FU_NO_MEMORY : status;
}

int CORVANE_PRINT_CALL FUSearchExplainW(const CPWChar* ufs, const CPWChar* searchPath, const CPWChar* defExt,
                                        const CPWChar* defVer, CPWChar* out, FUSearchTried tried,
                                        void* context) {
  if (tried == nullptr) return FUSearchUFSW(ufs, searchPath, defExt, defVer, out);
  filespec::HostObserver observer(tried, context);
  return filespec::search_file({.switches = filespec::process_switches(), .observer = &observer}, ufs,
                               searchPath, defExt, defVer, out);
}
