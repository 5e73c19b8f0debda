// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Wildcard matching over cursors, without the heap and without recursion, in at most (pattern length + 1) x
// (text length + 1) steps.
//
// A pattern is a row of items: "*" for any run of characters, "?" for exactly one, "\" and a character for
// that character itself, any other character for itself. What a pattern means is told by the plain procedure:
// at a star, try the rest of the pattern at every character of the remaining text, first to last, and if the
// text runs out and nothing follows the star, it has matched after all.
//
// Here only the last star that was met is tried again. That cannot change an answer. Between two stars stand
// items of one character each, so they match a stretch of fixed length. Say that the items between stars i
// and i+1 fit at several places, and that some way of matching the whole pattern takes a later one than the
// first. Then star i+1, which may take any run, can begin at the first place's end and take the difference
// too: the rest of the pattern matches where it did before. So if any way exists, there is one with the first
// place, and no earlier star ever needs a second try. The items behind the last star are tried at every place
// until they end where the text does. Each star is tried at places that only move forward, which gives the
// bound.
//
// The plain procedure never tries the rest against the empty text behind the last character. A rest of the
// pattern that matches the empty text consists of stars, which match any other remainder as well, or of stars
// and a lone backslash; for this one case see below.
#ifndef CORVANE_PRINT_UTIL_MATCH_H
#define CORVANE_PRINT_UTIL_MATCH_H

#include "util/case_fold.h"

namespace Corvane::Print::util {

// Both tell whether two characters are the same, and advance a cursor to the first that is the same as one.
struct SameCharacter {
  bool operator()(char32_t a, char32_t b) const { return a == b; }

  template <class Cursor>
  void seek(Cursor& place, char32_t wanted) const {
    while (!place.at_end() && place.current() != wanted) place.advance();
  }
};

struct SameIgnoringCase {
  bool operator()(char32_t a, char32_t b) const { return a == b || lowered(a) == lowered(b); }

  template <class Cursor>
  void seek(Cursor& place, char32_t wanted) const {
    const bool plain = lowered.is_plain(wanted);
    const char32_t partner = plain ? lowered.partner(wanted) : wanted;
    for (; !place.at_end(); place.advance()) {
      const char32_t c = place.current();
      if (c == wanted || c == partner) return;
      if ((!plain || !lowered.is_plain(c)) && (*this)(wanted, c)) return;
    }
  }

