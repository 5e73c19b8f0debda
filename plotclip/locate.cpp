// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See locate.h. The library works with 255 characters and cuts what is longer, so a name that it is asked to
// translate is refused where it may have been cut: nothing is written under half a name.
#include "plotclip/locate.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <new>

#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "plotclip/files.h"
#include "plotclip/log.h"
#include "plotclip/output.h"
#include "plotclip/problem.h"
#include "plotclip/wide_text.h"

namespace Corvane::Print::plotclip {
namespace {

struct ReleaseValue {
  void operator()(CPWChar* value) const { CFReleaseValue(value); }
};

const char* words_for(int step) {
  switch (step) {
    case FU_STEP_CURRENT_DIRECTORY:
      return "current directory";
    case FU_STEP_AS_IS:
      return "as it stands";
    case FU_STEP_VARIABLE:
      return "variable";
    case FU_STEP_LISTS:
      return "list of directories";
    case FU_STEP_RELOCATED:
      return "relocated, VX_PWP";
    case FU_STEP_BY_NAME:
      return "by name, VX_PWP";
    default:
      return "unknown step";
  }
}

void CORVANE_PRINT_CALL note_candidate(void* context, int step, const CPWChar* candidate, int found) {
  static_cast<FenceSearch*>(context)->tried.push_back({words_for(step), narrow(candidate), found != 0});
}

void tell_candidate(const Candidate& candidate, bool explain) {
  const char* const found = candidate.found ? "found" : "not there";
  if (explain) std::printf("%-11s  %-19s  %s\n", found, candidate.step, candidate.name.c_str());
  log_line(Topic::kFence, "%s, %s: %s", found, candidate.step, candidate.name.c_str());
}

// What is no directory can be opened, a pipe among it; a directory must not hide the file of a search.
bool can_be_read(const std::string& path) {
  std::error_code ignored;
  const auto status = std::filesystem::status(path, ignored);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

bool has_token(const std::string& name) {
  return name.find("<autoInc") != std::string::npos;
}

// Whether the name begins with a logical device, a defined variable. A single character is a drive.
bool has_logical_device(const std::string& name) {
  char device[FU_NARROW];
  FUParseUFS(name.c_str(), device, nullptr, nullptr, nullptr, nullptr);
  return device[0] != '\0' && device[1] != '\0' && CFIsVariableDefined(device);
}

// X:\... is nothing that anybody calls a file here; C:/... might be, and is left alone.
bool is_host_specification(const std::string& name) {
  const char letter = static_cast<char>(name[0] | 0x20);
  return letter >= 'a' && letter <= 'z' && name.compare(1, 2, ":\\") == 0;
}

[[noreturn]] void refuse(const std::string& name, const char* why) {
  throw Problem(name + ": " + why);
}

void check_length(const std::string& name, const WideText& text) {
  if (text.size() >= FU_WIDE - 1) refuse(name, "is too long to be translated, 254 characters at most");
}

WideText translate_device(const std::string& name) {
  CPWChar translated[FU_WIDE];
  const WideText given = widen(name);
  check_length(name, given);
  if (FUFindCreateHFSW(given.c_str(), nullptr, nullptr, nullptr, nullptr, translated) != FU_OK)
    refuse(name, "its logical device is not defined");
  return translated;
}

// Separators are turned first, since / is removed like every character that no file name may have.
WideText resolve_token(const std::string& name, WideText text) {
  std::ranges::replace(text, u'/', u'\\');
  check_length(name, text);
  text.resize(FU_WIDE);
  FUResolveAutoIncToken(text.data(), FU_WIDE);
  return text.c_str();
}

}  // namespace

FenceSearch search_fence(const std::string& name) {
  FenceSearch search;
  CPWChar found[FU_WIDE];
  const std::unique_ptr<CPWChar, ReleaseValue> list(CFGetenvW(widen("PLOTCLIP_FENCES").c_str()));
  const int status = FUSearchExplainW(widen(name).c_str(), list.get(), widen("fence").c_str(), nullptr, found,
                                      note_candidate, &search);
  if (status == FU_NO_MEMORY) throw std::bad_alloc();
  search.found = narrow(found);
  return search;
}

std::string find_fence_file(const std::string& name, bool explain) {
  const Candidate path{"path", name, can_be_read(name)};
  tell_candidate(path, explain);
  if (path.found) return name;
  const FenceSearch search = search_fence(name);
  for (const Candidate& candidate : search.tried) tell_candidate(candidate, explain);
  return search.found.empty() ? name : path_of_host(search.found).value_or(name);
}

std::string resolve_output_name(const std::string& name) {
  const bool device = has_logical_device(name);
  if (!device && !has_token(name))
    return is_host_specification(name) ? path_of_host(name).value_or(name) : name;
  WideText text = device ? translate_device(name) : widen(name);
  if (has_token(name)) text = resolve_token(name, std::move(text));
  check_length(name, text);
  const auto path = path_of_host(narrow(text));
  if (!path) refuse(name, "its drive is not defined");
  if (!is_output_format(extension_of(*path)))
    refuse(name, ("means " + *path + ", which is no output").c_str());
  return *path;
}

}  // namespace Corvane::Print::plotclip
