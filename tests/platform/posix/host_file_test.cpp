// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Drives, where the system has none.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "tests/filespec/host_dir.h"
#include "tests/platform/system_seam.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

bool is_regular(const std::u32string& spec) {
  return platform::host_file_is_regular(wide(spec).c_str());
}

TEST(Drives, ZIsTheRootDirectory) {
  EXPECT_TRUE(platform::host_file_exists(wide(U"Z:\\").c_str()));
  EXPECT_TRUE(platform::host_file_exists(wide(U"z:/").c_str()));
  const HostDir dir;
  dir.make_file(U"f");
  EXPECT_TRUE(is_regular(U"Z:" + dir.path(U"f").u32string()));
  const ScopedVariable no_use(U"CORVANE_DRIVE_Z", dir.path().u32string());
  EXPECT_FALSE(is_regular(U"Z:\\f"));
}

TEST(Drives, ADriveIsTheDirectoryOfItsVariable) {
  const HostDir dir;
  dir.make_file(U"sub\\f");
  EXPECT_FALSE(platform::host_file_exists(wide(U"Q:\\").c_str()));
  EXPECT_FALSE(is_regular(U"Q:\\sub\\f"));
  for (const char32_t* const ending : {U"", U"/"}) {
    const ScopedVariable drive(U"CORVANE_DRIVE_Q", dir.path().u32string() + ending);
    EXPECT_TRUE(platform::host_file_exists(wide(U"Q:\\").c_str()));
    EXPECT_TRUE(platform::host_file_exists(wide(U"Q:").c_str()));
    EXPECT_TRUE(is_regular(U"Q:\\sub\\f"));
    EXPECT_TRUE(is_regular(U"q:/sub/f"));
    EXPECT_TRUE(is_regular(U"Q:sub\\f"));
    EXPECT_FALSE(is_regular(U"Q:\\f"));
  }
  EXPECT_FALSE(is_regular(U"Q:\\sub\\f"));
  const ScopedVariable empty(U"CORVANE_DRIVE_Q", U"");
  EXPECT_FALSE(platform::host_file_exists(wide(U"Q:\\").c_str()));
}

TEST(Drives, OnlyALetterIsADrive) {
  const HostDir dir;
  dir.make_file(U"1:f");
  dir.make_file(U"AB:f");
  const ScopedCurrentDirectory inside(dir.path());
  EXPECT_TRUE(is_regular(U"1:f"));
  EXPECT_TRUE(is_regular(U"AB:f"));
}

TEST(Drives, ADirectoryOfAnyLengthIsHarmless) {
  for (const std::size_t length : {4090u, 4095u, 4096u, 10000u}) {
    const ScopedVariable drive(U"CORVANE_DRIVE_Q", std::u32string(length, U'/') + U"no");
    EXPECT_FALSE(platform::host_file_exists(wide(U"Q:\\such").c_str())) << length;
  }
}

TEST(DirectoryScanOrder, IsThatOfTheBytes) {
  const HostDir dir;
  const std::vector<std::u32string> names = {U"A", U"B", U"a", U"b", U"\u00C4", U"\uFFFD", U"\U0001F600"};
  for (const std::u32string& name : names) dir.make_file(name);
  platform::DirectoryScan scan;
  ASSERT_EQ(scan.open(wide(dir.spec(U"*")).c_str()), platform::DirectoryScan::Opened::kYes);
  CPWChar name[platform::DirectoryScan::kNameCapacity];
  std::vector<WideText> delivered, expected;
  while (scan.next(name)) delivered.push_back(name);
  for (const char32_t* const dots : {U".", U".."}) expected.push_back(wide(dots));
  for (const std::u32string& each : names) expected.push_back(wide(each));
  EXPECT_EQ(delivered, expected);
}

// Names of few letters, short ones and such as differ late or early.
TEST(DirectoryScanOrder, IsThatOfTheBytesForRandomNames) {
  for (int i = 0; i < scaled(50); ++i) {
    Random random(case_seed(0x5CA0, i));
    const HostDir dir;
    const std::u32string beginning(static_cast<std::size_t>(random.below(12)), U'n');
    std::set<std::string> names = {".", ".."};
    for (int k = random.below(200); k > 0; --k) {
      std::u32string name = beginning;
      for (int letters = random.between(1, 14); letters > 0; --letters) name += U"-ab\u00C4"[random.below(4)];
      dir.make_file(name);
      names.insert(narrow(name));
    }
    platform::DirectoryScan scan;
    ASSERT_EQ(scan.open(wide(dir.spec(U"*")).c_str()), platform::DirectoryScan::Opened::kYes);
    CPWChar name[platform::DirectoryScan::kNameCapacity];
    for (const std::string& expected : names) {
      ASSERT_TRUE(scan.next(name)) << "case " << i;
      char back[256];
      ASSERT_NE(platform::narrow_from_wide(name, platform::kToTerminator, back, sizeof back), 0);
      ASSERT_EQ(back, expected) << "case " << i;
    }
    ASSERT_FALSE(scan.next(name)) << "case " << i;
  }
}

TEST(DirectoryScanOrder, NamesThatNoSpecificationCanNameAreLeftOut) {
  const HostDir dir;
  dir.make_file(U"plain");
  std::ofstream(dir.path() / "back\\slash").put('\n');
  std::ofstream(dir.path() / "broken\xFF").put('\n');
  platform::DirectoryScan scan;
  ASSERT_EQ(scan.open(wide(dir.spec(U"*")).c_str()), platform::DirectoryScan::Opened::kYes);
  CPWChar name[platform::DirectoryScan::kNameCapacity];
  std::vector<WideText> delivered;
  while (scan.next(name)) delivered.push_back(name);
  const std::vector<WideText> expected = {wide(U"."), wide(U".."), wide(U"plain")};
  EXPECT_EQ(delivered, expected);
}

}  // namespace
}  // namespace Corvane::Print::tests
