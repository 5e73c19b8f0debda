// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Over 100,000 random calls, digests of everything that they return: status codes, counts and the bits of
// every coordinate. The digests are stored with the sources, and every target must find the same.
#include "tests/digest/digest.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

// The part of "name digest,name digest" that belongs to a family.
std::string stored_digest(const std::string& name) {
  const std::string all = "," CORVANE_TEST_DIGESTS ",";
  const std::size_t at = all.find("," + name + " ");
  if (at == std::string::npos) return "none";
  const std::size_t from = at + name.size() + 2;
  return all.substr(from, all.find(',', from) - from);
}

std::string run_family(const Family& family, std::uint64_t number) {
  Digest digest;
  for (int i = 0; i < scaled(family.cases); ++i) {
    Random random(case_seed(100 + number, i));
    family.run(random, digest);
  }
  char text[20];
  std::snprintf(text, sizeof text, "%08lx%08lx", static_cast<unsigned long>(digest.value() >> 32),
                static_cast<unsigned long>(digest.value() & 0xffffffffu));
  return text;
}

TEST(ResultDigest, IsTheSameOnEveryTarget) {
  std::string found;
  bool all_equal = true;
  std::uint64_t number = 0;
  for (const std::span<const Family> families : {clip_families(), geometry_families()}) {
    for (const Family& family : families) {
      const std::string digest = run_family(family, number++);
      const bool equal = digest == stored_digest(family.name);
      found += std::string(family.name) + " " + digest + (equal ? "\n" : "   <- not the stored one\n");
      all_equal = all_equal && equal;
    }
  }
  if (test_scale() < 1) {
    std::printf("The digests are of all cases; with fewer of them nothing was compared.\n");
    return;
  }
  EXPECT_TRUE(all_equal) << "Found, as for tests/data/digest.txt:\n" << found;
}

}  // namespace
}  // namespace Corvane::Print::tests
