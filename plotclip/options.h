// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the command line asked for, checked as far as that is possible without opening a file.
#ifndef CORVANE_PRINT_PLOTCLIP_OPTIONS_H
#define CORVANE_PRINT_PLOTCLIP_OPTIONS_H

#include <optional>
#include <string>
#include <vector>

namespace Corvane::Print::plotclip {

struct DepthRange {
  double low = 0.0;
  double high = 0.0;
};

struct Options {
  std::string drawing;
  std::vector<double> fence;  // x0 y0 x1 y1, or empty when there is a file
  std::string fence_file;
  bool explain = false;
  bool outside = false;
  std::optional<DepthRange> depth;
  double grow = 0.0;
  double move_x = 0.0, move_y = 0.0;
  double scale_x = 1.0, scale_y = 1.0;
  double rotate = 0.0;  // degrees, counter-clockwise
  std::vector<std::string> outputs;
  bool ghost = false;
  std::vector<std::string> debug_variables;
  int size = 0;  // longer side of a picture, 0 for the format's usual size
};

// Parses the command line. Returns nothing when --help or --version was answered on stdout; throws a Problem
// with kExitUsage when it is wrong.
std::optional<Options> parse_options(int argc, const char* const* argv);

}  // namespace Corvane::Print::plotclip

#endif
