// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the STR functions must do, a second time, on string objects: plain, slow, and without a thought for
// buffers.
#ifndef CORVANE_PRINT_TESTS_UTIL_STR_MODELS_H
#define CORVANE_PRINT_TESTS_UTIL_STR_MODELS_H

#include <algorithm>
#include <cwctype>
#include <string>
#include <vector>

#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests::model {

inline bool half_a_pair(char32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

inline char32_t lower(char32_t c) {
  return c > 0xFFFF || half_a_pair(c) ? c : static_cast<char32_t>(std::towlower(static_cast<wint_t>(c)));
}
inline char32_t upper(char32_t c) {
  return c > 0xFFFF || half_a_pair(c) ? c : static_cast<char32_t>(std::towupper(static_cast<wint_t>(c)));
}

inline WideText lower(WideText text) {
  for (CPWChar& c : text) c = static_cast<CPWChar>(lower(static_cast<char32_t>(c)));
  return text;
}
inline WideText upper(WideText text) {
  for (CPWChar& c : text) c = static_cast<CPWChar>(upper(static_cast<char32_t>(c)));
  return text;
}

inline int compare(const WideText& a, const WideText& b) {
  const auto numbers = [](const WideText& text) {
    std::vector<unsigned> units;
    for (const CPWChar c : lower(text)) units.push_back(c);
    return units;
  };
  const auto left = numbers(a), right = numbers(b);
  return left == right ? 0 : left < right ? -1 : 1;
}

inline int compare(const WideText& a, const WideText& b, int count) {
  const auto most = static_cast<std::size_t>(std::max(count, 0));
  return compare(a.substr(0, most), b.substr(0, most));
}

inline WideText delete_char(const WideText& text, CPWChar ch) {
  WideText result;
  std::copy_if(text.begin(), text.end(), std::back_inserter(result), [ch](CPWChar c) { return c != ch; });
  return result;
}

inline WideText delete_lead(const WideText& text, CPWChar ch) {
  return text.substr(std::min(text.size(), text.find_first_not_of(ch)));
}

inline WideText delete_trail(const WideText& text, CPWChar ch) {
  return text.substr(0, text.find_last_not_of(ch) + 1);
}

inline WideText extract(const WideText& text, int start, int count) {
  if (start < 0 || count < 1 || static_cast<std::size_t>(start) >= text.size()) return {};
  return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count));
}

inline WideText insert(WideText text, int pos, const WideText& sub) {
  return text.insert(std::min(text.size(), static_cast<std::size_t>(std::max(pos, 0))), sub);
}

inline WideText replace(WideText text, CPWChar from, CPWChar to) {
  std::replace(text.begin(), text.end(), from, to);
  return text;
}

inline WideText reverse(const WideText& text) {
  return {text.rbegin(), text.rend()};
}

// Matching, step by step as it is told: recursive, exponential, for short texts only. `ignoring` compares
// literals in lower case.
class PlainMatch {
public:
  explicit PlainMatch(bool ignoring) : ignoring_(ignoring) {}

  bool operator()(std::u32string_view text, std::u32string_view pattern) const {
    if (pattern.empty()) return text.empty();
    bool result = true;
    while (result) {
      const bool escaped = pattern.front() == U'\\';
      if (escaped) pattern.remove_prefix(1);
      const char32_t p = pattern.empty() ? U'\0' : pattern.front();
      if (p == U'*' && !escaped) {
        pattern.remove_prefix(1);
        if (!text.empty()) result = found_further_on(text, pattern);
      } else if (text.empty()) {
        result = false;
      } else if ((p == U'?' && !escaped) || same(p, text.front())) {
        pattern.remove_prefix(1);
        text.remove_prefix(1);
      } else {
        result = false;
      }
      if (pattern.empty()) break;
    }
    return pattern.empty() ? text.empty() : result;
  }

private:
  bool found_further_on(std::u32string_view& text, std::u32string_view rest) const {
    for (; !text.empty(); text.remove_prefix(1)) {
      if ((*this)(text, rest)) return true;
    }
    return false;
  }

  bool same(char32_t a, char32_t b) const { return ignoring_ ? lower(a) == lower(b) : a == b; }

  bool ignoring_;
};

// The same by a table of all pairs of remainders, for long texts.
inline bool table_match(const std::u32string& text, const std::u32string& pattern, bool ignoring) {
  const std::size_t n = text.size(), m = pattern.size();
  const auto same = [ignoring](char32_t a, char32_t b) { return ignoring ? lower(a) == lower(b) : a == b; };
  std::vector<std::vector<char>> answer(m + 1, std::vector<char>(n + 1, 0));
  answer[m][n] = 1;
  for (std::size_t p = m; p-- > 0;) {
    for (std::size_t t = n + 1; t-- > 0;) {
      char& a = answer[p][t];
      if (pattern[p] == U'*') {
        a = p + 1 == m || answer[p + 1][t] || (t + 1 < n && answer[p][t + 1]);
      } else if (pattern[p] == U'\\') {
        a = p + 1 == m ? t == n : t < n && same(pattern[p + 1], text[t]) && answer[p + 2][t + 1];
      } else {
        a = t < n && (pattern[p] == U'?' || same(pattern[p], text[t])) && answer[p + 1][t + 1];
      }
    }
  }
  return answer[0][0] != 0;
}

}  // namespace Corvane::Print::tests::model

#endif
