// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/capi_memory.h"
#include "platform/platform.h"
#include "tests/filespec/host_dir.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

using platform::DirectoryScan;
using Opened = DirectoryScan::Opened;

bool exists(const std::u32string& spec) {
  return platform::host_file_exists(wide(spec).c_str());
}
bool is_regular(const std::u32string& spec) {
  return platform::host_file_is_regular(wide(spec).c_str());
}

// For messages.
std::string plain_ascii(const WideText& text) {
  std::string result;
  for (const CPWChar c : text) result += c < 0x80 ? static_cast<char>(c) : '?';
  return result;
}

// Names of a whole scan without "." and "..", in the order of delivery.
std::vector<WideText> names_of(DirectoryScan& scan) {
  std::vector<WideText> names;
  CPWChar name[DirectoryScan::kNameCapacity];
  while (scan.next(name)) {
    if (name != wide(U".") && name != wide(U"..")) names.push_back(name);
  }
  return names;
}

TEST(HostFile, AFileExistsAndIsRegular) {
  const HostDir dir;
  dir.make_file(U"sub\\f.txt");
  EXPECT_TRUE(exists(dir.spec(U"sub\\f.txt")));
  EXPECT_TRUE(is_regular(dir.spec(U"sub\\f.txt")));
  EXPECT_TRUE(is_regular(dir.spec(U"sub/f.txt")));
  EXPECT_FALSE(exists(dir.spec(U"sub\\g.txt")));
  EXPECT_FALSE(is_regular(dir.spec(U"sub\\g.txt")));
}

TEST(HostFile, ADirectoryExistsAndIsNotRegular) {
  const HostDir dir;
  dir.make_dir(U"sub");
  EXPECT_TRUE(exists(dir.spec(U"sub")));
  EXPECT_FALSE(is_regular(dir.spec(U"sub")));
  EXPECT_FALSE(is_regular(dir.spec()));
}

TEST(HostFile, AnEmptyNameIsNothing) {
  EXPECT_FALSE(exists(U""));
  EXPECT_FALSE(is_regular(U""));
}

TEST(HostFile, RelativeNamesBeginAtTheCurrentDirectory) {
  const HostDir dir;
  dir.make_file(U"sub\\f.txt");
  const ScopedCurrentDirectory inside(dir.path());
  EXPECT_TRUE(is_regular(U"sub\\f.txt"));
  EXPECT_TRUE(is_regular(U".\\sub\\f.txt"));
  EXPECT_TRUE(exists(U"sub"));
  EXPECT_FALSE(exists(U"f.txt"));
}

TEST(HostFile, NamesNeedNotBeAscii) {
  const HostDir dir;
  const std::u32string name = U"Gr\u00F6\u00DFe.txt";
  dir.make_file(name);
  EXPECT_TRUE(exists(dir.spec(name)));
  if (narrow_has(U'\u00F6')) {
    EXPECT_TRUE(is_regular(dir.spec(name)));
  }
}

TEST(HostFile, NamesOfAnyLengthAreHarmless) {
  const HostDir dir;
  for (const std::size_t length : {250u, 255u, 256u, 511u, 512u, 513u, 4095u, 4096u, 5000u, 20000u}) {
    EXPECT_FALSE(exists(dir.spec(std::u32string(length, U'n')))) << length;
    EXPECT_FALSE(is_regular(dir.spec(std::u32string(length, U'n')))) << length;
    EXPECT_FALSE(is_regular(dir.spec(std::u32string(length, U'\u5927')))) << length;
    DirectoryScan scan;
    EXPECT_EQ(scan.open(wide(dir.spec(std::u32string(length, U'n') + U"\\*")).c_str()), Opened::kNo);
  }
}

// Cut anywhere, also behind a drive, between separators and within a character of two units.
TEST(HostFile, ASpecificationInTwoPiecesNamesWhatItNamesAsAWhole) {
  const HostDir dir;
  dir.make_file(U"f");
  dir.make_file(U"sub\\plan.plt");
  dir.make_file(U"sub\\\U0001F5FA");
  dir.make_dir(U"sub\\plans");
  const ScopedCurrentDirectory inside(dir.path());
  for (const char32_t* const below : {U"f", U"\\f", U"sub\\plan.plt", U"sub/\\plan.plt", U"sub\\\U0001F5FA",
                                      U"sub\\plans", U"sub\\plan.pen", U"", U"sub\\", U"f\\"}) {
    for (const std::u32string& text : {dir.spec(below), std::u32string(below), U"C:" + std::u32string(below),
                                       U"Q:\\" + std::u32string(below), dir.spec() + U"/" + below}) {
      const WideText spec = wide(text);
      for (std::size_t cut = 1; cut < spec.size(); ++cut) {
        const WideText front = spec.substr(0, cut), back = spec.substr(cut);
        EXPECT_EQ(platform::host_file_in_folder(front.c_str(), static_cast<int>(cut), back.c_str(),
                                                static_cast<int>(back.size())),
                  is_regular(text))
            << plain_ascii(spec) << " cut at " << cut;
      }
    }
  }
}

