// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Texts alone, no files: specifications taken apart and put together, and names against patterns. The wide
// form is ours, because it is the one that does the work; the narrow one converts.
#include "bench/folder.h"
#include "bench/ours.h"
#include "bench/peer.h"

#include "corvane/print/fu.h"
#include "corvane/print/str.h"

#include <cstdio>

namespace Corvane::Print::bench {
namespace {

constexpr int kNames = 1000;

Texts file_names() {
  Texts names;
  Random random(16);
  for (int i = 0; i < kNames; ++i) {
    char name[40];
    const auto digits = static_cast<unsigned long long>(random.draw() * 1e10);
    // 25 characters; of four one begins otherwise, and one is in capitals behind its dot.
    std::snprintf(name, sizeof name, "%s_%010llu_sheet.%s", i % 4 == 0 ? "draw" : "plot", digits,
                  i % 4 == 1 ? "PLT" : "plt");
    names.emplace_back(name);
  }
  return names;
}

std::vector<Wide> widened(const Texts& texts) {
  std::vector<Wide> result;
  for (const std::string& text : texts) result.push_back(wide(text));
  return result;
}

double length_of(const CPWChar* text) {
  return static_cast<double>(std::char_traits<CPWChar>::length(text));
}

// What is taken apart, and what is put together again.
struct Specifications {
  Texts paths;
  std::vector<Wide> wide_paths, names;
  Wide directory = wide("\\plots\\site\\2024"), extension = wide("plt");
  double characters = 0;

  Specifications() {
    for (const std::string& name : file_names()) {
      paths.push_back("/plots/site/2024/" + name);
      wide_paths.push_back(host_spec(paths.back()));
      names.push_back(wide(name.substr(0, name.find('.'))));
    }
  }
  void take_apart() {
    characters = 0;
    CPWChar dev[FU_WIDE], dir[FU_WIDE], name[FU_WIDE], ext[FU_WIDE], ver[FU_WIDE];
    for (const Wide& path : wide_paths) {
      FUParseUFSW(path.c_str(), dev, dir, name, ext, ver);
      characters += length_of(dir) + length_of(name) + length_of(ext);
    }
  }
  void take_apart_narrow() {
    characters = 0;
    char dev[FU_NARROW], dir[FU_NARROW], name[FU_NARROW], ext[FU_NARROW], ver[FU_NARROW];
    for (const std::string& path : paths) {
      FUParseUFS(path.c_str(), dev, dir, name, ext, ver);
      characters += static_cast<double>(std::string_view(dir).size() + std::string_view(name).size() +
                                        std::string_view(ext).size());
    }
  }
  void put_together() {
    characters = 0;
    CPWChar out[FU_WIDE];
    for (const Wide& name : names) {
      FUBuildLFSW(nullptr, directory.c_str(), name.c_str(), extension.c_str(), nullptr, out);
      characters += length_of(out);
    }
  }
  Answer answer() const { return {characters, {}, {}}; }
};

Prepared take_apart() {
  const auto in = std::make_shared<Specifications>();
  Specifications* const p = in.get();
  Prepared prepared = {
      in,
      {{kOurName, Kind::kOurs, [p] { p->take_apart(); }, [p] { return p->answer(); }},
       {"Corvane, narrow", Kind::kVariant, [p] { p->take_apart_narrow(); }, [p] { return p->answer(); }}}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.take_apart(in->paths); });
  return prepared;
}

Prepared put_together() {
  const auto in = std::make_shared<Specifications>();
  Specifications* const p = in.get();
  Prepared prepared = {in,
                       {{kOurName, Kind::kOurs, [p] { p->put_together(); }, [p] { return p->answer(); }}}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.put_together(in->paths); });
  return prepared;
}

struct Matching {
  Texts names;
  std::string pattern;
  std::vector<Wide> wide_names = widened(names);
  Wide wide_pattern = wide(pattern);
  long count = 0;

  void match() {
    count = 0;
    for (const Wide& name : wide_names) count += STRMatchPatternCIW(name.c_str(), wide_pattern.c_str());
  }
  void match_narrow() {
    count = 0;
    for (const std::string& name : names) count += STRMatchPatternCI(name.c_str(), pattern.c_str());
  }
  Answer answer() const { return {{}, count, {}}; }
};

Prepared match(Texts names, const std::string& pattern) {
  const auto in = std::make_shared<Matching>(Matching{std::move(names), pattern});
  Matching* const p = in.get();
  Prepared prepared = {
      in,
      {{kOurName, Kind::kOurs, [p] { p->match(); }, [p] { return p->answer(); }},
       {"Corvane, narrow", Kind::kVariant, [p] { p->match_narrow(); }, [p] { return p->answer(); }}}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.match(in->names, in->pattern); });
  return prepared;
}

}  // namespace

void add_name_jobs(Jobs& jobs, bool) {
  jobs.push_back({"names", "parse", 1, kNames, {}, take_apart});
  jobs.push_back({"names", "build", 1, kNames, {}, put_together});
  const std::string patterns[][2] = {{"match-suffix", "*.plt"},
                                     {"match-frame", "plot_*_sheet.p??"},
                                     {"match-stars", "*_*_*.*"},
                                     {"match-miss", "*t_*s*h*e*e*q"}};
  for (const auto& [task, pattern] : patterns) {
    jobs.push_back(
        {"names", task, 1, kNames, {}, [pattern = pattern] { return match(file_names(), pattern); }});
  }
  // What takes exponential time where every star is tried against everything that is left.
  const Texts same_letters(10, std::string(40, 'a'));
  jobs.push_back(
      {"names", "match-hostile", 1, 10, {}, [=] { return match(same_letters, "a*a*a*a*a*a*a*b"); }});
}

}  // namespace Corvane::Print::bench
