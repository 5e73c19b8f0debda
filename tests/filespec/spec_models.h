// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The functions on specifications a second time: plain, slow, on strings of any length, for comparison.
#ifndef CORVANE_PRINT_TESTS_FILESPEC_SPEC_MODELS_H
#define CORVANE_PRINT_TESTS_FILESPEC_SPEC_MODELS_H

#include <algorithm>
#include <cwctype>
#include <utility>
#include <vector>

#include "tests/filespec/spec_support.h"

namespace Corvane::Print::tests {

struct SpecModel {
  using Text = WideText;
  using Result = std::pair<int, Text>;
  struct Parts {
    Text dev, dir, name, ext, ver;
    bool operator==(const Parts&) const = default;
  };

  Variables variables;

  static Text cut(const Text& text) { return text.substr(0, 255); }

  static void append_char(Text& text, char c) {
    if (text.empty() || text.size() >= 255 || text.back() == c) return;
    text += static_cast<CPWChar>(c);
  }

  static Parts parse(const Text& spec) {
    Parts parts;
    Text rest = cut(spec), before;
    if (std::count(rest.begin(), rest.end(), CPWChar{';'}) > 0) {
      while (rest.back() != ';') {
        parts.ver.insert(parts.ver.begin(), rest.back());
        rest.pop_back();
      }
      rest.pop_back();
    }
    if (std::count(rest.begin(), rest.end(), CPWChar{':'}) > 0) {
      while (rest.front() != ':') {
        parts.dev += rest.front();
        rest.erase(0, 1);
      }
      rest.erase(0, 1);
    }
    const auto separates = [](CPWChar c) { return c == '/' || c == '\\' || c == ']'; };
    Text tail;
    while (!rest.empty() && !separates(rest.back())) {
      tail.insert(tail.begin(), rest.back());
      rest.pop_back();
    }
    parts.dir = rest;
    if (rest.size() > 1 && rest.back() != ']') {
      parts.dir.pop_back();
      std::replace(parts.dir.begin(), parts.dir.end(), CPWChar{'/'}, CPWChar{'\\'});
    }
    split_name(tail, parts);
    return parts;
  }

  static int is_full_hfs(const Text& spec) {
    const Parts parts = parse(spec);
    const Text root = parts.dev.empty() ? w("\\\\") : w("\\");
    return parts.dir.substr(0, root.size()) == root ? 1 : 0;
  }

  bool defined(const Text& name) const {
    const auto found = variables.find(name);
    return found != variables.end() && !found->second.empty();
  }

  bool is_drive(const Text& dev) const {
    // What is a letter beyond ASCII is the runtime's affair.
    const bool letter =
        dev.size() == 1 && dev[0] < 0xD800 && std::iswalpha(static_cast<std::wint_t>(dev[0])) != 0;
    return letter && !defined(dev);
  }

  int is_full_lfs(const Text& spec) const {
    const Parts parts = parse(spec);
    const bool device = !parts.dev.empty() && !is_drive(parts.dev) && !parts.name.empty();
    return is_full_hfs(spec) == 1 || defined(cut(spec)) || device ? 1 : 0;
  }

  // The components may be of any length.
  static Result build(const Parts& parts) {
    Text spec = cut(parts.dev);
    append_char(spec, ':');
    spec = cut(spec + parts.dir);
    if (!parts.dir.empty() && !parts.name.empty()) append_char(spec, '\\');
    int status = 0;
    Text name = parts.name;
    const bool dotted = !parts.ext.empty() && parts.ext[0] == '.';
    const int extension = parts.ext.empty() ? 0 : static_cast<int>(parts.ext.size()) + (dotted ? 0 : 1);
    if (!name.empty() && static_cast<int>(name.size()) + extension > 513) {
      name = name.substr(0, static_cast<std::size_t>(std::max(0, std::min(255, 513 - extension))));
      status = 100;
    }
    spec = cut(spec + name);
    if (!parts.ext.empty() && !dotted) append_char(spec, '.');
    spec = cut(spec + parts.ext);
    if (!parts.ver.empty() && parts.ver[0] != ';') append_char(spec, ';');
    return {status, cut(spec + parts.ver)};
  }

