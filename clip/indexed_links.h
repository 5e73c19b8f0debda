// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Links in the indexed form: small entries as they are found, and their numbers in the order of the subject
// and of each fence polygon's ring. The rings themselves are left alone; a walk goes from link to link and
// copies the points between.
//
// What it buys: two outlines of 100,000 points that cross 55,000 times cost a few megabytes, read mostly from
// front to back, where records on both rings cost 45.
#ifndef CORVANE_PRINT_CLIP_INDEXED_LINKS_H
#define CORVANE_PRINT_CLIP_INDEXED_LINKS_H

#include "clip/meeting.h"
#include "clip/polygon_links.h"
#include "clip/ring_walk.h"

#include <span>

namespace Corvane::Print::clip {

enum WhichRing { kOnSubject = 0, kOnFence = 1 };

inline WhichRing other_of(WhichRing ring) {
  return ring == kOnSubject ? kOnFence : kOnSubject;
}

// One link. Its point is the subject's, which is what is written.
struct Link {
  LinePoint point;
  RingPlace place[2];  // by WhichRing
  int fence;           // which of the linked fence polygons
  int turn[2];         // by WhichRing: its position in the order of that ring
  int bits;            // LinkMarker
};

// Links one subject ring with fence rings. Both must have an index.
class IndexedLinks final : public PolygonLinks {
public:
  // `limit` grows with every link: snapping may leave one a hair outside the subject.
  IndexedLinks(FencePolygon& subject, ClipExtent& limit)
      : subject_(subject), points_(*index_of(subject)), limit_(limit) {}
  ~IndexedLinks();
  IndexedLinks(const IndexedLinks&) = delete;
  IndexedLinks& operator=(const IndexedLinks&) = delete;

  void link_with(FencePolygon& fence, int number) override;
  void finish() override;
  int count() const override { return static_cast<int>(links_.size()); }
  bool contested() const override { return contested_; }
  int mark_crossings(FencePolygon& fence, int number) override;
  bool subject_lies_inside(FencePolygon& fence, int number) override;
  bool fence_lies_inside(FencePolygon& fence, int number) override;
  void emit_pieces(const FencePolygon& fence, long long most_steps, PieceSink& sink) override;

private:
  struct LinkedFence {
    PolygonIndex* index;
    int number;
    int begin, end;  // its links, in links_, in the order along fence rings and in by_fence_
  };
  using Numbers = platform::CapiVector<int>;

  Link& at(int link) { return links_[static_cast<std::size_t>(link)]; }
  const Link& at(int link) const { return links_[static_cast<std::size_t>(link)]; }

  // Finding (indexed_links).
  void connect(const Meeting& m, int e, int f);
  void put_in_order(WhichRing ring, int begin, int end, int edges);
  void list_by_fence();
  void find_contested();

  // Walking (indexed_links).
  const PolygonIndex& index_on(WhichRing ring, const Link& link) const;
  int next_on(WhichRing ring, int link) const;
  PointsBetween points_between(WhichRing ring, int link, int next) const;
  std::span<const int> links_with(int number, const Numbers& order) const;

  // Sides (indexed_sides).
  Side side_of_part(WhichRing ring, int from, int to, bool clockwise) const;
  bool share_an_edge(WhichRing ring, int from, int to) const;
  Side side_by_witness(WhichRing ring, int from, int to) const;
  Side side_of_ring(WhichRing ring, std::span<const int> links, bool clockwise) const;
  const LinePoint& point_on(WhichRing ring, const Link& link) const;
  void lead_records_through_links();
  void lead_records_past_links();

  // Pieces (indexed_pieces).
  int walk_start(const FencePolygon& fence) const;
  long long emit_piece(int start, long long most_steps, PieceSink& sink);

  FencePolygon& subject_;
  PolygonIndex& points_;  // of the subject
  ClipExtent& limit_;
  platform::CapiVector<Link> links_;  // as they were found
  platform::CapiVector<LinkedFence> fences_;
  Numbers order_[2];  // by WhichRing: links along the subject; along the fence's rings, one after the other
  Numbers by_fence_;  // links fence by fence, each in the order of the subject
  platform::CapiVector<FenceVertex> inserted_;  // see lead_records_through_links
  bool contested_ = false;
};

}  // namespace Corvane::Print::clip

#endif
