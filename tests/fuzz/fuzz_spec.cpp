// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// libFuzzer target: parses, builds, translates, makes full and edits arbitrary specifications of any length,
// with arbitrary variables. Every call must
//  - answer with a status of its own,
//  - stay within its output of 256 characters (canaries, sanitizers) and leave a terminated text there, apart
//    from the one output that may be unterminated,
//  - give the narrow answer that the wide one converts to,
//  - give in place what it gives elsewhere.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>

#include "config/codepage.h"
#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "filespec/spec.h"
#include "platform/capi_memory.h"
#include "tests/fuzz/input.h"
#include "tests/support/guarded.h"

namespace Corvane::Print::tests {
namespace {

using Text = std::u16string;  // this program is not built for Windows

const char* g_call = "";

void demand(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "fuzz_spec: %s: %s\n", g_call, what);
  std::abort();
}

// One byte a character, mostly from the characters that mean something.
Text text_input(FuzzInput& input) {
  static constexpr char kMeaning[] = "\\/:;.]C:XaD*? ..";
  const int kind = input.between(0, 15);
  const int length = kind == 0 ? input.between(0, 255) * 20 : kind < 4 ? input.between(250, 259) : kind * 2;
  Text text;
  while (static_cast<int>(text.size()) < length) {
    const int byte = input.byte();
    if (byte == 0) return text + Text(static_cast<std::size_t>(length) - text.size(), u'n');
    if (byte >= 250)
      text += static_cast<char16_t>(0xD800 + byte * 8);
    else if (byte >= 128)
      text += static_cast<char16_t>(byte);
    else if (byte < 64)
      text += static_cast<char16_t>(kMeaning[byte % 16]);
    else
      text += static_cast<char16_t>(byte);
  }
  return text;
}

std::map<Text, Text> g_variables;

// The buffer that the last lookup filled, while a path is made full.
bool g_making_full = false;
CPWChar* g_filled = nullptr;

int look_up(const CPWChar* name, CPWChar* buffer, int capacity) {
  const auto found = g_variables.find(name);
  if (found == g_variables.end() || found->second.empty()) return 0;
  const int needed = static_cast<int>(2 * found->second.size() + 2);
  if (needed > capacity) return needed;
  std::memcpy(buffer, found->second.c_str(), static_cast<std::size_t>(needed));
  if (g_making_full) g_filled = buffer;
  return needed;
}

// The narrow lookup of the current directory leaves its wide value allocated, on purpose. Here it is
// released, or minutes of fuzzing would fill the memory.
template <class Call>
int making_full(Call call) {
  g_making_full = true;
  const int status = call();
  g_making_full = false;
  platform::capi_free(std::exchange(g_filled, nullptr));
  return status;
}

int full_wide(const CPWChar* partial, CPWChar* out) {
  return making_full([&] { return FUFindFullHFSW(partial, out); });
}

int full_narrow(const char* partial, char* out) {
  return making_full([&] { return FUFindFullHFS(partial, out); });
}

struct Result {
  int status;
  Text text;
  bool operator==(const Result&) const = default;
};

Text text_in(const Guarded<CPWChar>& out, bool terminated) {
  std::size_t length = 0;
  while (length < FU_WIDE && out[length] != 0) ++length;
  demand(length < FU_WIDE || !terminated, "left the output unterminated");
  return Text(&out[0], std::min<std::size_t>(length, FU_WIDE - 1));
}

template <class Call>
Result wide_result(std::initializer_list<int> allowed, Call call, bool terminated = true) {
  Guarded<CPWChar> out(FU_WIDE);
  const int status = call(out.data());
  demand(std::find(allowed.begin(), allowed.end(), status) != allowed.end(), "a strange status");
  demand(out.intact(), "wrote behind the output");
  return {status, text_in(out, terminated)};
}

// The same on a buffer that holds the first 255 characters of `text` already.
template <class Call>
void demand_in_place(const Text& text, const Result& expected, Call call) {
  Guarded<CPWChar> buffer(FU_WIDE);
  std::fill_n(buffer.data(), FU_WIDE, CPWChar{0});
  std::copy_n(text.c_str(), std::min<std::size_t>(text.size(), 255), buffer.data());
  const int status = call(buffer.data());
  demand(buffer.intact(), "wrote behind the buffer");
  demand(Result{status, text_in(buffer, true)} == expected, "another result in place");
}

std::string narrow_of(const Text& text) {
  std::string narrow(4 * text.size() + 1, '\0');
  config::narrow_cut(text.c_str(), static_cast<int>(text.size()), narrow.data(),
                     static_cast<int>(narrow.size()));
  return narrow.c_str();
}

Text widened(const std::string& text) {
  CPWChar wide[FU_WIDE];
  config::widen_cut(text.c_str(), wide, FU_WIDE);
  return wide;
}

template <class Call>
void demand_narrow(const Result& expected, Call call) {
  Guarded<char> out(FU_NARROW);
  const int status = call(out.data());
  demand(out.intact(), "wrote behind the narrow output");
  char converted[FU_NARROW];
  config::narrow_cut(expected.text.c_str(), static_cast<int>(expected.text.size()), converted, FU_NARROW);
  demand(status == expected.status && std::strcmp(out.data(), converted) == 0, "another narrow result");
}

struct Parts {
  Guarded<CPWChar> dev{FU_WIDE}, dir{FU_WIDE}, name{FU_WIDE}, ext{FU_WIDE}, ver{FU_WIDE};
};

void parse_and_build(const Text& spec) {
  g_call = "FUParseUFSW";
  Parts parts;
  const int status = FUParseUFSW(spec.c_str(), parts.dev.data(), parts.dir.data(), parts.name.data(),
                                 parts.ext.data(), parts.ver.data());
  demand(status == FU_OK, "a strange status");
  std::size_t sum = 0;
  for (const auto* part : {&parts.dev, &parts.dir, &parts.name, &parts.ext, &parts.ver}) {
    demand(part->intact(), "wrote behind a component");
    sum += text_in(*part, true).size();
  }
  demand(sum <= std::min<std::size_t>(spec.size(), 255), "made characters up");
  g_call = "FUBuildLFSW of the components";
  wide_result({FU_OK}, [&](CPWChar* out) {
    return FUBuildLFSW(parts.dev.data(), parts.dir.data(), parts.name.data(), parts.ext.data(),
                       parts.ver.data(), out);
  });
}

void test_fullness(const Text& spec) {
  g_call = "FUIsFullHFSW, FUIsFullLFSW";
  const int hfs = FUIsFullHFSW(spec.c_str()), lfs = FUIsFullLFSW(spec.c_str());
  demand(hfs == 0 || hfs == 1, "neither full nor not");
  demand(lfs == 0 || lfs == 1, "neither full nor not");
  demand(hfs <= lfs, "a full host path that is no full specification");
}

void build_any(const Text (&t)[5]) {
  g_call = "FUBuildLFSW";
  wide_result({FU_OK, FU_SHORTENED}, [&](CPWChar* out) {
    return FUBuildLFSW(t[0].c_str(), t[1].c_str(), t[2].c_str(), t[3].c_str(), t[4].c_str(), out);
  });
}

void resolve(const Text (&t)[5]) {
  g_call = "FUFindCreateHFSW";
  wide_result({FU_OK, FU_NO_DEVICE}, [&](CPWChar* out) {
    return FUFindCreateHFSW(t[0].c_str(), t[1].c_str(), t[2].c_str(), t[3].c_str(), t[4].c_str(), out);
  });
  g_call = "FUFindFullHFSW";
  const Result full =
      wide_result({FU_OK, FU_FAILED}, [&](CPWChar* out) { return full_wide(t[0].c_str(), out); });
  demand(full.status == FU_OK || full.text.empty(), "a result in spite of the failure");
  demand_in_place(t[0], full, [](CPWChar* both) { return full_wide(both, both); });
}

void edit_levels(const Text& path, const Text& component, int count) {
  g_call = "FUAppendCompHFSW";
  wide_result(
      {FU_OK}, [&](CPWChar* out) { return FUAppendCompHFSW(path.c_str(), component.c_str(), out); }, false);
  g_call = "FUAppendDirSepHFSW";
  const Result with =
      wide_result({FU_OK}, [&](CPWChar* out) { return FUAppendDirSepHFSW(path.c_str(), out); });
  demand_in_place(path, with, [](CPWChar* both) { return FUAppendDirSepHFSW(both, both); });

  g_call = "FURemoveCompsHFSW, FURemoveDirSepHFSW";
  const auto comps = [&](CPWChar* out) { return FURemoveCompsHFSW(path.c_str(), count, out); };
  const auto sep = [&](CPWChar* out) { return FURemoveDirSepHFSW(path.c_str(), out); };
  const Result without_comps = wide_result({FU_OK, FU_FAILED}, comps), without = wide_result({FU_OK}, sep);
  if (path.size() > 255) return;  // in place it is cut first
  demand_in_place(path, without_comps, [&](CPWChar* both) { return FURemoveCompsHFSW(both, count, both); });
  demand_in_place(path, without, [](CPWChar* both) { return FURemoveDirSepHFSW(both, both); });
}

void compare_narrow(const Text (&t)[5], int count) {
  std::string n[5];
  Text w[5];
  for (int i = 0; i < 5; ++i) {
    n[i] = narrow_of(t[i]);
    w[i] = widened(n[i]);
  }
  g_call = "narrow forms";
  demand_narrow(wide_result({FU_OK},
                            [&](CPWChar* out) {
                              return FUBuildLFSW(w[0].c_str(), w[1].c_str(), w[2].c_str(), w[3].c_str(),
                                                 w[4].c_str(), out);
                            }),
                [&](char* out) {
                  return FUBuildLFS(n[0].c_str(), n[1].c_str(), n[2].c_str(), n[3].c_str(), n[4].c_str(),
                                    out);
                });
  demand_narrow(wide_result({FU_OK, FU_NO_DEVICE},
                            [&](CPWChar* out) {
                              return FUFindCreateHFSW(w[0].c_str(), w[1].c_str(), w[2].c_str(), w[3].c_str(),
                                                      w[4].c_str(), out);
                            }),
                [&](char* out) {
                  return FUFindCreateHFS(n[0].c_str(), n[1].c_str(), n[2].c_str(), n[3].c_str(), n[4].c_str(),
                                         out);
                });
  demand_narrow(wide_result({FU_OK, FU_FAILED}, [&](CPWChar* out) { return full_wide(w[0].c_str(), out); }),
                [&](char* out) { return full_narrow(n[0].c_str(), out); });
  demand_narrow(wide_result({FU_OK, FU_FAILED},
                            [&](CPWChar* out) { return FURemoveCompsHFSW(w[0].c_str(), count, out); }),
                [&](char* out) { return FURemoveCompsHFS(n[0].c_str(), count, out); });
}

void run(FuzzInput& input) {
  g_variables.clear();
  for (const char16_t* name : {u"D", u"X", u"a", u"PWD"}) {
    if (input.byte() % 2 == 1) g_variables[name] = text_input(input);
  }
  Text texts[5];
  for (Text& text : texts) text = text_input(input);
  const int count = input.between(-1, 60);

  CFSetGetEnvVarCallback(look_up);
  parse_and_build(texts[0]);
  test_fullness(texts[0]);
  build_any(texts);
  resolve(texts);
  edit_levels(texts[0], texts[1], count);
  compare_narrow(texts, count);
  CFSetGetEnvVarCallback(nullptr);
}

}  // namespace
}  // namespace Corvane::Print::tests

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Corvane::Print::tests::FuzzInput input(data, size);
  Corvane::Print::tests::run(input);
  return 0;
}
