// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// How plotclip gives up: by throwing a Problem whose text is the one line that main prints.
#ifndef CORVANE_PRINT_PLOTCLIP_PROBLEM_H
#define CORVANE_PRINT_PLOTCLIP_PROBLEM_H

#include <stdexcept>
#include <string>

namespace Corvane::Print::plotclip {

// The program's exit codes.
enum ExitCode {
  kExitOk = 0,
  kExitCannot = 1,  // cannot read, clip or write
  kExitUsage = 2    // called wrongly
};

class Problem : public std::runtime_error {
public:
  explicit Problem(const std::string& line, ExitCode code = kExitCannot)
      : std::runtime_error(line), code_(code) {}
  ExitCode code() const { return code_; }

private:
  ExitCode code_;
};

}  // namespace Corvane::Print::plotclip

#endif
