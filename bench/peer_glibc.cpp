// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The C library's patterns: fnmatch and glob. No shared state.
#include "bench/peer.h"

#include <fnmatch.h>
#include <glob.h>
#include <gnu/libc-version.h>

#include <cstring>

namespace Corvane::Print::bench {
namespace {

struct Matching {
  Texts names;
  std::string pattern;
  long count = 0;
  void run() {
    count = 0;
    for (const std::string& name : names) {
      count += fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD) == 0 ? 1 : 0;
    }
  }
};

struct Enumeration {
  std::string pattern;
  Answer result = {};
  void run() {
    glob_t found;
    result = {0.0, 0, {}};
    if (glob(pattern.c_str(), 0, nullptr, &found) == 0) {
      result.pieces = static_cast<long>(found.gl_pathc);
      for (std::size_t i = 0; i < found.gl_pathc; ++i) {
        *result.measure += static_cast<double>(std::strlen(found.gl_pathv[i]));
      }
    }
    globfree(&found);
  }
};

class Glibc : public Peer {
public:
  std::string name() const override { return "glibc"; }
  std::string version() const override { return gnu_get_libc_version(); }

  Maybe match(const Texts& names, const std::string& pattern) const override {
    const auto in = std::make_shared<Matching>(Matching{names, pattern});
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return Answer{{}, in->count, {}}; }};
  }
  Maybe enumerate(const std::string& pattern) const override {
    const auto in = std::make_shared<Enumeration>(Enumeration{pattern});
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return in->result; }};
  }
};

const Glibc g_peer;
const KnownPeer g_known(g_peer);

}  // namespace
}  // namespace Corvane::Print::bench
