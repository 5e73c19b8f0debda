// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Paths of the system as host specifications, and what shells leave in PWD.
#include <gtest/gtest.h>

#include <filesystem>

#include "corvane/print/fu.h"
#include "platform/platform.h"
#include "tests/filespec/spec_support.h"

namespace Corvane::Print::tests {
namespace {

std::string full_from(const char* pwd, const char* partial) {
  const ScopedVariables variables({{"PWD", pwd}});
  return answer([partial](CPWChar* out) { return FUFindFullHFSW(w(partial).c_str(), out); }).second;
}

// A directory that is the current one for the life of the object.
class ScopedDirectory {
public:
  explicit ScopedDirectory(const std::filesystem::path& name)
      : before_(std::filesystem::current_path()), made_(std::filesystem::temp_directory_path() / name) {
    std::filesystem::create_directories(made_);
    std::filesystem::current_path(made_);
  }
  ~ScopedDirectory() {
    std::filesystem::current_path(before_);
    std::filesystem::remove_all(made_);
  }
  ScopedDirectory(const ScopedDirectory&) = delete;
  ScopedDirectory& operator=(const ScopedDirectory&) = delete;

  const std::filesystem::path& path() const { return made_; }

private:
  std::filesystem::path before_, made_;
};

}  // namespace

TEST(PlainPath, IsOnDriveZ) {
  CPWChar out[64];
  EXPECT_EQ(platform::host_directory(w("/home/u").c_str(), out, 64), 9);
  EXPECT_EQ(plain(out), "Z:/home/u");
  platform::host_directory(w("/").c_str(), out, 64);
  EXPECT_EQ(plain(out), "Z:/");
}

TEST(PlainPath, ShellsDirectoryGivesFullPathsOnDriveZ) {
  EXPECT_EQ(full_from("/home/u", "f.txt"), "Z:\\home\\u\\f.txt");
  EXPECT_EQ(full_from("/home/u", "..\\f"), "Z:\\home\\f");
  EXPECT_EQ(full_from("/home/u", "\\f"), "Z:\\f");
  EXPECT_EQ(full_from("/", "f"), "Z:\\f");
  EXPECT_EQ(full_from("/home/a:b", "f"), "Z:\\home\\a:b\\f");
}

TEST(PlainPath, AHostSpecificationInTheVariableIsTakenAsItIs) {
  EXPECT_EQ(full_from("C:/plots", "f"), "C:\\plots\\f");
  EXPECT_EQ(full_from("\\\\srv\\share", "f"), "\\\\srv\\share\\f");
}

TEST(PlainPath, WithoutTheVariableTheProcesssDirectoryCountsWhateverItsNameHolds) {
  const ScopedVariables variables({});
  const ScopedDirectory here("corvane_print_\u00E9");
  std::string expected = "Z:" + here.path().string() + "/f";
  std::replace(expected.begin(), expected.end(), '/', '\\');
  EXPECT_EQ(narrow_answer([](char* out) { return FUFindFullHFS("f", out); }), Answer(FU_OK, expected));
}

TEST(PlainPath, AProcesssDirectoryOfMoreThan255CharactersIsCut) {
  const ScopedVariables variables({});
  const std::string level(200, 'd');
  const ScopedDirectory here(std::filesystem::path("corvane_print_long") / level / level);
  const Answer full = narrow_answer([](char* out) { return FUFindFullHFS("f", out); });
  std::string expected = "Z:" + here.path().parent_path().string() + "/f";
  std::replace(expected.begin(), expected.end(), '/', '\\');
  EXPECT_EQ(full, Answer(FU_OK, expected));
}

}  // namespace Corvane::Print::tests
