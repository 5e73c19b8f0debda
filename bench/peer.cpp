// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Shared state: the list of peers, complete before main begins.
#include "bench/peer.h"

#include <algorithm>

namespace Corvane::Print::bench {
namespace {

// Made when it is first needed, since the order in which source files are initialised is not known.
std::vector<const Peer*>& known_peers() {
  static std::vector<const Peer*> s_peers;
  return s_peers;
}

}  // namespace

KnownPeer::KnownPeer(const Peer& peer) {
  known_peers().push_back(&peer);
}

std::vector<const Peer*> peers() {
  std::vector<const Peer*> sorted = known_peers();
  std::sort(sorted.begin(), sorted.end(), [](const Peer* a, const Peer* b) { return a->name() < b->name(); });
  return sorted;
}

}  // namespace Corvane::Print::bench
