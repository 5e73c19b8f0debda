// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Whole files in and out, and their names; a Problem names the file and what went wrong.
#ifndef CORVANE_PRINT_PLOTCLIP_FILES_H
#define CORVANE_PRINT_PLOTCLIP_FILES_H

#include <optional>
#include <string>
#include <string_view>

namespace Corvane::Print::plotclip {

// Larger files are refused: they are no drawings, and everything read stays in memory.
inline constexpr std::size_t kLargestFile = std::size_t{1} << 30;

std::string read_file(const std::string& name);
void write_file(const std::string& name, std::string_view content);

// The name's extension in small letters, without the dot.
std::string extension_of(const std::string& name);

// The path by which this system opens a host specification: every \ is /, drive Z: is the root, and another
// drive X: is the directory that the environment variable CORVANE_DRIVE_X names. Nothing when the drive names
// nothing.
std::optional<std::string> path_of_host(std::string spec);

}  // namespace Corvane::Print::plotclip

#endif
