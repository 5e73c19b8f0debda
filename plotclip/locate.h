// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where names given by the user become names of files, with the help of the library's file specifications.
// A plain path always means itself.
#ifndef CORVANE_PRINT_PLOTCLIP_LOCATE_H
#define CORVANE_PRINT_PLOTCLIP_LOCATE_H

#include <string>
#include <vector>

namespace Corvane::Print::plotclip {

// A place where a file was looked for.
struct Candidate {
  const char* step;  // in words
  std::string name;  // a host specification
  bool found;
};

struct FenceSearch {
  std::string found;  // the file's host specification, empty when there is none
  std::vector<Candidate> tried;
};

// The library's search with the list in the variable PLOTCLIP_FENCES and the extension fence.
FenceSearch search_fence(const std::string& name);

// The path of the fence file: the name itself where there is such a file, else what the search finds, else
// the name again. With `explain` every candidate is told on stdout.
std::string find_fence_file(const std::string& name, bool explain);

// The path of an output. A logical device is translated, a token <autoInc...> becomes the first free number,
// and a full host specification becomes a path; every other name is used as it is. Throws a Problem.
std::string resolve_output_name(const std::string& name);

}  // namespace Corvane::Print::plotclip

#endif
