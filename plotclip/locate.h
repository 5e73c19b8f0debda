// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where names given by the user become names of files. Today both are taken as they are; a search of the
// fence file along a list of folders, and tokens in the name of an output, belong here and nowhere else.
#ifndef CORVANE_PRINT_PLOTCLIP_LOCATE_H
#define CORVANE_PRINT_PLOTCLIP_LOCATE_H

#include <string>

namespace Corvane::Print::plotclip {

std::string find_fence_file(const std::string& name);
std::string resolve_output_name(const std::string& name);

}  // namespace Corvane::Print::plotclip

#endif
