// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where fence files are found, and what becomes of the names of outputs.
#include "plotclip/locate.h"

#include <gtest/gtest.h>

#include "plotclip/problem.h"
#include "plotclip_support.h"

namespace Corvane::Print::plotclip::test {
namespace {

std::string refusal(const std::string& name) {
  try {
    return "accepted as " + resolve_output_name(name);
  } catch (const Problem& problem) {
    EXPECT_EQ(problem.code(), kExitCannot);
    return problem.what();
  }
}

std::string fence(const std::string& name) {
  return find_fence_file(name, false);
}

// The path with every / turned, on drive Z.
std::string host(std::string path) {
  for (char& c : path)
    if (c == '/') c = '\\';
  return "Z:" + path;
}

TEST(PlotclipFenceSearch, APathMeansItself) {
  const TempFolder folder, list;
  const std::string own = folder.write("site", "");
  list.write("site", "");
  const ScopedEnvironment fences("PLOTCLIP_FENCES", list.file(""));
  EXPECT_EQ(fence(own), own);
  EXPECT_EQ(fence("/dev/null"), "/dev/null");
}

TEST(PlotclipFenceSearch, APathLongerThanTheLibraryTakesMeansItself) {
  const TempFolder folder;
  const std::string long_name = folder.write(std::string(250, 'x'), "");
  ASSERT_GT(long_name.size(), 255U);
  EXPECT_EQ(fence(long_name), long_name);
}

TEST(PlotclipFenceSearch, TheListIsSearchedInOrderAndWithTheExtension) {
  const TempFolder first, second;
  const std::string here = second.write("site.fence", "");
  const ScopedEnvironment fences("PLOTCLIP_FENCES", first.name() + ";" + second.name());
  EXPECT_EQ(fence("site"), here);
  EXPECT_EQ(fence("site.fence"), here);
  const std::string earlier = first.write("site.fence", "");
  EXPECT_EQ(fence("site"), earlier);
}

TEST(PlotclipFenceSearch, ADirectoryDoesNotHideAFence) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.file("site"));
  const std::string file = folder.write("site.fence", "");
  EXPECT_EQ(fence(folder.file("site")), file);
}

TEST(PlotclipFenceSearch, DrivesAndDevicesBecomePaths) {
  const TempFolder folder;
  const std::string file = folder.write("b\xC3\xA4r.fence", "");
  EXPECT_EQ(fence(host(file)), file);
  const ScopedEnvironment drive("CORVANE_DRIVE_Q", folder.file(""));
  EXPECT_EQ(fence("Q:\\b\xC3\xA4r"), file);
  const ScopedEnvironment device("PLOTCLIP_TEST_DEVICE", folder.file(""));
  EXPECT_EQ(fence("PLOTCLIP_TEST_DEVICE:b\xC3\xA4r"), file);
}

TEST(PlotclipFenceSearch, WhatIsNotFoundKeepsItsName) {
  EXPECT_EQ(fence("no/such"), "no/such");
  const FenceSearch search = search_fence("no/such");
  EXPECT_EQ(search.found, "");
  ASSERT_EQ(search.tried.size(), 2U);
  EXPECT_EQ(search.tried[0].name, "no/such");
  EXPECT_EQ(search.tried[1].name, "no\\such.fence");
  EXPECT_STREQ(search.tried[1].step, "as it stands");
  EXPECT_FALSE(search.tried[1].found);
}

TEST(PlotclipOutputName, PlainNamesAreUsedAsTheyAre) {
  for (const std::string name :
       {"a.svg", "/abs/path/a.svg", "rel/./../a.svg", "12:30.svg", "C:/a/b.svg", "a\\b.svg",
        "no device:a.svg", "what?*.svg", "a;1.svg", "C:a.svg", "Q:\\a.svg", "1:\\a.svg", "Q"})
    EXPECT_EQ(resolve_output_name(name), name);
  const std::string long_name = "/" + std::string(300, 'x') + "/a.svg";
  EXPECT_EQ(resolve_output_name(long_name), long_name);
}

TEST(PlotclipOutputName, ATokenBecomesTheFirstFreeNumber) {
  const TempFolder folder;
  EXPECT_EQ(resolve_output_name(folder.file("p<autoInc>.svg")), folder.file("p000.svg"));
  folder.write("p000.svg", "");
  folder.write("p001.svg", "");
  EXPECT_EQ(resolve_output_name(folder.file("p<autoInc>.svg")), folder.file("p002.svg"));
  EXPECT_EQ(resolve_output_name(folder.file("p<autoInc?digits=2?base=7>.svg")), folder.file("p07.svg"));
  EXPECT_EQ(resolve_output_name("no/such/p<autoInc>.svg"), "no/such/p000.svg");
}

TEST(PlotclipOutputName, ALogicalDeviceIsTranslated) {
  const TempFolder folder;
  folder.write("p000.svg", "");
  const ScopedEnvironment device("PLOTCLIP_TEST_DEVICE", folder.file("") + ";/elsewhere");
  EXPECT_EQ(resolve_output_name("PLOTCLIP_TEST_DEVICE:a.svg"), folder.file("a.svg"));
  EXPECT_EQ(resolve_output_name("PLOTCLIP_TEST_DEVICE:p<autoInc>.svg"), folder.file("p001.svg"));
}

TEST(PlotclipOutputName, AVariableOfOneLetterIsNoDevice) {
  const ScopedEnvironment variable("Q", "/plots");
  EXPECT_EQ(resolve_output_name("Q:a.svg"), "Q:a.svg");
}

TEST(PlotclipOutputName, AFullHostSpecificationBecomesAPath) {
  EXPECT_EQ(resolve_output_name("Z:\\plots\\a.svg"), "/plots/a.svg");
  const ScopedEnvironment drive("CORVANE_DRIVE_Q", "/plots");
  EXPECT_EQ(resolve_output_name("Q:\\a.svg"), "/plots/a.svg");
  EXPECT_EQ(resolve_output_name("Q:\\a<autoInc>.svg"), "/plots/a000.svg");
}

TEST(PlotclipOutputName, WhatCannotBeTranslatedIsRefused) {
  EXPECT_EQ(refusal("Q:\\a<autoInc>.svg"), "Q:\\a<autoInc>.svg: its drive is not defined");
  EXPECT_EQ(refusal("a<autoInc.svg"), "a<autoInc.svg: means a000, which is no output");
  const std::string long_name = std::string(260, 'x') + "<autoInc>.svg";
  EXPECT_EQ(refusal(long_name), long_name + ": is too long to be translated, 254 characters at most");
  const ScopedEnvironment device("PLOTCLIP_TEST_DEVICE", "/" + std::string(251, 'x'));
  EXPECT_EQ(refusal("PLOTCLIP_TEST_DEVICE:a.svg"),
            "PLOTCLIP_TEST_DEVICE:a.svg: is too long to be translated, 254 characters at most");
}

}  // namespace
}  // namespace Corvane::Print::plotclip::test