TEST(DirectoryScan, DeliversEveryNameInOrder) {
  const HostDir dir;
  for (const char32_t* const name : {U"b.plt", U"a.plt", U"c"}) dir.make_file(name);
  dir.make_dir(U"d.plt");
  DirectoryScan scan;
  ASSERT_EQ(scan.open(wide(dir.spec(U"*")).c_str()), Opened::kYes);
  EXPECT_TRUE(scan.is_open());
  const std::vector<WideText> expected = {wide(U"a.plt"), wide(U"b.plt"), wide(U"c"), wide(U"d.plt")};
  EXPECT_EQ(names_of(scan), expected);
  EXPECT_FALSE(scan.is_open());
  CPWChar name[DirectoryScan::kNameCapacity];
  EXPECT_FALSE(scan.next(name));
}

TEST(DirectoryScan, LeavesOutWhatIsNotWanted) {
  const HostDir dir;
  for (const char32_t* const name : {U"b.plt", U"a.pen", U"a.plt", U"b.pen"}) dir.make_file(name);
  const auto begins_with = [](const CPWChar* name, const void* letter) {
    return name[0] == *static_cast<const char*>(letter);
  };
  DirectoryScan scan;
  ASSERT_EQ(scan.open(wide(dir.spec(U"*")).c_str(), begins_with, "b"), Opened::kYes);
  const std::vector<WideText> expected = {wide(U"b.pen"), wide(U"b.plt")};
  EXPECT_EQ(names_of(scan), expected);
  ASSERT_EQ(scan.open(wide(dir.spec(U"*")).c_str(), begins_with, "c"), Opened::kYes);
  EXPECT_EQ(names_of(scan), std::vector<WideText>());
  EXPECT_FALSE(scan.is_open());
}

TEST(DirectoryScan, ADirectoryThatIsNotThereCannotBeOpened) {
  const HostDir dir;
  dir.make_file(U"file");
  DirectoryScan scan;
  EXPECT_EQ(scan.open(wide(dir.spec(U"none\\*")).c_str()), Opened::kNo);
  EXPECT_EQ(scan.open(wide(dir.spec(U"file\\*")).c_str()), Opened::kNo);
  EXPECT_FALSE(scan.is_open());
}

TEST(DirectoryScan, SeveralMayBeOpenAtOnce) {
  const HostDir dir;
  dir.make_file(U"one\\a");
  dir.make_file(U"two\\b");
  DirectoryScan one, two, again;
  ASSERT_EQ(one.open(wide(dir.spec(U"one\\*")).c_str()), Opened::kYes);
  ASSERT_EQ(two.open(wide(dir.spec(U"two\\*")).c_str()), Opened::kYes);
  ASSERT_EQ(again.open(wide(dir.spec(U"one\\*")).c_str()), Opened::kYes);
  EXPECT_EQ(names_of(two), std::vector<WideText>{wide(U"b")});
  EXPECT_EQ(names_of(one), std::vector<WideText>{wide(U"a")});
  EXPECT_EQ(names_of(again), std::vector<WideText>{wide(U"a")});
}

TEST(DirectoryScan, StoppingEarlyAndOpeningAgainLeakNothing) {
  const HostDir dir;
  dir.make_file(U"a");
  dir.make_file(U"b");
  const long before = platform::capi_blocks_out();
  {
    DirectoryScan scan;
    CPWChar name[DirectoryScan::kNameCapacity];
    ASSERT_EQ(scan.open(wide(dir.spec(U"*")).c_str()), Opened::kYes);
    EXPECT_TRUE(scan.next(name));
    ASSERT_EQ(scan.open(wide(dir.spec(U"*")).c_str()), Opened::kYes);
    EXPECT_TRUE(scan.next(name));
  }
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST(DirectoryScan, SaysWhenMemoryRanOut) {
  const HostDir dir;
  // More and longer names than a scan has room for from the start.
  for (int i = 0; i < 150; ++i) {
    const char32_t letters[] = {static_cast<char32_t>(U'a' + i / 10), static_cast<char32_t>(U'a' + i % 10),
                                0};
    dir.make_file(std::u32string(40, U'n') + letters);
  }
  const WideText spec = wide(dir.spec(U"*"));
  const long before = platform::capi_blocks_out();
  for (long successes = 0;; ++successes) {
    ASSERT_LT(successes, 1000);
    DirectoryScan scan;
    platform::capi_fail_after(successes);
    const Opened opened = scan.open(spec.c_str());
    platform::capi_fail_after(-1);
    if (opened == Opened::kYes) break;
    ASSERT_EQ(opened, Opened::kNoMemory);
    ASSERT_FALSE(scan.is_open());
    ASSERT_EQ(platform::capi_blocks_out(), before);
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
