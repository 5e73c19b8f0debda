// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See wide_text.h. No shared state.
#include "plotclip/wide_text.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool is_surrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

unsigned char byte_at(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

// The code point at `at`, which moves behind it; behind one byte where none is well formed.
char32_t take_utf8(std::string_view text, std::size_t& at) {
  static constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
  const unsigned char lead = byte_at(text, at++);
  if (lead < 0x80) return lead;
  const std::size_t more = lead >= 0xF0 && lead < 0xF8 ? 3 : lead >= 0xE0 && lead < 0xF0 ? 2 : 1;
  if (lead < 0xC0 || lead >= 0xF8 || text.size() - at < more) return kReplacement;
  char32_t point = lead & (0x3Fu >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const unsigned char next = byte_at(text, at + i);
    if ((next & 0xC0) != 0x80) return kReplacement;
    point = point << 6 | (next & 0x3Fu);
  }
  if (point < kLeast[more] || point > 0x10FFFF || is_surrogate(point)) return kReplacement;
  at += more;
  return point;
}

char32_t take_utf16(std::basic_string_view<CPWChar> text, std::size_t& at) {
  const char32_t first = text[at++];
  if (!is_surrogate(first)) return first;
  const bool pair = first < 0xDC00 && at < text.size() && text[at] >= 0xDC00 && text[at] <= 0xDFFF;
  return pair ? 0x10000 + ((first - 0xD800) << 10) + (text[at++] - 0xDC00u) : kReplacement;
}

void put_utf8(char32_t point, std::string& out) {
  const auto put = [&out](char32_t byte) { out += static_cast<char>(byte); };
  if (point < 0x80) return put(point);
  if (point < 0x800) {
    put(0xC0 | point >> 6);
  } else {
    if (point < 0x10000) {
      put(0xE0 | point >> 12);
    } else {
      put(0xF0 | point >> 18);
      put(0x80 | (point >> 12 & 0x3F));
    }
    put(0x80 | (point >> 6 & 0x3F));
  }
  put(0x80 | (point & 0x3F));
}

}  // namespace

WideText widen(std::string_view text) {
  WideText wide;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t point = take_utf8(text, at);
    if (point >= 0x10000) {
      wide += static_cast<CPWChar>(0xD800 + ((point - 0x10000) >> 10));
      wide += static_cast<CPWChar>(0xDC00 + (point & 0x3FF));
    } else {
      wide += static_cast<CPWChar>(point);
    }
  }
  return wide;
}

std::string narrow(std::basic_string_view<CPWChar> text) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) put_utf8(take_utf16(text, at), result);
  return result;
}

}  // namespace Corvane::Print::plotclip
