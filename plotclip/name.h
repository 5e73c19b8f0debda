// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// plotclip name TEXT...: what the library makes of file specifications.
#ifndef CORVANE_PRINT_PLOTCLIP_NAME_H
#define CORVANE_PRINT_PLOTCLIP_NAME_H

#include <string>
#include <vector>

namespace Corvane::Print::plotclip {

// Tells on stdout what each text means, one row each, with a blank line between two texts. --help or -h in
// the first place is answered. Throws a Problem with kExitUsage when there is no text.
void tell_names(const std::vector<std::string>& texts);

}  // namespace Corvane::Print::plotclip

#endif
