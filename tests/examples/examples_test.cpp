// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Every example runs to its end and prints what its page shows. The debug library of example_db lies in a
// folder that programs find by the variable of the system's search; the other examples do not care.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace Corvane::Print::tests {
namespace {

std::vector<std::string> example_names() {
  std::istringstream words(EXAMPLE_NAMES);
  std::vector<std::string> names;
  for (std::string name; words >> name;) names.push_back(name);
  return names;
}

// In front of what the variable holds, such as a sanitizer's own places.
void add_search_folder(const char* variable, const char* separator, const char* folder) {
  const char* const old = std::getenv(variable);
  const std::string value = old != nullptr ? folder + std::string(separator) + old : folder;
#ifdef _WIN32
  _putenv_s(variable, value.c_str());
#else
  setenv(variable, value.c_str(), 1);
#endif
}

FILE* open_pipe(const std::string& command) {
#ifdef _WIN32
  return _popen(command.c_str(), "r");
#else
  return popen(command.c_str(), "r");
#endif
}

int close_pipe(FILE* pipe) {
#ifdef _WIN32
  return _pclose(pipe);
#else
  return pclose(pipe);
#endif
}

std::string program_of(const std::string& name) {
  std::string program = EXAMPLE_PROGRAMS "/example_" + name + EXAMPLE_SUFFIX;
#ifdef _WIN32
  for (char& c : program)
    if (c == '/') c = '\\';
#endif
  return program;
}

// What the program writes; its status is the result of closing the pipe.
std::string output_of(const std::string& name, int& status) {
  std::string output;
  status = -1;
  FILE* const pipe = open_pipe(program_of(name));
  if (pipe == nullptr) return output;
  char part[512];
  while (std::fgets(part, sizeof part, pipe) != nullptr) output += part;
  status = close_pipe(pipe);
  return output;
}

std::string expected_of(const std::string& name) {
  std::ifstream file(EXAMPLE_EXPECTED "/" + name + ".txt", std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

class Examples : public testing::TestWithParam<std::string> {
protected:
  static void SetUpTestSuite() {
    std::filesystem::current_path(EXAMPLE_FOLDER);
#ifdef _WIN32
    add_search_folder("PATH", ";", EXAMPLE_DEBUG_LIBRARY);
#else
    add_search_folder("LD_LIBRARY_PATH", ":", EXAMPLE_DEBUG_LIBRARY);
#endif
  }
};

TEST_P(Examples, PrintWhatTheirPagesShow) {
  const std::string expected = expected_of(GetParam());
  ASSERT_FALSE(expected.empty()) << "there is no expected output of " << GetParam();
  int status = 0;
  EXPECT_EQ(output_of(GetParam(), status), expected);
  EXPECT_EQ(status, 0);
}

INSTANTIATE_TEST_SUITE_P(All, Examples, testing::ValuesIn(example_names()),
                         [](const auto& example) { return example.param; });

}  // namespace
}  // namespace Corvane::Print::tests
