// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Another library: the tasks that it can do. Each adaptor is one source file, compiled only where its library
// was found, and makes itself known before main begins.
#ifndef CORVANE_PRINT_BENCH_PEER_H
#define CORVANE_PRINT_BENCH_PEER_H

#include "bench/generators.h"
#include "bench/job.h"

#include <optional>
#include <string>
#include <vector>

namespace Corvane::Print::bench {

struct Rectangle {
  Point low, high;
};

using Texts = std::vector<std::string>;

// What the list jobs keep: a key to sort by, and where it was in the input.
struct ListItem {
  std::int64_t key, number;
};
using ListItems = std::vector<ListItem>;
inline int by_key(const ListItem& a, const ListItem& b) {
  return a.key < b.key ? -1 : (a.key > b.key ? 1 : 0);
}
inline bool is_wanted(const ListItem& item) {
  return item.key % 10 == 0;
}
// Tells two lists apart when an item or their order differs.
Answer digest(const ListItems& items);

// Every task converts its inputs into the peer's own types before anything is timed, and leaves the result in
// them. The inputs stay valid as long as the entrant.
class Peer {
public:
  virtual ~Peer() = default;
  virtual std::string name() const = 0;
  virtual std::string version() const = 0;

  using Maybe = std::optional<Entrant>;
  virtual Maybe intersection(const Points&, const Points&) const { return {}; }
  virtual Maybe difference(const Points&, const Points&) const { return {}; }
  virtual Maybe line_in_rectangle(const Points&, const Rectangle&) const { return {}; }
  virtual Maybe line_in_polygon(const Points&, const Points&) const { return {}; }
  // How many of the probes lie inside the ring.
  virtual Maybe inside(const Points&, const Points&) const { return {}; }
  // Made ready for many questions, and the first of them; the answer is its width.
  virtual Maybe prepare_polygon(const Points&) const { return {}; }
  // With sharp corners.
  virtual Maybe grown(const Points&, double) const { return {}; }
  // The common area of each of the small subjects with the fence.
  virtual Maybe many(const std::vector<Points>&, const Points&) const { return {}; }

  // Row vectors of `order` doubles times a square matrix; the answer is the sum of all elements.
  virtual Maybe vectors_by_matrix(int, const std::vector<double>&, const std::vector<double>&) const {
    return {};
  }
  // The smallest and the largest coordinates of points of `dim` doubles.
  virtual Maybe extents(int, const std::vector<double>&) const { return {}; }
  // Square matrices of `order`, the first of the one list times the first of the other, and so on.
  virtual Maybe products(int, const std::vector<double>&, const std::vector<double>&) const { return {}; }

  // Directory, name and extension of paths; the answer is the number of their characters.
  virtual Maybe take_apart(const Texts&) const { return {}; }
  // And back again.
  virtual Maybe put_together(const Texts&) const { return {}; }
  // How many names match a pattern, ignoring case.
  virtual Maybe match(const Texts&, const std::string&) const { return {}; }
  // Whether one of the directories has the file.
  virtual Maybe search(const Texts&, const std::string&) const { return {}; }
  // The paths that match a pattern, in order; the answer is their number and that of their characters.
  virtual Maybe enumerate(const std::string&) const { return {}; }

  virtual Maybe append(const ListItems&) const { return {}; }
  virtual Maybe insert_in_order(const ListItems&) const { return {}; }
  virtual Maybe filter(const ListItems&) const { return {}; }
};

// In the order of their names.
std::vector<const Peer*> peers();

// An object of this type makes a peer known; the peer outlives main.
struct KnownPeer {
  explicit KnownPeer(const Peer& peer);
};

// Adds what each peer answers to `ask`.
template <class Ask>
void add_peers(std::vector<Entrant>& entrants, Ask ask) {
  for (const Peer* peer : peers()) {
    if (Peer::Maybe entrant = ask(*peer)) entrants.push_back(std::move(*entrant));
  }
}

}  // namespace Corvane::Print::bench

#endif
