// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// <autoInc?digits=D?base=B>: the token in an output name that stands for the next free number. Names are
// tried one after the other against the file system; between a try and the use of the name somebody else may
// take it. No shared state.
#include "filespec/auto_increment.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cwctype>
#include <initializer_list>
#include <optional>

#include "corvane/print/fu.h"
#include "corvane/print/str.h"
#include "filespec/bounded.h"
#include "filespec/text.h"
#include "platform/platform.h"

namespace Corvane::Print {
namespace {

using filespec::WideBuffer;
using filespec::WideView;

// KEEP(file-name-characters): / is among the characters that no file name may have, \ and : are not.
// Looks wrong; C:/a/b becomes C:ab, and hosts write their directories with \. Pinned by
// InvalidFileNameCharacters.SlashesGoBackslashesAndColonsStay.
const CPWChar* const s_invalidFileNameChars = W_("/?<>*|\"");

constexpr int kMostDigits = 3;
constexpr int kTries = 1000;

// A specification taken apart at its token.
struct Token {
  WideView prefix;
  WideView suffix;
  int digits = kMostDigits;
  int base = 0;
};

// The text's first place where one of `ends` stands, or its end.
std::size_t end_of_value(WideView text, const CPWChar* ends) {
  return std::min(text.size(), text.find_first_of(ends));
}

// Blanks, a sign, decimal digits; what follows them is not looked at. Nothing when there is no digit. A
// number that is too large for an int counts as the largest one, or the smallest.
std::optional<int> number_in(WideView text) {
  while (!text.empty() && std::iswspace(static_cast<std::wint_t>(text.front()))) text.remove_prefix(1);
  const bool negative = text.starts_with(W_("-"));
  if (negative || text.starts_with(W_("+"))) text.remove_prefix(1);
  const auto is_digit = [](CPWChar c) { return c >= '0' && c <= '9'; };
  if (text.empty() || !is_digit(text.front())) return std::nullopt;
  long long number = 0;
  for (; !text.empty() && is_digit(text.front()); text.remove_prefix(1))
    number = std::min(number * 10 + (text.front() - '0'), static_cast<long long>(INT_MAX) + 1);
  number = negative ? -number : std::min<long long>(number, INT_MAX);
  return static_cast<int>(number);
}

// Takes NAME=VALUE off the text when it begins with that name (NAME= given); the value may be no number.
bool take_attribute(WideView& text, const CPWChar* name, std::optional<int>& value) {
  const std::size_t length = WideView(name).size();
  if (STRCompareCICountW(text.data(), name, static_cast<int>(length)) != 0) return false;
  text.remove_prefix(length);
  const std::size_t end = end_of_value(text, W_(">?"));
  value = number_in(text.substr(0, end));
  text.remove_prefix(end);
  return true;
}

// The first token of a specification; it ends with > or with the text.
//   spec      zero-terminated
std::optional<Token> find_token(WideView spec) {
  const WideView start(W_("<autoInc"));
  const std::size_t at = spec.find(start);
  if (at == WideView::npos) return std::nullopt;
  Token token{.prefix = spec.substr(0, at), .suffix = {}};
  WideView rest = spec.substr(at + start.size());
  while (!rest.empty() && rest.front() != '>') {
    const bool attribute = rest.front() == '?';
    rest.remove_prefix(1);
    std::optional<int> value;
    if (!attribute) continue;
    if (take_attribute(rest, W_("digits="), value)) {
      if (value) token.digits = std::clamp(*value, 1, kMostDigits);
    } else if (take_attribute(rest, W_("base="), value)) {
      if (value) token.base = *value;
    }
  }
  token.suffix = rest.empty() ? rest : rest.substr(1);
  return token;
}

// The pieces one behind the other, cut to the buffer.
void join(std::initializer_list<WideView> pieces, CPWChar* out) {
  std::size_t length = 0;
  for (const WideView piece : pieces) {
    const std::size_t kept = std::min(piece.size(), filespec::kLongest - length);
    std::copy_n(piece.data(), kept, out + length);
    length += kept;
  }
  out[length] = 0;
}

void put_candidate(const Token& token, long long number, CPWChar* out) {
  char narrow[24];
  CPWChar text[24];
  const int length = std::snprintf(narrow, sizeof narrow, "%0*lld", token.digits, number);
  std::copy_n(narrow, length, text);
  join({token.prefix, {text, static_cast<std::size_t>(length)}, token.suffix}, out);
  FURemoveInvalidFileNameCharacters(out);
}

// KEEP(auto-increment-reuse): when all names exist, the first one is used again.
// Looks wrong; a plot is written all the same, and operators clear their output folders by it. Pinned by
// AutoIncrement.TheFirstNameIsReusedWhenAllExist.
void put_first_free(const Token& token, CPWChar* out) {
  for (long long number = token.base; number < static_cast<long long>(token.base) + kTries; ++number) {
    put_candidate(token, number, out);
    if (!platform::host_file_exists(out)) return;
  }
  put_candidate(token, token.base, out);
}

// At most `capacity` characters, of which the last is always a terminator.
void store(const WideBuffer& work, CPWChar* spec, int capacity) {
  std::copy_n(static_cast<const CPWChar*>(work), std::min(work.length() + 1, capacity), spec);
  spec[capacity - 1] = 0;
}

}  // namespace

bool FURemoveInvalidFileNameCharacters(CPWChar* s) {
  if (s == nullptr) return false;
  const WideView invalid(s_invalidFileNameChars);
  CPWChar* const end = s + WideView(s).size();
  CPWChar* const kept =
      std::remove_if(s, end, [invalid](CPWChar c) { return invalid.find(c) != WideView::npos; });
  *kept = 0;
  return kept != end;
}

}  // namespace Corvane::Print

void FUResolveAutoIncToken(CPWChar* spec, int capacity) {
  using namespace Corvane::Print;
  if (spec == nullptr || capacity < 1) return;
  WideBuffer work;
  bool changed = false;
  if (const std::optional<Token> token = find_token(WideView(spec))) {
    put_first_free(*token, work);
    changed = true;
  } else {
    work.set(spec);
    changed = FURemoveInvalidFileNameCharacters(work);
  }
  if (changed) store(work, spec, capacity);
}
