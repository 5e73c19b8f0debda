// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See log.h. Texts are formatted here and handed over as arguments of a fixed format, so that a percent sign
// in a file's name means nothing to the debug library.
#include "plotclip/log.h"

#include <cstdarg>
#include <cstdio>

#include "corvane/print/db.h"
#include "corvane/print/dbgtools.h"

namespace Corvane::Print::plotclip {
namespace {

const char* flag_of(Topic topic) {
  switch (topic) {
    case Topic::kRead:
      return "read";
    case Topic::kFence:
      return "fence";
    case Topic::kTransform:
      return "transform";
    case Topic::kClip:
      return "clip";
    case Topic::kDraw:
      return "draw";
  }
  return "";
}

[[gnu::format(printf, 1, 0)]] std::string formatted(const char* format, std::va_list arguments) {
  std::va_list again;
  va_copy(again, arguments);
  const int size = std::vsnprintf(nullptr, 0, format, arguments);
  std::string text(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, again);
  va_end(again);
  return text;
}

}  // namespace

void add_debug_variables(const std::vector<std::string>& names) {
  for (const std::string& name : names) DbgTools::Instance().AddDebugVar(name.c_str());
}

void log_line(Topic topic, const char* format, ...) {
  if (DbgTools_isDebugOn(flag_of(topic)) == 0) return;
  std::va_list arguments;
  va_start(arguments, format);
  const std::string text = formatted(format, arguments);
  va_end(arguments);
  DBMSG("plotclip %s: %s\n", flag_of(topic), text.c_str());
}

void log_error(const char* line) {
  DBERR("plotclip: %s\n", line);
}

}  // namespace Corvane::Print::plotclip
