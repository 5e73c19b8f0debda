// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Whole enumerations as values.
#ifndef CORVANE_PRINT_TESTS_FILESPEC_MATCHING_H
#define CORVANE_PRINT_TESTS_FILESPEC_MATCHING_H

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "corvane/print/fu.h"
#include "tests/filespec/host_dir.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"

namespace Corvane::Print::tests {

struct Defaults {
  std::u32string dev, dir, ext, ver;
};

// A whole enumeration of a specification with wildcards.
inline std::vector<WideText> matches(const WideText& lfs, const Defaults& defaults = {}) {
  std::vector<WideText> all;
  FUMatchLFSHandle* handle;
  Guarded<CPWChar> out(FU_WIDE);
  int status = FUMatchLFSFirstW(lfs.c_str(), wide(defaults.dev).c_str(), wide(defaults.dir).c_str(),
                                wide(defaults.ext).c_str(), wide(defaults.ver).c_str(), out.data(), &handle);
  for (; status == FU_OK; status = FUMatchLFSNextW(&handle, out.data())) {
    EXPECT_NE(handle, nullptr);
    all.push_back(out.data());
    if (handle == nullptr) break;
  }
  EXPECT_EQ(status, FU_FAILED);
  EXPECT_EQ(handle, nullptr);
  EXPECT_EQ(out[0], 0);
  EXPECT_TRUE(out.intact());
  return all;
}

inline std::vector<std::string> narrow_matches(const std::string& lfs) {
  std::vector<std::string> all;
  FUMatchLFSHandle* handle;
  Guarded<char> out(FU_NARROW);
  int status = FUMatchLFSFirst(lfs.c_str(), "", "", "", "", out.data(), &handle);
  for (; status == FU_OK; status = FUMatchLFSNext(&handle, out.data())) all.push_back(out.data());
  EXPECT_EQ(status, FU_FAILED);
  EXPECT_EQ(handle, nullptr);
  EXPECT_EQ(out[0], '\0');
  EXPECT_TRUE(out.intact());
  return all;
}

inline std::vector<WideText> wides(const HostDir& dir, std::initializer_list<std::u32string_view> names) {
  std::vector<WideText> all;
  for (const std::u32string_view name : names) all.push_back(wide(dir.spec(name)));
  return all;
}

}  // namespace Corvane::Print::tests

#endif
