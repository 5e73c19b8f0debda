// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See name.h. What the library answers is printed as it is, its oddities and its limit of 255 characters
// included: people come here to learn why a file is not found.
#include "plotclip/name.h"

#include <cstdio>
#include <new>

#include "corvane/print/fu.h"
#include "plotclip/locate.h"
#include "plotclip/problem.h"
#include "plotclip/wide_text.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr const char* kUsage =
    "plotclip name TEXT...\n"
    "Tells what each TEXT means as a file specification. Every argument is a text, also one with dashes.\n";

using Buffer = char[FU_NARROW];

// Nothing stands behind a row that has no value.
void row(const char* title, const char* value) {
  if (*value == '\0') {
    std::printf("%s\n", title);
  } else {
    std::printf("%-14s  %s\n", title, value);
  }
}

void row(const char* title, bool value) {
  row(title, value ? "yes" : "no");
}

void tell_components(const char* text) {
  Buffer device, directory, name, extension, version;
  FUParseUFS(text, device, directory, name, extension, version);
  row("device", device);
  row("directory", directory);
  row("name", name);
  row("extension", extension);
  row("version", version);
}

void tell_translations(const char* text) {
  row("full host", FUIsFullHFS(text) == 1);
  row("full logical", FUIsFullLFS(text) == 1);
  Buffer out;
  const int translated = FUFindCreateHFS(text, nullptr, nullptr, nullptr, nullptr, out);
  row("translated", translated == FU_OK ? out : "no: the device is not defined");
  row("made full", FUFindFullHFS(text, out) == FU_OK ? out : "no: it climbs above the root");
}

void tell_search(const char* text) {
  const FenceSearch search = search_fence(text);
  if (search.found.empty()) {
    row("found", ("no, places tried: " + std::to_string(search.tried.size())).c_str());
    return;
  }
  row("found", search.found.c_str());
  row("found by", search.tried.empty() ? "" : search.tried.back().step);
}

void tell_kinds(const char* text) {
  const WideText wide = widen(text);
  row("port", FUIsPortName(wide.c_str()));
  row("share", FUIsUncShare(wide.c_str()));
  row("address", FUIsIPAddress(wide.c_str()));
  row("pseudo file", FUIsPseudoFile(wide.c_str()) == 1);
}

void tell_matches(const char* text) {
  Buffer out;
  FUMatchLFSHandle* handle = nullptr;
  int status = FUMatchLFSFirst(text, nullptr, nullptr, nullptr, nullptr, out, &handle);
  // A specification without wildcards comes back by itself, looked for or not.
  if (status == FU_OK && handle == nullptr) return row("matches", "no wildcard");
  if (status == FU_FAILED) return row("matches", "none");
  for (; status == FU_OK; status = FUMatchLFSNext(&handle, out)) row("match", out);
  if (status == FU_NO_MEMORY) throw std::bad_alloc();
}

void tell_name(const char* text) {
  row("text", text);
  tell_components(text);
  tell_translations(text);
  tell_search(text);
  tell_kinds(text);
  tell_matches(text);
}

}  // namespace

void tell_names(const std::vector<std::string>& texts) {
  if (texts.empty()) throw Problem("name: expected a file specification", kExitUsage);
  if (texts.front() == "--help" || texts.front() == "-h") {
    std::fputs(kUsage, stdout);
    return;
  }
  const char* gap = "";
  for (const std::string& text : texts) {
    std::fputs(gap, stdout);
    tell_name(text.c_str());
    gap = "\n";
  }
}

}  // namespace Corvane::Print::plotclip
