// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// plotclip name and --explain from outside: their rows.
#include <gtest/gtest.h>

#include <algorithm>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip::test {
namespace {

std::string host(std::string path) {
  for (char& c : path)
    if (c == '/') c = '\\';
  return path;
}

// Runs the program in a folder, with the shell's assignments in front.
Outcome run_in(const TempFolder& folder, const std::string& assignments, const std::string& arguments) {
  return run_command("cd '" + folder.file("") + "' && " + assignments + " '" PLOTCLIP_PROGRAM "' " +
                     arguments);
}

TEST(PlotclipName, TellsEverythingOfALogicalSpecification) {
  const TempFolder folder;
  folder.write("a.plt", "");
  const std::string root = folder.name();
  const Outcome outcome = run_in(folder, "PLOTS='" + root + "'", "name 'PLOTS:sub/a.plt;3' PLOTS:a.plt");
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.out,
            "text            PLOTS:sub/a.plt;3\n"
            "device          PLOTS\n"
            "directory       sub\n"
            "name            a\n"
            "extension       plt\n"
            "version         3\n"
            "full host       no\n"
            "full logical    yes\n"
            "translated      " +
                host(root) +
                "\\a.plt;3\n"
                "made full       Z:" +
                host(root) +
                "\\sub\\a.plt;3\n"
                "found           " +
                root +
                "\\a.plt\n"
                "found by        list of directories\n"
                "port            no\n"
                "share           no\n"
                "address         no\n"
                "pseudo file     no\n"
                "matches         no wildcard\n"
                "\n"
                "text            PLOTS:a.plt\n"
                "device          PLOTS\n"
                "directory\n"
                "name            a\n"
                "extension       plt\n"
                "version\n"
                "full host       no\n"
                "full logical    yes\n"
                "translated      " +
                host(root) +
                "\\a.plt\n"
                "made full       Z:" +
                host(root) +
                "\\a.plt\n"
                "found           " +
                root +
                "\\a.plt\n"
                "found by        list of directories\n"
                "port            no\n"
                "share           no\n"
                "address         no\n"
                "pseudo file     no\n"
                "matches         no wildcard\n");
}

TEST(PlotclipName, ListsTheMatchesOfAWildcard) {
  const TempFolder folder;
  for (const char* name : {"b.plt", "\xC3\xA4.plt", "a.plt", "c.txt"}) folder.write(name, "");
  const Outcome outcome = run_in(folder, "", "name '*.plt' '*.none'");
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  const std::size_t first = outcome.out.find("match ");
  ASSERT_NE(first, std::string::npos) << outcome.out;
  EXPECT_EQ(outcome.out.substr(first, outcome.out.find("\n\n") + 1 - first),
            "match           .\\a.plt\nmatch           .\\b.plt\nmatch           .\\\xC3\xA4.plt\n");
  EXPECT_NE(outcome.out.find("matches         none\n"), std::string::npos) << outcome.out;
}

TEST(PlotclipName, KnowsPortsSharesAddressesAndTokens) {
  const auto kinds = [](const std::string& text) {
    const std::string out = run_plotclip("name '" + text + "'").out;
    std::string found;
    for (const char* kind : {"port", "share", "address", "pseudo file"}) {
      std::string yes = std::string("\n") + kind;
      yes.resize(17, ' ');
      if (out.find(yes + "yes\n") != std::string::npos) found += std::string(kind) + ";";
    }
    return found;
  };
  EXPECT_EQ(kinds("LPT1"), "port;pseudo file;");
  EXPECT_EQ(kinds("\\\\server\\share"), "share;pseudo file;");
  EXPECT_EQ(kinds("1.2.3.4"), "address;pseudo file;");
  EXPECT_EQ(kinds("a<autoInc>.plt"), "pseudo file;");
  EXPECT_EQ(kinds("a.plt"), "");
}

