// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A directory of a test's own that a C:\... specification names on every target, and the current directory.
#ifndef CORVANE_PRINT_TESTS_FILESPEC_HOST_DIR_H
#define CORVANE_PRINT_TESTS_FILESPEC_HOST_DIR_H

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {

// The directory that drive C: stands for. On Windows it is the drive; elsewhere a directory of this process,
// which exists until its end.
class DriveC {
public:
  static const std::filesystem::path& root() {
    static const DriveC drive;
    return drive.root_;
  }

  // A new directory below `parent`, with a name that nobody else has.
  static std::filesystem::path make_unique(const std::filesystem::path& parent) {
    for (int number = 0;; ++number) {
      const std::filesystem::path path = parent / ("cvpt" + std::to_string(number));
      if (std::filesystem::create_directory(path)) return path;
    }
  }

private:
#ifdef _WIN32
  DriveC() : root_("C:\\") {}
#else
  DriveC() : root_(make_unique(std::filesystem::temp_directory_path())) {
    set_variable(U"CORVANE_DRIVE_C", root_.u32string());
  }
  ~DriveC() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
#endif

  std::filesystem::path root_;
};

// An empty directory for the life of the object. Names below it are written with \.
class HostDir {
public:
  HostDir() : path_(DriveC::make_unique(DriveC::root())) {}
  ~HostDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  HostDir(const HostDir&) = delete;
  HostDir& operator=(const HostDir&) = delete;

  // C:\... of the directory, or of a name below it.
  std::u32string spec(std::u32string_view below = {}) const {
    std::u32string text = U"C:\\" + path_.filename().u32string();
    if (!below.empty()) text.append(U"\\").append(below);
    return text;
  }

  std::filesystem::path path(std::u32string_view below = {}) const {
    std::u32string turned(below);
    std::replace(turned.begin(), turned.end(), U'\\', U'/');
    return below.empty() ? path_ : path_ / std::filesystem::path(turned);
  }

  // An empty file, and the directories that it needs.
  void make_file(std::u32string_view below) const {
    std::filesystem::create_directories(path(below).parent_path());
    std::ofstream(path(below)).put('\n');
  }
  void make_dir(std::u32string_view below) const { std::filesystem::create_directories(path(below)); }
  void remove(std::u32string_view below) const { std::filesystem::remove_all(path(below)); }

private:
  std::filesystem::path path_;
};

// The process's current directory for the life of the object. Declare it behind the directory that it enters.
class ScopedCurrentDirectory {
public:
  explicit ScopedCurrentDirectory(const std::filesystem::path& path)
      : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(path);
  }
  ~ScopedCurrentDirectory() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }
  ScopedCurrentDirectory(const ScopedCurrentDirectory&) = delete;
  ScopedCurrentDirectory& operator=(const ScopedCurrentDirectory&) = delete;

private:
  std::filesystem::path before_;
};

}  // namespace Corvane::Print::tests

#endif
