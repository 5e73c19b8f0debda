// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What plotclip tells the debug library, where there is one: messages on the topics whose flags are on, and
// every error. Without a debug library nothing happens.
#ifndef CORVANE_PRINT_PLOTCLIP_LOG_H
#define CORVANE_PRINT_PLOTCLIP_LOG_H

#include <string>
#include <vector>

namespace Corvane::Print::plotclip {

// Each is the debug flag of its name in small letters, without the k.
enum class Topic { kRead, kFence, kTransform, kClip, kDraw };

// Switches on the flags that are listed in these variables.
void add_debug_variables(const std::vector<std::string>& names);

// One line of what printf would write, without its end; nothing while the topic's flag is off.
[[gnu::format(printf, 2, 3)]] void log_line(Topic topic, const char* format, ...);

// An error is told whatever the flags are.
void log_error(const char* line);

}  // namespace Corvane::Print::plotclip

#endif
