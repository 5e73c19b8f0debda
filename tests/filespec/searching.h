// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Searches as values: what was found and what was tried. Variables through the host's callback.
#ifndef CORVANE_PRINT_TESTS_FILESPEC_SEARCHING_H
#define CORVANE_PRINT_TESTS_FILESPEC_SEARCHING_H

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "filespec/search.h"
#include "tests/filespec/search_model.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"

namespace Corvane::Print::tests {

using Tried = search_model::Tried;

inline void PrintTo(const Tried& tried, std::ostream* out) {
  *out << tried.step << ' ';
  for (const CPWChar c : tried.candidate) *out << (c > 32 && c < 127 ? static_cast<char>(c) : '?');
  *out << (tried.found ? " found" : "");
}

struct SearchResult {
  int status = -1;
  WideText found;
  std::vector<Tried> tried;
  bool intact = false;  // nothing was written behind the output
};

inline void CORVANE_PRINT_CALL note_tried(void* context, int step, const CPWChar* candidate, int found) {
  static_cast<std::vector<Tried>*>(context)->push_back({step, candidate, found == 1});
}

// FUSearchExplainW; empty defaults and lists are given as null now and then by the tests themselves.
inline SearchResult explained(const WideText& ufs, const WideText& list = {}, const WideText& ext = {},
                              const WideText& ver = {}) {
  SearchResult result;
  Guarded<CPWChar> out(FU_WIDE);
  result.status = FUSearchExplainW(ufs.c_str(), list.c_str(), ext.c_str(), ver.c_str(), out.data(),
                                   note_tried, &result.tried);
  result.found = out.data();
  result.intact = out.intact();
  return result;
}

// What a search finds; the plain, the explained and the narrow form must agree.
inline SearchResult look_for(std::u32string_view ufs, std::u32string_view list = {},
                             std::u32string_view ext = {}, std::u32string_view ver = {}) {
  const SearchResult result = explained(wide(ufs), wide(list), wide(ext), wide(ver));
  EXPECT_TRUE(result.intact);
  Guarded<CPWChar> out(FU_WIDE);
  EXPECT_EQ(FUSearchUFSW(wide(ufs).c_str(), list.empty() ? nullptr : wide(list).c_str(),
                         ext.empty() ? nullptr : wide(ext).c_str(), ver.empty() ? nullptr : wide(ver).c_str(),
                         out.data()),
            result.status);
  EXPECT_EQ(WideText(out.data()), result.found);
  EXPECT_TRUE(out.intact());
  Guarded<char> narrow_out(FU_NARROW);
  EXPECT_EQ(FUSearchUFS(narrow(ufs).c_str(), list.empty() ? nullptr : narrow(list).c_str(),
                        narrow(ext).c_str(), narrow(ver).c_str(), narrow_out.data()),
            result.status);
  EXPECT_EQ(std::string(narrow_out.data()).empty(), result.found.empty());
  EXPECT_TRUE(narrow_out.intact());
  return result;
}

inline WideText found(std::u32string_view ufs, std::u32string_view list = {}, std::u32string_view ext = {},
                      std::u32string_view ver = {}) {
  const SearchResult result = look_for(ufs, list, ext, ver);
  EXPECT_EQ(result.status, result.found.empty() ? FU_NOT_FOUND : FU_OK);
  return result.found;
}

// The host's configuration: variables of the test, for the life of the object. One at a time.
class HostVariables {
public:
  explicit HostVariables(search_model::Variables variables) {
    current() = std::move(variables);
    CFSetGetEnvVarCallback(look_up);
  }
  HostVariables(std::initializer_list<search_model::Variables::value_type> variables)
      : HostVariables(search_model::Variables(variables)) {}
  ~HostVariables() {
    CFSetGetEnvVarCallback(nullptr);
    current().clear();
  }
  HostVariables(const HostVariables&) = delete;
  HostVariables& operator=(const HostVariables&) = delete;

private:
  static search_model::Variables& current() {
    static search_model::Variables variables;
    return variables;
  }

  static int CORVANE_PRINT_CALL look_up(const CPWChar* name, CPWChar* buffer, int capacity) {
    const auto found = current().find(name);
    if (found == current().end() || found->second.empty()) return 0;
    const int bytes = static_cast<int>((found->second.size() + 1) * sizeof(CPWChar));
    if (bytes <= capacity) std::memcpy(buffer, found->second.c_str(), static_cast<std::size_t>(bytes));
    return bytes;
  }
};

}  // namespace Corvane::Print::tests

#endif