  Lowering lowered;
};

struct PatternItem {
  enum class Kind { kEnd, kStars, kAnyOne, kLiteral };
  Kind kind;
  char32_t literal = 0;
};

// Whether an item that begins with the character is the character itself, or "?".
inline bool is_an_item(char32_t c) {
  return c != 0 && c != U'*' && c != U'\\';
}

template <class Cursor>
bool is_lone_backslash(Cursor pattern) {
  if (pattern.current() != U'\\') return false;
  pattern.advance();
  return pattern.at_end();
}

// The item at the cursor, which is left behind it. A run of stars is one item. Always inlined, as the walks
// below are: this is where a match spends its time.
template <class Cursor>
[[gnu::always_inline]] inline PatternItem take_item(Cursor& pattern) {
  using Kind = PatternItem::Kind;
  char32_t c = pattern.current();
  if (c == U'*') {
    while (pattern.current() == U'*') pattern.advance();
    // KEEP(str-match-star-backslash): stars in front of a lone backslash at the pattern's end match only the
    // empty text. Looks wrong; the rest of a pattern is not tried against the empty remainder, and this is
    // where callers can see it. Pinned by StrMatch.StarsBeforeALoneBackslashMatchNothing.
    return {is_lone_backslash(pattern) ? Kind::kEnd : Kind::kStars};
  }
  const bool escaped = c == U'\\';
  if (escaped) {
    pattern.advance();
    c = pattern.current();
  }
  // KEEP(str-match-lone-backslash): a lone backslash at the pattern's end is as if it were not there.
  // Looks wrong; the plain procedure steps over it before it finds the end, and hosts' patterns that end so
  // must keep their meaning. Pinned by StrMatch.ALoneBackslashAtTheEndIsIgnored.
  if (c == 0) return {Kind::kEnd};
  pattern.advance();
  if (c == U'?' && !escaped) return {Kind::kAnyOne};
  return {Kind::kLiteral, c};
}

// What stopped a walk along the items of a pattern, and where it left the two cursors: behind the stars or
// the pattern's end; otherwise somewhere.
enum class Met { kPatternEnd, kStars, kMismatch, kTextEnd };

template <class Cursor, class Same>
[[gnu::always_inline]] inline Met go_along(Cursor& text, Cursor& pattern, const Same& same) {
  using Kind = PatternItem::Kind;
  for (;;) {
    // Most characters are their own items.
    while (pattern.current() == text.current() && is_an_item(pattern.current())) {
      pattern.advance();
      text.advance();
    }
    const PatternItem item = take_item(pattern);
    if (item.kind == Kind::kStars) return Met::kStars;
    if (item.kind == Kind::kEnd) return Met::kPatternEnd;
    if (text.at_end()) return Met::kTextEnd;
    if (item.kind == Kind::kLiteral && !same(item.literal, text.current())) return Met::kMismatch;
    text.advance();
  }
}

// How many items the pattern goes on with to its end; false when it comes to stars first.
template <class Cursor>
[[gnu::always_inline]] inline bool count_to_end(Cursor pattern, std::size_t& items) {
  using Kind = PatternItem::Kind;
  for (items = 0;; ++items) {
    for (; is_an_item(pattern.current()); pattern.advance()) ++items;
    const Kind kind = take_item(pattern).kind;
    if (kind == Kind::kStars) return false;
    if (kind == Kind::kEnd) return true;
  }
}

// The same behind stars, at the first place where the items up to the next stars, or to the ends of both,
// fit. The places where the first of them does not fit are passed over without looking at the others.
template <class Cursor, class Same>
[[gnu::always_inline]] inline Met go_along_behind_stars(Cursor& text, Cursor& pattern, const Same& same) {
  using Kind = PatternItem::Kind;
  // The last items fit nowhere but at the text's end: a cursor that finds it looks at no other place.
  if constexpr (requires { text.length(); }) {
    std::size_t items;
    if (count_to_end(pattern, items)) {
      const std::size_t length = text.length();
      if (length < items) return Met::kTextEnd;
      text.skip(length - items);
      return go_along(text, pattern, same);
    }
  }
  Cursor behind_first = pattern;
  const PatternItem first = take_item(behind_first);
  for (Cursor place = text;; place.advance()) {
    if (first.kind == Kind::kLiteral) same.seek(place, first.literal);
    // Too short a remainder: later places leave even less.
    if (place.at_end()) return Met::kTextEnd;
    text = place;
    text.advance();
    pattern = behind_first;
    const Met met = go_along(text, pattern, same);
    if (met != Met::kMismatch && (met != Met::kPatternEnd || text.at_end())) return met;
  }
}

// Whether the whole text matches the whole pattern; `same` compares a literal with a character of the text.
template <class Cursor, class Same>
bool matches(Cursor text, Cursor pattern, const Same& same) {
  Met met = go_along(text, pattern, same);
  while (met == Met::kStars) {
    if (pattern.at_end()) return true;
    met = go_along_behind_stars(text, pattern, same);
  }
  return met == Met::kPatternEnd && text.at_end();
}

template <class Cursor, class Same>
bool are_same(Cursor a, Cursor b, const Same& same) {
  while (!a.at_end() && !b.at_end() && same(a.current(), b.current())) {
    a.advance();
    b.advance();
  }
  return a.at_end() && b.at_end();
}

// KEEP(str-match-own-text): ignoring case, a text that equals the pattern matches, whatever the pattern's
// wildcards and backslashes say, and only for the text as a whole. Looks wrong; a name with backslashes must
// be found by its own text. Pinned by StrMatch.IgnoringCaseAPatternMatchesItsOwnText.
template <class Cursor>
bool matches_ignoring_case(Cursor text, Cursor pattern, const SameIgnoringCase& same = {}) {
  return matches(text, pattern, same) || are_same(text, pattern, same);
}

}  // namespace Corvane::Print::util

#endif
