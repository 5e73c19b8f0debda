// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The DB exports that print wide text: format it, turn it into narrow text, hand that on as a format.
#include "config/codepage.h"
#include "corvane/print/db.h"
#include "debug/router.h"
#include "platform/capi_block.h"
#include "platform/platform.h"

namespace Corvane::Print {
namespace {

constexpr int kRoom = 4096;  // characters

using NarrowBlock = platform::CapiBlock<char>;

// The text of the message, cut behind its kRoom-th character; null when memory ran out. A formatting that was
// cut, or that failed, leaves no terminator; the zeros do.
NarrowBlock formatted(const CPWChar* format, va_list arguments) {
  CPWChar text[kRoom + 1] = {};
  if (format != nullptr) platform::format_wide(text, kRoom, format, arguments);
  return NarrowBlock(config::narrowed_block(text));
}

// KEEP(db-wide-twice): the text is complete, and yet it is handed on as a format, with the same arguments.
// Looks wrong; debug libraries get one kind of call for both kinds of text, and a caller that wants a percent
// sign to survive both writes it four times. Pinned by DebugWide.TheTextIsFormattedASecondTime.
//
// KEEP(db-wide-always): the text is formatted before anybody asks whether there is a debug library.
// Looks wrong; a format that does not fit its arguments shows everywhere, and not only where somebody
// debugs. Pinned by DebugAbsent.WideTextIsFormattedAllTheSame.
int print_wide(const CPWChar* format, std::uint32_t code, va_list arguments) {
  va_list first;
  va_copy(first, arguments);
  const NarrowBlock text = formatted(format, first);
  va_end(first);
  return text ? debug::print(text.get(), code, 0, arguments) : 0;
}

}  // namespace

int DBMSGW(const CPWChar* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = print_wide(format, debug::kMessage, arguments);
  va_end(arguments);
  return result;
}

int DBERRW(const CPWChar* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = print_wide(format, debug::kError, arguments);
  va_end(arguments);
  return result;
}

int DBATTW(const CPWChar* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = print_wide(format, debug::kAttention, arguments);
  va_end(arguments);
  return result;
}

int DBHMSGW(const CPWChar* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = print_wide(format, debug::kHighlighted, arguments);
  va_end(arguments);
  return result;
}

}  // namespace Corvane::Print
