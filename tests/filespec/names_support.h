// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Texts for the tests of names, random ones among them, and calls that look after the buffers.
#ifndef CORVANE_PRINT_TESTS_FILESPEC_NAMES_SUPPORT_H
#define CORVANE_PRINT_TESTS_FILESPEC_NAMES_SUPPORT_H

#include <string>
#include <vector>

#include "corvane/print/fu.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"

namespace Corvane::Print::tests {

// The printable part of a text, for messages.
inline std::string shown(const WideText& text) {
  std::string result;
  for (const CPWChar c : text) result += c >= 32 && c < 127 ? static_cast<char>(c) : '#';
  return result;
}

// A row of pieces, sometimes made as long as a size at which something could change.
inline WideText random_spec(Random& random, const std::vector<std::u32string>& pieces) {
  static constexpr int kLengths[] = {0, 1, 254, 255, 256, 257, 511, 512, 513, 514, 5000};
  std::u32string text;
  for (int i = random.below(12); i > 0; --i)
    text += pieces[static_cast<std::size_t>(random.below(static_cast<int>(pieces.size())))];
  if (random.one_in(40)) {
    const auto length =
        static_cast<std::size_t>(kLengths[random.below(static_cast<int>(std::size(kLengths)))]);
    const std::size_t at = static_cast<std::size_t>(random.below(static_cast<int>(text.size()) + 1));
    if (text.size() < length)
      text.insert(at, std::u32string(length - text.size(), random.one_in(2) ? U'x' : U'1'));
    text.resize(length);
  }
  return wide(text);
}

// An output of 256 characters with canaries behind it.
class WideOutput {
public:
  CPWChar* data() { return buffer_.data(); }
  WideText text() {
    std::size_t length = 0;
    while (length < FU_WIDE && buffer_[length] != 0) ++length;
    return {buffer_.data(), length};
  }
  bool intact() const { return buffer_.intact(); }

private:
  Guarded<CPWChar> buffer_{FU_WIDE};
};

}  // namespace Corvane::Print::tests

#endif
