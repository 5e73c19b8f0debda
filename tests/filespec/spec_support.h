// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the tests of file specifications share: texts, calls that watch their buffers, configuration variables
// that the tests own, and random specifications.
#ifndef CORVANE_PRINT_TESTS_FILESPEC_SPEC_SUPPORT_H
#define CORVANE_PRINT_TESTS_FILESPEC_SPEC_SUPPORT_H

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "config/codepage.h"
#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"

namespace Corvane::Print::tests {

// ASCII as wide text.
inline WideText w(std::string_view ascii) {
  return WideText(ascii.begin(), ascii.end());
}

// Wide text for comparing and reading: ASCII as it is, anything else as <hexadecimal>.
inline std::string plain(const WideText& text) {
  std::string result;
  char number[12];
  for (const CPWChar c : text) {
    std::snprintf(number, sizeof number, "<%X>", static_cast<unsigned>(c));
    result += c < 128 ? std::string(1, static_cast<char>(c)) : std::string(number);
  }
  return result;
}

// The text in a wide output buffer, whose last character counts as the terminator.
inline WideText text_in(const CPWChar* buffer) {
  int length = 0;
  while (length < FU_WIDE - 1 && buffer[length] != 0) ++length;
  return WideText(buffer, static_cast<std::size_t>(length));
}

// A status and a text, as gtest compares and prints them.
using Answer = std::pair<int, std::string>;

// call(out) with an output buffer of exactly the stated size.
template <class Call>
std::pair<int, WideText> wide_answer(Call call) {
  Guarded<CPWChar> out(FU_WIDE);
  const int status = call(out.data());
  EXPECT_TRUE(out.intact()) << "wrote behind the buffer";
  return {status, text_in(out.data())};
}

template <class Call>
Answer answer(Call call) {
  const auto [status, text] = wide_answer(call);
  return {status, plain(text)};
}

template <class Call>
Answer narrow_answer(Call call) {
  Guarded<char> out(FU_NARROW);
  const int status = call(out.data());
  EXPECT_TRUE(out.intact()) << "wrote behind the buffer";
  return {status, std::string(out.data())};
}

// What a narrow twin hands its wide function, and what it makes of the result.
inline WideText widened(const std::string& text) {
  CPWChar buffer[FU_WIDE];
  config::widen_cut(text.c_str(), buffer, FU_WIDE);
  return buffer;
}
inline std::string narrowed(const WideText& text) {
  char buffer[FU_NARROW];
  config::narrow_cut(text.c_str(), static_cast<int>(text.size()), buffer, FU_NARROW);
  return buffer;
}

// Configuration variables for the life of the object; there are no others meanwhile. One at a time.
using Variables = std::map<WideText, WideText>;
class ScopedVariables {
public:
  explicit ScopedVariables(Variables variables) {
    known() = std::move(variables);
    CFSetGetEnvVarCallback(look_up);
  }
  explicit ScopedVariables(std::initializer_list<std::pair<const char*, const char*>> ascii)
      : ScopedVariables(converted(ascii)) {}
  ~ScopedVariables() { CFSetGetEnvVarCallback(nullptr); }
  ScopedVariables(const ScopedVariables&) = delete;
  ScopedVariables& operator=(const ScopedVariables&) = delete;

  static void set(Variables variables) { known() = std::move(variables); }

private:
  static Variables& known() {
    static Variables variables;
    return variables;
  }
  static Variables converted(std::initializer_list<std::pair<const char*, const char*>> ascii) {
    Variables variables;
    for (const auto& [name, value] : ascii) variables[w(name)] = w(value);
    return variables;
  }
  static int CORVANE_PRINT_CALL look_up(const CPWChar* name, CPWChar* buffer, int capacity) {
    const auto found = known().find(name);
    if (found == known().end() || found->second.empty()) return 0;
    const int needed = 2 * static_cast<int>(found->second.size()) + 2;
    if (needed <= capacity) std::memcpy(buffer, found->second.c_str(), static_cast<std::size_t>(needed));
    return needed;
  }
};

// Random specifications: pieces that mean something, in any order; now and then of a length at which
// something could change.
class RandomSpecs {
public:
  explicit RandomSpecs(Random& random) : random_(random) {}

  std::u32string spec() {
    static constexpr int kLengths[] = {0, 1, 253, 254, 255, 256, 257, 258, 511, 512, 513, 514, 5000};
    if (!random_.one_in(25)) return pieces(random_.below(9));
    return of_length(kLengths[random_.below(static_cast<int>(std::size(kLengths)))]);
  }

  std::u32string of_length(int length) {
    std::u32string text;
    const bool levels = random_.one_in(3);
    while (static_cast<int>(text.size()) < length) {
      if (levels || random_.one_in(60)) text += pieces(1);
      text += std::u32string(static_cast<std::size_t>(random_.between(1, levels ? 4 : 40)), U'n');
    }
    text.resize(static_cast<std::size_t>(length));
    if (random_.one_in(3)) text += U'\\';
    return text;
  }

  // A variable's value or a name is a specification too.
  Variables variables() {
    static constexpr const char32_t* kNames[] = {U"DEV", U"LIST", U"X", U"a", U"PWD"};
    Variables all;
    for (const char32_t* name : kNames) {
      if (!random_.one_in(3)) all[wide(name)] = wide(spec());
    }
    return all;
  }

private:
  std::u32string pieces(int count) {
    static constexpr const char32_t* kPieces[] = {
        U"\\", U"\\",  U"\\",   U"/",      U"]",      U".",          U"..",     U";",      U":",
        U"C:", U"X:",  U"DEV:", U"LIST:",  U"NONE:",  U"\\..\\",     U"..\\",   U".\\",    U"\\\\",
        U"a",  U"a\\", U"b",    U"name",   U"ext",    U"name.ext",   U" ",      U"*",      U"[a.b]",
        U"X",  U"DEV", U"LIST", U"C:\\a;", U"C:\\ab", U"\\\\srv\\s", U"\u00E9", U"\u5927", U"\U0001F600"};
    std::u32string text;
    while (count > 0) {
      const std::u32string piece = kPieces[random_.below(static_cast<int>(std::size(kPieces)))];
      // Only characters that the narrow code page has.
      if (!narrow_has(piece[0])) continue;
      text += piece;
      --count;
    }
    return text;
  }

  Random& random_;
};

}  // namespace Corvane::Print::tests

#endif
