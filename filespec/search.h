// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The search for an existing file, apart from the exported calls, with what it depends on as parameters: the
// switches, who says whether there is a file, and who wants to know what was tried.
#ifndef CORVANE_PRINT_FILESPEC_SEARCH_H
#define CORVANE_PRINT_FILESPEC_SEARCH_H

#include "corvane/print/fu.h"
#include "corvane/print/types.h"

namespace Corvane::Print::filespec {

// The two switches of VX_SEARCH_CURRENTDIR_FIRST and VX_NOSEARCH_ASIS.
struct SearchSwitches {
  bool current_directory_first = false;
  bool as_is = true;
};

// Is told of every candidate, in the order in which they are tried, before the search goes on.
class SearchObserver {
public:
  //   step      FU_STEP_...; candidates of a search within the search have the step that began it
  virtual void tried(int step, const CPWChar* candidate, bool found) = 0;

protected:
  ~SearchObserver() = default;
};

// Whether there is a regular file by a host specification of at most 255 characters.
class FileProbe {
public:
  virtual bool is_file(const CPWChar* host_spec) = 0;

protected:
  ~FileProbe() = default;
};

struct SearchConditions {
  SearchSwitches switches;
  FileProbe* files = nullptr;          // null: the system's
  SearchObserver* observer = nullptr;  // null: nobody
};

// As FUSearchUFSW. Reads variables as they are, but not the two switches.
int search_file(const SearchConditions& conditions, const CPWChar* ufs, const CPWChar* search_path,
                const CPWChar* def_ext, const CPWChar* def_ver, CPWChar* out);

// The switches of this process, read by the first call.
SearchSwitches process_switches();

}  // namespace Corvane::Print::filespec

#endif
