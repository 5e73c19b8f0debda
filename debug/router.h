// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// One function for each entry point of the debug library: the first call loads the library; the result is the
// entry point's, or 0 where there is none. Arguments go on as they come. What the entry points throw is not
// caught.
#ifndef CORVANE_PRINT_DEBUG_ROUTER_H
#define CORVANE_PRINT_DEBUG_ROUTER_H

#include <cstdarg>
#include <cstdint>

namespace Corvane::Print::debug {

// The kinds of message, as the debug library knows them.
inline constexpr std::uint32_t kMessage = 0x01000000;
inline constexpr std::uint32_t kError = 0x02000000;
inline constexpr std::uint32_t kHighlighted = 0x03000000;
inline constexpr std::uint32_t kPaused = 0x05000000;
inline constexpr std::uint32_t kAttention = 0x06000000;

int print(const char* format, std::uint32_t code, int pause, va_list arguments);
int dump_memory(void* address, unsigned count);
int scan(char* text1, char* text2, va_list arguments);
int message_box(char* text1, char* text2, unsigned style);

// Where there is no entry point, the buffer becomes an empty text, unless it is null.
int get_text(char* text, char* buffer);
int get_text(unsigned short* text, unsigned short* buffer);

// These two ask for another entry point, see offers_destination.
int init_app(char* name);
int list_box(char* title, int count, char** items);

// Whether the debug library has the entry point "dllSetDest", which is never called.
bool offers_destination();

}  // namespace Corvane::Print::debug

#endif
