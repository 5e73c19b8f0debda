// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The program without its main: read, clip, write, tell.
#ifndef CORVANE_PRINT_PLOTCLIP_PLOTCLIP_H
#define CORVANE_PRINT_PLOTCLIP_PLOTCLIP_H

namespace Corvane::Print::plotclip {

// Runs the program and returns its exit code; problems are told in one line on stderr.
int run(int argc, const char* const* argv);

}  // namespace Corvane::Print::plotclip

#endif
