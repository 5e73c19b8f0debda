// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Files looked for along a list of directories, and the files of a directory that match. The floor is the
// system calls that the same answer needs, made with names that are there already.
#include "bench/folder.h"
#include "bench/ours.h"
#include "bench/peer.h"

#include "corvane/print/fu.h"

#include <dirent.h>
#include <sys/stat.h>

#include <benchmark/benchmark.h>

#include <cstdio>

namespace Corvane::Print::bench {
namespace {

constexpr const char* kName = "site-plan.plt";

struct Search {
  Folder folder;
  Texts directories, candidates;
  Wide list, name = wide(kName);
  long found = 0, found_bare = 0;

  explicit Search(int n) {
    for (int i = 0; i < n; ++i) {
      directories.push_back(folder.make_folder("drawings-" + std::to_string(i)));
      list += host_spec(directories.back()) + CPWChar(';');
    }
  }
  void place_file() { folder.make_file("drawings-" + std::to_string(directories.size() - 1) + "/" + kName); }

  void run() {
    CPWChar out[FU_WIDE];
    found = FUSearchUFSW(name.c_str(), list.c_str(), nullptr, nullptr, out) == FU_OK ? 1 : 0;
  }
  static void CORVANE_PRINT_CALL note(void* context, int, const CPWChar* candidate, int) {
    static_cast<Search*>(context)->candidates.push_back(path_of(candidate));
  }
  void note_candidates() {
    CPWChar out[FU_WIDE];
    FUSearchExplainW(name.c_str(), list.c_str(), nullptr, nullptr, out, note, this);
  }
  void run_bare() {
    found_bare = 0;
    for (const std::string& candidate : candidates) {
      struct stat status;
      if (stat(candidate.c_str(), &status) == 0 && S_ISREG(status.st_mode)) ++found_bare;
    }
  }
};

Prepared search(int n, bool placed) {
  const auto in = std::make_shared<Search>(n);
  Search* const p = in.get();
  if (placed) p->place_file();
  p->note_candidates();
  Prepared prepared = {in,
                       {{kOurName, Kind::kOurs, [p] { p->run(); },
                         [p] {
                           return Answer{{}, p->found, {}};
                         }},
                        {"bare calls", Kind::kBound, [p] { p->run_bare(); },
                         [p] {
                           return Answer{{}, p->found_bare, {}};
                         }}}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.search(in->directories, kName); });
  return prepared;
}

struct Enumeration {
  Folder folder;
  Wide pattern = host_spec(folder.path() + "/*.plt");
  Answer result;
  long names = 0;

  explicit Enumeration(int n) {
    for (int i = 0; i < n; ++i) {
      char name[40];
      std::snprintf(name, sizeof name, "drawing-%06d.%s", i, i % 2 == 0 ? "plt" : "dwg");
      folder.make_file(name);
    }
  }
  // The count, and the characters without the drive.
  void run() {
    CPWChar out[FU_WIDE];
    FUMatchLFSHandle* handle = nullptr;
    result = {0.0, 0, {}};
    int status = FUMatchLFSFirstW(pattern.c_str(), nullptr, nullptr, nullptr, nullptr, out, &handle);
    for (; status == FU_OK; status = FUMatchLFSNextW(&handle, out)) {
      *result.measure += static_cast<double>(std::char_traits<CPWChar>::length(out) - 2);
      ++*result.pieces;
    }
  }
  void run_bare() {
    DIR* const directory = opendir(folder.path().c_str());
    while (const dirent* const entry = readdir(directory)) benchmark::DoNotOptimize(entry);
    closedir(directory);
  }
};

Prepared enumerate(int n) {
  const auto in = std::make_shared<Enumeration>(n);
  Enumeration* const p = in.get();
  Prepared prepared = {in,
                       {{kOurName, Kind::kOurs, [p] { p->run(); }, [p] { return p->result; }},
                        {"bare calls", Kind::kBound, [p] { p->run_bare(); }, {}}}};
  add_peers(prepared.entrants,
            [&](const Peer& peer) { return peer.enumerate(in->folder.path() + "/*.plt"); });
  return prepared;
}

}  // namespace

void add_search_jobs(Jobs& jobs, bool quick) {
  for (const int n : {2, 10, 50, 200}) {
    if (quick && n > 10) break;
    jobs.push_back({"search", "found-in-last", n, 1, {{}, 1, {}}, [n] { return search(n, true); }});
  }
  for (const int n : {2, 10, 50, 200}) {
    if (quick && n > 10) break;
    jobs.push_back({"search", "not-found", n, 1, {{}, 0, {}}, [n] { return search(n, false); }});
  }
  for (const int n : {100, 1000, 10000}) {
    if (quick && n > 100) break;
    jobs.push_back({"enumeration", "matching", n, 1, {{}, n / 2, {}}, [n] { return enumerate(n); }});
  }
}

}  // namespace Corvane::Print::bench
