// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Between plotclip's text, UTF-8, and the library's wide text, UTF-16. What is not valid in the one becomes
// U+FFFD in the other.
#ifndef CORVANE_PRINT_PLOTCLIP_WIDE_TEXT_H
#define CORVANE_PRINT_PLOTCLIP_WIDE_TEXT_H

#include <string>
#include <string_view>

#include "corvane/print/types.h"

namespace Corvane::Print::plotclip {

using WideText = std::basic_string<CPWChar>;

WideText widen(std::string_view text);
std::string narrow(std::basic_string_view<CPWChar> text);

}  // namespace Corvane::Print::plotclip

#endif
