// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the functions on ports, network names and tokens must do, a second time, on string objects: by looking
// at whole texts, groups and pieces instead of stepping through characters.
#ifndef CORVANE_PRINT_TESTS_FILESPEC_NAMES_MODELS_H
#define CORVANE_PRINT_TESTS_FILESPEC_NAMES_MODELS_H

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <cwctype>
#include <functional>
#include <string>
#include <vector>

#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests::model {

inline constexpr std::size_t kNowhere = WideText::npos;

inline WideText cut(const WideText& text) {
  return text.substr(0, 255);
}

inline bool all_digits(const WideText& text) {
  return std::all_of(text.begin(), text.end(), [](CPWChar c) { return std::iswdigit(c) != 0; });
}

struct Parts {
  WideText dev, dir, name, ext;
};

inline Parts parse(const WideText& spec) {
  Parts parts;
  WideText rest = cut(spec);
  rest = rest.substr(0, rest.rfind(';'));
  if (const std::size_t colon = rest.find(':'); colon != kNowhere) {
    parts.dev = rest.substr(0, colon);
    rest = rest.substr(colon + 1);
  }
  if (const std::size_t at = rest.find_last_of(wide(U"/]\\")); at != kNowhere) {
    parts.dir = rest.substr(0, at + 1);
    if (at != 0 && rest[at] != ']') {
      parts.dir.pop_back();
      std::replace(parts.dir.begin(), parts.dir.end(), static_cast<CPWChar>('/'), static_cast<CPWChar>('\\'));
    }
    rest = rest.substr(at + 1);
  }
  const std::size_t dot = rest.rfind('.');
  if (dot != kNowhere && dot + 1 == rest.size()) {
    parts.ext = wide(U".");
    rest.pop_back();
  } else if (dot != kNowhere && dot != 0) {
    parts.ext = rest.substr(dot + 1);
    rest = rest.substr(0, dot);
  }
  parts.name = rest;
  return parts;
}

inline bool is_port_name(const WideText& spec) {
  const WideText name = parse(spec).name;
  if (name.size() < 3 || name.size() > 6) return false;
  WideText letters = name.substr(0, 3);
  for (CPWChar& c : letters) c = static_cast<CPWChar>(std::towlower(c));
  WideText tail = name.substr(3);
  if (spec[name.size() - 1] == ':' && !tail.empty()) tail.pop_back();
  return letters == wide(U"lpt") && all_digits(tail);
}

inline bool is_unc_share(const WideText& spec) {
  if (spec.size() < 3 || spec[0] != '\\' || spec[1] != '\\') return false;
  return std::count(spec.begin() + 2, spec.end(), static_cast<CPWChar>('\\')) == 1;
}

// The pieces between the separators: one more than there are separators.
inline std::vector<WideText> split(const WideText& text, CPWChar separator) {
  std::vector<WideText> pieces(1);
  for (const CPWChar c : text) {
    if (c == separator) {
      pieces.emplace_back();
    } else {
      pieces.back() += c;
    }
  }
  return pieces;
}

inline bool is_ip_address(const WideText& spec) {
  const std::vector<WideText> groups = split(spec, '.');
  if (groups.size() != 4) return false;
  for (std::size_t i = 0; i < 4; ++i) {
    if (groups[i].empty() && i != 3) return false;
    if (groups[i].size() > 3 || !all_digits(groups[i])) return false;
  }
  return true;
}

inline bool is_pseudo_file(const WideText& spec) {
  return spec.find('<') != kNowhere || is_port_name(spec) || is_unc_share(spec) || is_ip_address(spec);
}

//   root      X:\, or nothing when there is no local drive
inline WideText modified_port(const WideText& port, const WideText& root) {
  WideText result = root + port;
  if (!root.empty() && result.back() == ':') result.pop_back();
  return cut(result);
}

inline WideText trimmed(const WideText& text) {
  const std::size_t dot = text.rfind('.');
  return dot == kNowhere ? text : text.substr(dot + 1);
}

// The network form of a specification whose drive is mapped to `share`.
inline WideText universal_name(const WideText& spec, WideText share) {
  const Parts parts = parse(spec);
  while (!share.empty() && share.back() == '\\') share.pop_back();
  WideText rest = parts.dir;
  if (!rest.empty() && !parts.name.empty() && rest.back() != '\\') rest += static_cast<CPWChar>('\\');
  rest += parts.name;
  if (!parts.ext.empty() && parts.ext[0] != '.' && !rest.empty() && rest.back() != '.')
    rest += static_cast<CPWChar>('.');
  rest += parts.ext;
  rest.erase(0, std::min(rest.size(), rest.find_first_not_of('\\')));
  return cut(share + static_cast<CPWChar>('\\') + rest);
}

inline bool is_invalid(CPWChar c) {
  return c != 0 && wide(U"/?<>*|\"").find(c) != kNowhere;
}

inline WideText without_invalid(const WideText& text) {
  WideText result;
  for (const CPWChar c : text) {
    if (!is_invalid(c)) result += c;
  }
  return result;
}

struct Attributes {
  int digits = 3;
  long long base = 0;
};

// The body of a token: attributes begin at each ? outside a value.
inline Attributes attributes_of(const WideText& body) {
  Attributes attributes;
  const std::vector<WideText> pieces = split(body, '?');
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    std::string text;
    for (const CPWChar c : pieces[i]) text += c < 128 ? static_cast<char>(std::tolower(c)) : '\x7F';
    for (const std::string name : {"digits=", "base="}) {
      if (text.compare(0, name.size(), name) != 0) continue;
      char* end = nullptr;
      const char* const begin = text.c_str() + name.size();
      const long long value = std::strtoll(begin, &end, 10);
      if (end == begin) continue;
      if (name == "base=") {
        attributes.base = std::clamp<long long>(value, INT_MIN, INT_MAX);
      } else {
        attributes.digits = static_cast<int>(std::clamp(value, 1LL, 3LL));
      }
    }
  }
  return attributes;
}

inline WideText padded(long long number, int digits) {
  std::string text = std::to_string(number < 0 ? -number : number);
  const std::size_t width = static_cast<std::size_t>(digits) - (number < 0 ? 1 : 0);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  if (number < 0) text.insert(0, 1, '-');
  return {text.begin(), text.end()};
}

// The specification after the call, for a capacity that holds it.
inline WideText resolved(const WideText& spec, const std::function<bool(const WideText&)>& exists) {
  const std::size_t at = spec.find(wide(U"<autoInc"));
  if (at == kNowhere) {
    const WideText work = cut(spec);
    return without_invalid(work) == work ? spec : without_invalid(work);
  }
  const std::size_t end = std::min(spec.size(), spec.find('>', at));
  const Attributes attributes = attributes_of(spec.substr(at + 8, end - at - 8));
  const WideText suffix = end < spec.size() ? spec.substr(end + 1) : WideText();
  const auto candidate = [&](long long number) {
    return without_invalid(cut(spec.substr(0, at) + padded(number, attributes.digits) + suffix));
  };
  for (int i = 0; i < 1000; ++i) {
    if (!exists(candidate(attributes.base + i))) return candidate(attributes.base + i);
  }
  return candidate(attributes.base);
}

}  // namespace Corvane::Print::tests::model

#endif
