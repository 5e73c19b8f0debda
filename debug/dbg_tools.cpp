// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The debug flags: one object of the process, filled from configuration variables.
//
// Shared state: s_instance, which AddDebugVar alone changes, without a lock; hosts call it while they start.
// It is there from the beginning and has nothing to destroy, so that it can be asked at any time; the list is
// created by the first AddDebugVar and stays.
#include "corvane/print/dbgtools.h"

#include <cctype>
#include <cstddef>
#include <cstring>
#include <list>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>

#include "corvane/print/cf.h"
#include "platform/capi_memory.h"

namespace Corvane::Print {

using FlagName = std::basic_string<char, std::char_traits<char>, platform::CapiAllocator<char>>;

struct DbgFlagList {
  std::list<FlagName, platform::CapiAllocator<FlagName>> names;
};

namespace {

static_assert(std::is_trivially_copyable_v<DbgTools> && std::is_standard_layout_v<DbgTools>);
static_assert(sizeof(bool) == 1);
static_assert(offsetof(DbgTools, enabled) == 0);
static_assert(offsetof(DbgTools, all) == 1);
static_assert(offsetof(DbgTools, flags) == sizeof(void*));
static_assert(sizeof(DbgTools) == 2 * sizeof(void*));

constexpr char kDelimiters[] = " \t,";

constinit DbgTools s_instance = {false, false, nullptr};

struct ReleaseValue {
  void operator()(char* value) const noexcept { CFReleaseValue(value); }
};
using Value = std::unique_ptr<char, ReleaseValue>;

int lower(char c) {
  return std::tolower(static_cast<unsigned char>(c));
}

// Byte by byte, in the lower case of the runtime's locale.
bool same_without_case(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return true;
}

// Null when memory ran out.
DbgFlagList* new_list() {
  void* const block = platform::capi_alloc(sizeof(DbgFlagList));
  return block != nullptr ? new (block) DbgFlagList : nullptr;
}

void add_flag(DbgTools& tools, std::string_view flag) {
  tools.enabled = true;
  if (same_without_case(flag, "all")) {
    tools.all = true;
  } else {
    tools.flags->names.emplace_back(flag);
  }
}

}  // namespace

DbgTools& DbgTools::Instance() {
  return s_instance;
}

void DbgTools::AddDebugVar(const char* variableName) {
  if (flags == nullptr) flags = new_list();
  if (flags == nullptr) return;
  const Value value(CFGetenv(variableName));
  if (!value) return;
  for (const char* at = value.get() + std::strspn(value.get(), kDelimiters); *at != '\0';) {
    const std::size_t length = std::strcspn(at, kDelimiters);
    add_flag(*this, {at, length});
    at += length;
    at += std::strspn(at, kDelimiters);
  }
}

bool DbgTools::IsFlagDefined(const char* flag) const {
  if (flags == nullptr || flag == nullptr || *flag == '\0') return false;
  for (const FlagName& name : flags->names) {
    if (same_without_case(name, flag)) return true;
  }
  return false;
}

}  // namespace Corvane::Print

int DbgTools_isDebugOn(const char* flag) {
  const Corvane::Print::DbgTools& tools = Corvane::Print::DbgTools::Instance();
  if (!tools.enabled) return 0;
  if (tools.all) return 1;
  return tools.IsFlagDefined(flag) ? 1 : 0;
}
