// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Kpathsea. Shared state: its instance, which keeps the directories that it has seen. No configuration is
// needed: the paths are given.
#include "bench/peer.h"

#include <kpathsea/kpathsea.h>
#include <stdlib.h>

namespace Corvane::Print::bench {
namespace {

kpathsea instance() {
  static const kpathsea s_instance = [] {
    setenv("KPATHSEA_WARNING", "0", 1);  // that there is no configuration file
    const kpathsea made = kpathsea_new();
    // It looks for its program and gives up when there is none of that name.
    kpathsea_set_program_name(made, "/proc/self/exe", "corvane_bench");
    return made;
  }();
  return s_instance;
}

struct Search {
  std::string path, name;
  long found = 0;
  void run() {
    char* const file = kpathsea_path_search(instance(), path.c_str(), name.c_str(), false);
    found = file != nullptr ? 1 : 0;
    free(file);
  }
};

class Kpathsea : public Peer {
public:
  std::string name() const override { return "kpathsea"; }
  std::string version() const override {
    const std::string text = kpathsea_version_string;  // "kpathsea version 6.3.4"
    return text.substr(text.rfind(' ') + 1);
  }

  Maybe search(const Texts& directories, const std::string& file) const override {
    const auto in = std::make_shared<Search>(Search{{}, file});
    for (const std::string& directory : directories) in->path += (in->path.empty() ? "" : ":") + directory;
    // The first search of the instance reads its configuration, which makes it lose its place in the path.
    in->run();
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return Answer{{}, in->found, {}}; }};
  }
};

const Kpathsea g_peer;
const KnownPeer g_known(g_peer);

}  // namespace
}  // namespace Corvane::Print::bench
