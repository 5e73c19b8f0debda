// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The narrow editing exports: each is its wide function between two conversions. No state.
#include <cstddef>
#include <cstring>

#include "config/twin.h"
#include "corvane/print/str.h"
#include "util/multibyte.h"
#include "util/narrow_edit.h"

namespace Corvane::Print {
namespace util {

// KEEP(str-char-bytes): the int holds the character's bytes, first byte lowest, and zero bytes in front are
// skipped: 0x4100 is "A". Looks wrong; that is how an int stands for a character in these calls, and hosts
// pass such numbers. Pinned by StrNarrow.ZeroBytesInFrontOfACharacterAreSkipped.
NarrowCharacter narrow_character(int ch) {
  auto rest = static_cast<unsigned>(ch);
  while (rest != 0 && (rest & 0xFF) == 0) rest >>= 8;
  char bytes[kMostBytes + 1] = {};
  for (std::size_t i = 0; rest != 0; rest >>= 8) bytes[i++] = static_cast<char>(rest & 0xFF);
  const MultibyteCharacter character = decode_character(bytes);
  if (character.code == 0) return {ch == 0 ? 0 : kNoCharacter, 0};
  return {static_cast<int>(character.code), character.bytes};
}

}  // namespace util

using util::edit_wide;
using util::narrow_character;

char* STRDeleteChar(const char* str, int ch, char* out) {
  return edit_wide(str, out, [ch](CPWChar* t) { return STRDeleteCharW(t, narrow_character(ch).code, t); });
}

char* STRDeleteCharLead(const char* str, int ch, char* out) {
  return edit_wide(str, out,
                   [ch](CPWChar* t) { return STRDeleteCharLeadW(t, narrow_character(ch).code, t); });
}

char* STRDeleteCharTrail(const char* str, int ch, char* out) {
  return edit_wide(str, out,
                   [ch](CPWChar* t) { return STRDeleteCharTrailW(t, narrow_character(ch).code, t); });
}

char* STRExtractSubstr(const char* str, int start, int count, char* out) {
  return edit_wide(str, out, [=](CPWChar* t) { return STRExtractSubstrW(t, start, count, t); });
}

char* STRInsertSubstr(const char* str, int pos, const char* sub, char* out) {
  const char* const inserted = sub != nullptr ? sub : "";
  return edit_wide(str, out, std::strlen(inserted), [=](CPWChar* t) {
    const config::twin::SizedIn wide(inserted);
    return wide != nullptr && STRInsertSubstrW(t, pos, wide, t) != nullptr;
  });
}

char* STRLower(const char* str, char* out) {
  return edit_wide(str, out, [](CPWChar* t) { return STRLowerW(t, t); });
}

char* STRUpper(const char* str, char* out) {
  return edit_wide(str, out, [](CPWChar* t) { return STRUpperW(t, t); });
}

char* STRReplaceChar(const char* str, int from, int to, char* out) {
  const util::NarrowCharacter by = narrow_character(to);
  return edit_wide(str, out, static_cast<std::size_t>(by.bytes), [=](CPWChar* t) {
    return STRReplaceCharW(t, narrow_character(from).code, by.code, t) != nullptr;
  });
}

char* STRReverse(char* str) {
  return edit_wide(str, str, [](CPWChar* t) { return STRReverseW(t); });
}

}  // namespace Corvane::Print
