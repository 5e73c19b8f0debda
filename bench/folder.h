// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A folder for the jobs that look for files, and names in the forms that the library takes.
#ifndef CORVANE_PRINT_BENCH_FOLDER_H
#define CORVANE_PRINT_BENCH_FOLDER_H

#include "corvane/print/types.h"

#include <string>
#include <vector>

namespace Corvane::Print::bench {

using Wide = std::basic_string<CPWChar>;
using Texts = std::vector<std::string>;

// Of ASCII text.
Wide wide(const std::string& text);
// The host specification of a path that starts with /.
Wide host_spec(const std::string& path);
// The path of a host specification; a relative one stays relative.
std::string path_of(const CPWChar* spec);

// Made empty, and removed with all it holds.
class Folder {
public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const std::string& path() const { return path_; }
  // Both return the path of what they made.
  std::string make_folder(const std::string& name) const;
  std::string make_file(const std::string& name) const;

private:
  std::string path_;
};

}  // namespace Corvane::Print::bench

#endif
