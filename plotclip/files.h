// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Whole files in and out; a Problem names the file and what went wrong.
#ifndef CORVANE_PRINT_PLOTCLIP_FILES_H
#define CORVANE_PRINT_PLOTCLIP_FILES_H

#include <string>
#include <string_view>

namespace Corvane::Print::plotclip {

// Larger files are refused: they are no drawings, and everything read stays in memory.
inline constexpr std::size_t kLargestFile = std::size_t{1} << 30;

std::string read_file(const std::string& name);
void write_file(const std::string& name, std::string_view content);

// The name's extension in small letters, without the dot.
std::string extension_of(const std::string& name);

}  // namespace Corvane::Print::plotclip

#endif
