// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See plotclip_support.h.
#include "plotclip_support.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace Corvane::Print::plotclip::test {

std::string read_problem(std::string_view text, Drawing& drawing, const ReadLimits& limits) {
  const Bytes bytes(reinterpret_cast<const unsigned char*>(text.data()), text.size());
  const auto problem = read_hpgl(bytes, drawing, limits);
  return problem ? std::to_string(problem->offset) + ": " + problem->what : "";
}

Drawing read_text(std::string_view text) {
  Drawing drawing;
  EXPECT_EQ(read_problem(text, drawing), "");
  return drawing;
}

std::string text_of(const PointRun& run) {
  std::ostringstream text;
  const char* gap = "";
  for (const Point& p : run) {
    const auto rounded = [](double v) { return std::round(v * 1000.0) / 1000.0 + 0.0; };
    text << gap << rounded(p.x) << ',' << rounded(p.y);
    gap = " ";
  }
  return text.str();
}

TempFolder::TempFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "plotclip-XXXXXX").string();
  const char* made = mkdtemp(pattern.data());
  EXPECT_NE(made, nullptr);
  path_ = pattern;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::write(const std::string& name, std::string_view content) const {
  std::ofstream(file(name), std::ios::binary) << content;
  return file(name);
}

ScopedEnvironment::ScopedEnvironment(std::string name, const std::string& value) : name_(std::move(name)) {
  EXPECT_EQ(setenv(name_.c_str(), value.c_str(), 1), 0);
}

ScopedEnvironment::~ScopedEnvironment() {
  unsetenv(name_.c_str());
}

std::string content_of(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  EXPECT_TRUE(in.good()) << file;
  return {std::istreambuf_iterator<char>(in), {}};
}

Outcome run_command(const std::string& command) {
  const TempFolder folder;
  const std::string redirected =
      "( " + command + " ) >'" + folder.file("out") + "' 2>'" + folder.file("err") + "' </dev/null";
  const int status = std::system(redirected.c_str());
  Outcome outcome;
  if (WIFEXITED(status)) outcome.code = WEXITSTATUS(status);
  outcome.out = content_of(folder.file("out"));
  outcome.err = content_of(folder.file("err"));
  return outcome;
}

Outcome run_plotclip(const std::string& arguments) {
  return run_command("'" PLOTCLIP_PROGRAM "' " + arguments);
}

double number_after(const std::string& text, const std::string& key) {
  const std::size_t at = text.find(key);
  EXPECT_NE(at, std::string::npos) << key << " in:\n" << text;
  return at == std::string::npos ? 0.0 : std::strtod(text.c_str() + at + key.size(), nullptr);
}

}  // namespace Corvane::Print::plotclip::test
