// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What several tests of plotclip need: reading texts as drawings, a folder of their own, and running the
// program. The program exists on Linux only, so its tests may use the shell.
#ifndef CORVANE_PRINT_TESTS_PLOTCLIP_PLOTCLIP_SUPPORT_H
#define CORVANE_PRINT_TESTS_PLOTCLIP_PLOTCLIP_SUPPORT_H

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "plotclip/drawing.h"
#include "plotclip/hpgl_reader.h"

namespace Corvane::Print::plotclip::test {

// The problem's text as "OFFSET: WHAT", empty when there was none.
std::string read_problem(std::string_view text, Drawing& drawing, const ReadLimits& limits = {});

// The drawing; a problem fails the calling test.
Drawing read_text(std::string_view text);

// "x,y x,y ..." with up to three decimals.
std::string text_of(const PointRun& run);

// A new folder, removed with everything in it at the end.
class TempFolder {
public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  std::string name() const { return path_.string(); }
  std::string file(const std::string& name) const { return (path_ / name).string(); }
  std::string write(const std::string& name, std::string_view content) const;

private:
  std::filesystem::path path_;
};

// A variable of the environment while it lives; unset before and after.
class ScopedEnvironment {
public:
  ScopedEnvironment(std::string name, const std::string& value);
  ~ScopedEnvironment();
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
  std::string name_;
};

std::string content_of(const std::string& file);

struct Outcome {
  int code = -1;
  std::string out;
  std::string err;
};

// Runs a shell command.
Outcome run_command(const std::string& command);
// Runs the plotclip that was built beside the tests.
Outcome run_plotclip(const std::string& arguments);

// The first number after `key` in the text; fails the calling test when there is none.
double number_after(const std::string& text, const std::string& key);

}  // namespace Corvane::Print::plotclip::test

#endif
