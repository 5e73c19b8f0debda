// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The search, path lists and specifications a second time, on string objects: plain, slow, and cut to 255
// characters wherever a buffer would end.
#ifndef CORVANE_PRINT_TESTS_FILESPEC_SEARCH_MODEL_H
#define CORVANE_PRINT_TESTS_FILESPEC_SEARCH_MODEL_H

#include <cwctype>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "corvane/print/fu.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests::search_model {

using Variables = std::map<WideText, WideText>;

inline WideText cut(const WideText& text) {
  return text.substr(0, 255);
}

struct Parts {
  WideText dev, dir, name, ext, ver;
};

inline Parts parse(const WideText& spec) {
  Parts parts;
  WideText rest = cut(spec);
  if (const auto at = rest.rfind(u';'); at != rest.npos) {
    parts.ver = rest.substr(at + 1);
    rest.resize(at);
  }
  if (const auto at = rest.find(u':'); at != rest.npos) {
    parts.dev = rest.substr(0, at);
    rest.erase(0, at + 1);
  }
  if (const auto at = rest.find_last_of(wide(U"/]\\")); at != rest.npos) {
    const bool kept = rest[at] == u']' || at == 0;
    parts.dir = rest.substr(0, kept ? at + 1 : at);
    if (!kept) {
      for (CPWChar& c : parts.dir) c = c == u'/' ? CPWChar(u'\\') : c;
    }
    rest.erase(0, at + 1);
  }
  const auto dot = rest.rfind(u'.');
  if (dot != rest.npos && dot + 1 == rest.size()) {
    parts.ext = wide(U".");
    rest.pop_back();
  } else if (dot != rest.npos && dot != 0) {
    parts.ext = rest.substr(dot + 1);
    rest.resize(dot);
  }
  parts.name = rest;
  return parts;
}

inline void add_character(WideText& text, CPWChar c) {
  if (!text.empty() && text.size() < 255 && text.back() != c) text += c;
}

inline WideText build(const Parts& parts) {
  WideText text = cut(parts.dev);
  if (!parts.dev.empty()) add_character(text, u':');
  text = cut(text + parts.dir);
  if (!parts.dir.empty() && !parts.name.empty()) add_character(text, u'\\');
  text = cut(text + parts.name);
  if (!parts.ext.empty() && parts.ext.front() != u'.') add_character(text, u'.');
  text = cut(text + parts.ext);
  if (!parts.ver.empty() && parts.ver.front() != u';') add_character(text, u';');
  return cut(text + parts.ver);
}

inline bool full_host(const WideText& spec) {
  const Parts parts = parse(spec);
  return parts.dir.starts_with(parts.dev.empty() ? wide(U"\\\\") : wide(U"\\"));
}

inline bool full_logical(const WideText& spec, const Variables& variables) {
  const Parts parts = parse(spec);
  const bool drive = parts.dev.size() == 1 && std::iswalpha(static_cast<wint_t>(parts.dev[0])) != 0 &&
                     !variables.contains(parts.dev);
  return full_host(spec) || variables.contains(cut(spec)) ||
         (!parts.dev.empty() && !drive && !parts.name.empty());
}

inline std::vector<WideText> elements(const WideText& list, const WideText& delimiters) {
  std::vector<WideText> all;
  WideText element;
  for (std::size_t i = 0; i <= list.size(); ++i) {
    if (i < list.size() && delimiters.find(list[i]) == delimiters.npos) {
      element += list[i];
    } else if (!element.empty()) {
      all.push_back(element);
      element.clear();
    }
  }
  return all;
}

// What the last two levels are; nothing when there are fewer.
inline std::optional<WideText> last_two_levels(const WideText& spec) {
  WideText trimmed = spec;
  const bool drive_root = trimmed.size() == 3 && trimmed[1] == u':';
  if (trimmed.size() > 1 && trimmed.back() == u'\\' && !drive_root) trimmed.pop_back();
  const auto last = trimmed.rfind(u'\\');
  if (last == trimmed.npos || last == 0) return std::nullopt;
  const auto before = trimmed.rfind(u'\\', last - 1);
  if (before == trimmed.npos) return std::nullopt;
  return spec.substr(before + 1);
}

struct Tried {
  int step;
  WideText candidate;
  bool found;
  bool operator==(const Tried&) const = default;
};

class Search {
public:
  Search(const Variables& variables, bool current_first, bool as_is,
         std::function<bool(const WideText&)> is_file)
      : variables_(variables), current_first_(current_first), as_is_(as_is), is_file_(std::move(is_file)) {}

  bool operator()(const WideText& ufs, const WideText& search_path, const WideText& def_ext,
                  const WideText& def_ver) {
    found.clear();
    tried.clear();
    before_.clear();
    return search(cut(ufs), search_path, cut(def_ext), cut(def_ver), 0);
  }

  WideText found;
  std::vector<Tried> tried;

private:
  bool exists(int step, const WideText& candidate) {
    if (candidate.empty()) return false;
    const bool hit = is_file_(candidate);
    tried.push_back({step, candidate, hit});
    if (hit) found = candidate;
    return hit;
  }

  bool search(const WideText& ufs, const WideText& search_path, const WideText& ext, const WideText& ver,
              int began) {
    for (const WideText& text : before_) {
      if (text == ufs) return false;
    }
    before_.push_back(ufs);
    const auto attempt = [&](int step, const WideText& text) {
      const int shown = began != 0 ? began : step;
      if (exists(shown, cut(text))) return true;
      Parts parts = parse(text);
      const Parts original = parts;
      if (parts.ext.empty()) parts.ext = ext;
      if (parts.ver.empty()) parts.ver = ver;
      if (parts.ext == original.ext && parts.ver == original.ver) return false;
      return exists(shown, build(parts));
    };
    const Parts own = parse(ufs);
    const auto placed = [&own](const WideText& dir) { return build({{}, dir, own.name, own.ext, {}}); };

    if (current_first_ && attempt(1, placed(wide(U".")))) return true;
    if ((as_is_ || full_logical(ufs, variables_)) && attempt(2, ufs)) return true;
    if (variables_.contains(ufs) && attempt(3, variables_.at(ufs))) return true;
    std::vector<WideText> lists;
    if (variables_.contains(own.dev)) lists.push_back(variables_.at(own.dev));
    lists.push_back(search_path);
    for (const WideText& list : lists) {
      for (const WideText& element : elements(list, wide(U";"))) {
        if (attempt(4, placed(element))) return true;
        WideText below = cut(element);
        add_character(below, u'\\');
        below = cut(below + own.dir);
        if (placed(below) != placed(element) && attempt(4, placed(below))) return true;
      }
    }
    if (!variables_.contains(wide(U"VX_PWP"))) return false;
    const auto levels = last_two_levels(ufs);
    if (full_host(ufs) && levels &&
        search(cut(wide(U"VX_PWP:") + *levels), {}, {}, {}, began != 0 ? began : 5))
      return true;
    if (ufs.empty() || full_logical(ufs, variables_)) return false;
    return search(placed(wide(U"VX_PWP:")), {}, {}, {}, began != 0 ? began : 6);
  }

  const Variables& variables_;
  bool current_first_;
  bool as_is_;
  std::function<bool(const WideText&)> is_file_;
  std::vector<WideText> before_;
};

}  // namespace Corvane::Print::tests::search_model

#endif