  Result translate(const Text& lfs) const {
    const Text text = cut(lfs);
    if (defined(text)) return {0, cut(variables.at(text))};
    Parts parts = parse(text);
    if (parts.dev.empty() || is_drive(parts.dev)) return {0, text};
    if (!defined(parts.dev)) return {4, {}};
    Text value = cut(variables.at(parts.dev));
    value = value.substr(0, value.find(CPWChar{';'}));
    take_directory(value, parts);
    return {0, build(parts).second};
  }

  Result find_create(const Text& lfs, const Parts& defaults) const {
    const Result translated = translate(lfs);
    if (translated.first != 0) return translated;
    const Parts before = parse(translated.second);
    Parts parts = before;
    bool changed = false;
    if (parts.dev.empty() && !defaults.dev.empty()) {
      const Result device = translate(defaults.dev);
      if (device.first != 0) return {device.first, translated.second};
      if (device.second == cut(defaults.dev)) {
        parts.dev = device.second;
      } else {
        take_directory(device.second, parts);
      }
      changed = true;
    }
    for (Text Parts::*part : {&Parts::dir, &Parts::ext, &Parts::ver}) {
      if (!(parts.*part).empty() || (defaults.*part).empty()) continue;
      parts.*part = cut(defaults.*part);
      changed = true;
    }
    return changed ? Result{0, build(parts).second} : translated;
  }

  // `current` is the current directory as a host specification.
  static Result find_full(const Text& partial, const Text& current) {
    if (is_full_hfs(partial) == 1) return {0, cut(partial)};
    Parts here;
    take_directory(cut(current), here);
    Parts parts = parse(partial);
    parts.dev = here.dev;
    if (!partial.empty() && partial[0] == '\\') return {0, build(parts).second};
    std::vector<Text> path = levels(here.dir);
    for (const Text& step : levels(parts.dir)) {
      if (step == w("..") && path.empty()) return {1, {}};
      if (step == w("..")) {
        path.pop_back();
      } else if (step != w(".")) {
        path.push_back(step);
      }
    }
    parts.dir = here.dir.substr(0, 2) == w("\\\\") ? w("\\\\") : w("\\");
    for (const Text& level : path) parts.dir += level + w("\\");
    parts.dir = cut(parts.dir);
    return {0, build(parts).second};
  }

  static Text append_dir_sep(const Text& src) {
    Text path = cut(src);
    append_char(path, '\\');
    return path;
  }

  static Text append_comp(const Text& hfs, const Text& comp) { return cut(append_dir_sep(hfs) + comp); }

  // In a buffer that is large enough; the caller receives what fits into his.
  static Text remove_dir_sep(Text path) {
    const bool kept = path == w("\\") || (path.size() == 3 && path[1] == ':');
    if (!path.empty() && path.back() == '\\' && !kept) path.pop_back();
    return path;
  }

  static Result remove_comps(const Text& hfs, int count) {
    Text path = remove_dir_sep(hfs);
    if (count == 0) return {0, cut(path)};
    if (count < 0 || std::count(path.begin(), path.end(), CPWChar{'\\'}) < count) return {1, {}};
    for (;;) {
      if (path.back() == '\\' && --count == 0) return {0, cut(remove_dir_sep(path))};
      path.pop_back();
    }
  }

private:
  static void split_name(const Text& tail, Parts& parts) {
    const auto dots = std::count(tail.begin(), tail.end(), CPWChar{'.'});
    parts.name = tail;
    if (dots == 0 || (dots == 1 && tail.size() > 1 && tail[0] == '.')) return;
    parts.ext = tail.substr(tail.rfind(CPWChar{'.'}) + 1);
    parts.name = tail.substr(0, tail.size() - parts.ext.size() - 1);
    if (parts.ext.empty()) parts.ext = w(".");
  }

  // Device and directory of a text that names a directory.
  static void take_directory(Text directory, Parts& parts) {
    append_char(directory, '\\');
    const Parts parsed = parse(directory);
    parts.dev = parsed.dev;
    parts.dir = parsed.dir;
  }

  static std::vector<Text> levels(const Text& dir) {
    std::vector<Text> all;
    Text level;
    for (const CPWChar c : dir + w("\\")) {
      if (c != '\\') {
        level += c;
      } else if (!level.empty()) {
        all.push_back(std::exchange(level, {}));
      }
    }
    return all.size() <= 50 ? all : std::vector<Text>();
  }
};

}  // namespace Corvane::Print::tests

#endif