TEST(PlotclipName, SaysWhatFails) {
  const TempFolder folder;
  const Outcome device = run_in(folder, "", "name plotclip_no_device:a.plt");
  EXPECT_NE(device.out.find("\ntranslated      no: the device is not defined\n"), std::string::npos)
      << device.out;
  EXPECT_NE(device.out.find("\nfound           no, places tried: 1\n"), std::string::npos) << device.out;
  const Outcome above = run_in(folder, "PWD=/a", "name ../../a.plt");
  EXPECT_NE(above.out.find("\nmade full       no: it climbs above the root\n"), std::string::npos)
      << above.out;
}

TEST(PlotclipName, NeedsATextAndOffersHelp) {
  const Outcome none = run_plotclip("name");
  EXPECT_EQ(none.code, 2);
  EXPECT_EQ(none.err, "plotclip: name: expected a file specification\n");
  EXPECT_EQ(none.out, "");
  const Outcome help = run_plotclip("name --help");
  EXPECT_EQ(help.code, 0);
  EXPECT_EQ(help.out.substr(0, 22), "plotclip name TEXT...\n");
  const Outcome empty = run_plotclip("name ''");
  EXPECT_EQ(empty.code, 0);
  EXPECT_EQ(empty.out.substr(0, 12), "text\ndevice\n");
}

class PlotclipExplain : public ::testing::Test {
protected:
  PlotclipExplain() {
    folder_.write("d.plt", "PU0,0;PD100,0;");
    list_.write("site.fence", "0 0\n50 50\n");
  }
  Outcome run(const std::string& arguments) const {
    return run_in(folder_, "PLOTCLIP_FENCES='/no/such;" + root() + "'", "d.plt " + arguments);
  }
  std::string root() const { return list_.name(); }

  const TempFolder folder_, list_;
};

TEST_F(PlotclipExplain, TellsEveryCandidateAndTheStepThatFound) {
  const Outcome outcome = run("--fence-file site --explain -o 'p<autoInc>.plt' -o 'p<autoInc>.plt'");
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.out.substr(0, outcome.out.find("drawing ")),
            "not there    path                 site\n"
            "not there    as it stands         site\n"
            "not there    as it stands         site.fence\n"
            "not there    list of directories  /no/such\\site\n"
            "not there    list of directories  \\no\\such\\site.fence\n"
            "not there    list of directories  " +
                root() +
                "\\site\n"
                "found        list of directories  " +
                host(root()) + "\\site.fence\n");
  EXPECT_NE(outcome.out.find("written      p000.plt\nwritten      p001.plt\n"), std::string::npos)
      << outcome.out;
  EXPECT_EQ(content_of(folder_.file("p000.plt")), content_of(folder_.file("p001.plt")));
}

TEST_F(PlotclipExplain, APathIsTheOnlyCandidateWhereItExists) {
  folder_.write("own.txt", "0 0\n50 50\n");
  const Outcome outcome = run("--fence-file own.txt --explain -o p.plt");
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.out.substr(0, outcome.out.find("drawing ")),
            "found        path                 own.txt\n");
}

TEST_F(PlotclipExplain, AFenceThatIsNowhereIsExplainedToo) {
  const Outcome outcome = run("--fence-file none --explain -o p.plt");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 7);
  EXPECT_EQ(outcome.out.find("found "), std::string::npos);
  EXPECT_EQ(outcome.err, "plotclip: none: cannot be opened: No such file or directory\n");
}

TEST_F(PlotclipExplain, NothingIsToldUnasked) {
  const Outcome outcome = run("--fence-file site -o p.plt");
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.out.substr(0, 8), "drawing ");
}

TEST_F(PlotclipExplain, NeedsAFenceFile) {
  const Outcome outcome = run("--fence 0,0,1,1 --explain -o p.plt");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.err.find("--fence-file"), std::string::npos) << outcome.err;
}

}  // namespace
}  // namespace Corvane::Print::plotclip::test
