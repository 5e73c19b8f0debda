// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A host that answers the lookups of variables from a table of its own instead of the environment.
#include "corvane/print/cf.h"

#include <cstdio>
#include <cstring>
#include <map>
#include <string>

using namespace Corvane::Print;
using Text = std::basic_string<CPWChar>;

// A text of plain ASCII in wide characters.
static Text wide(const char* text) {
  return Text(text, text + std::strlen(text));
}

static const std::map<Text, Text> table = {{wide("PLOTS"), wide("C:\\plots;D:\\archive")},
                                           {wide("PLOT_DEBUG"), wide("clip, fences")}};

// Called twice for each value: for its size, and to write it. Both are counted in bytes, with the terminator.
static int CORVANE_PRINT_CALL look_up(const CPWChar* name, CPWChar* buffer, int capacity) {
  const auto entry = table.find(name);
  if (entry == table.end()) return 0;
  const int bytes = static_cast<int>((entry->second.size() + 1) * sizeof(CPWChar));
  if (bytes <= capacity) std::memcpy(buffer, entry->second.c_str(), static_cast<std::size_t>(bytes));
  return bytes;
}

static void show(const char* name) {
  CPWChar* value = CFGetenvW(wide(name).c_str());
  std::printf("%s = ", name);
  for (const CPWChar* c = value; c != nullptr && *c != 0; ++c) std::putchar(*c);
  std::printf("%s\n", value == nullptr ? "(undefined)" : "");
  CFReleaseValue(value);
}

int main() {
  CFSetGetEnvVarCallback(look_up);
  show("PLOTS");
  show("PLOT_DEBUG");
  show("PATH");  // the environment is not asked any more
  std::printf("PLOTS is %s\n", CFIsVariableDefined("PLOTS") ? "defined" : "not defined");
  CFSetGetEnvVarCallback(nullptr);
  std::printf("without the callback PLOTS is %s\n", CFIsVariableDefined("PLOTS") ? "defined" : "not defined");
}
