// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Links of the indexed form: what is found, and that every question has the answer of the plain form.
#include "clip/indexed_links.h"

#include "clip/record_links.h"
#include "tests/clip/indexed_linking.h"
#include "tests/clip/random_input.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace Corvane::Print::tests {
namespace {

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};
const Ring kUpright = {{5, 5}, {5, 15}, {8, 15}, {8, 5}};  // crosses the upper side at x = 5 and x = 8

TEST(IndexedLinks, EveryMeetingIsALinkOnce) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  EXPECT_EQ(IndexedLinking(fence, kUpright).links.count(), 2);
  EXPECT_EQ(IndexedLinking(fence, {{0, 4}, {5, 8}, {5, 1}}).links.count(), 1);
  EXPECT_EQ(IndexedLinking(fence, kSquare).links.count(), 4);
  EXPECT_EQ(IndexedLinking(fence, {{3, 3}, {3, 5}, {5, 5}}).links.count(), 0);
}

// Three subject edges end at or pass the fence's corner (0, 0); the first to be found has it.
TEST(IndexedLinks, AVertexThatIsLinkedIsNotLinkedAgain) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  const Ring subject = {{-5, 0.000001}, {0, 0}, {5, -5}, {-5, 5}};
  clip::Subject plain;
  ClipExtent limit = clip::empty_extent();
  const int expected = [&] {
    clip::RecordLinks links(build(plain, fence, subject), limit);
    links.link_with(*fence.handle(), 0);
    links.finish();
    return links.count();
  }();
  EXPECT_EQ(IndexedLinking(fence, subject).links.count(), expected);
}

TEST(IndexedLinks, VerticesAreFreeAgainWhenTheLinksGo) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  const auto is_free = [](int link) { return link < 0; };
  for (int i = 0; i < 2; ++i) {
    IndexedLinking l(fence, kSquare);
    const auto& at = clip::index_of(l.fence)->links_at;
    ASSERT_EQ(at.size(), 4u);
    EXPECT_TRUE(std::none_of(at.begin(), at.end(), is_free));
    EXPECT_EQ(l.links.count(), 4);
  }
  const auto& at = clip::index_of(*fence.handle())->links_at;
  EXPECT_TRUE(std::all_of(at.begin(), at.end(), is_free));
}

TEST(IndexedLinks, NothingIsKeptForVerticesWhileNoneIsLinked) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  IndexedLinking l(fence, kUpright);
  EXPECT_TRUE(clip::index_of(l.fence)->links_at.empty());
  EXPECT_TRUE(clip::index_of(l.ring)->links_at.empty());
}

// A gap narrower than the snapping distance is none.
TEST(IndexedLinks, FencePolygonsThatMeetTheSubjectAtOnePlaceAreContested) {
  const auto contested = [](double gap, const Ring& subject) {
    const Ring right = {{5 + gap, 0}, {5 + gap, 10}, {9, 10}, {9, 0}};
    const Fence fence({{{0, 0}, {0, 10}, {5, 10}, {5, 0}}, right}, CL_KEEP_OUTSIDE);
    return IndexedLinking(fence, subject).links.contested();
  };
  const Ring across = {{3, 3}, {3, 4}, {7, 4}, {7, 3}};
  EXPECT_TRUE(contested(0, across));
  EXPECT_TRUE(contested(0.9e-5, across));
  EXPECT_FALSE(contested(1.1e-5, across));
  EXPECT_TRUE(contested(0, {{5, 5}, {3, 20}, {7, 20}}));
}

TEST(IndexedLinks, TheLimitGrowsByLinksOutsideTheSubject) {
  const Fence fence({{{0, 0}, {0, 10}, {10, 5}}}, CL_KEEP_INSIDE);
  IndexedLinking l(fence, {{2, 0}, {2, 20}, {9.999996, 20}, {9.999996, 0}});
  EXPECT_EQ(l.ring.extent.xmax, 9.999996);
  EXPECT_EQ(l.limit.xmax, 10);  // the fence's corner that the right edge snapped to
}

TEST(IndexedLinks, LackOfMemoryIsThrownAndLeavesTheRingsFree) {
  const FailurePlanEnds plan_ends;
  const InForm indexed(clip::Form::kIndexed);
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  ASSERT_NE(clip::fence_index(*fence.handle()), nullptr);
  clip::Subject subject(clip::Form::kIndexed);
  FencePolygon& ring = build(subject, fence, kSquare);
  int thrown = 0;
  for (long successes = 0;; ++successes) {
    ClipExtent limit = ring.extent;
    bool failed = false;
    {
      clip::IndexedLinks links(ring, limit);
      platform::capi_fail_after(successes);
      try {
        links.link_with(*fence.handle(), 0);
        links.finish();
        EXPECT_EQ(links.count(), 4);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
      platform::capi_fail_after(-1);
    }
    const auto& at = clip::index_of(*fence.handle())->links_at;
    EXPECT_TRUE(std::all_of(at.begin(), at.end(), [](int link) { return link < 0; }));
    if (!failed) break;
    ++thrown;
  }
  EXPECT_GE(thrown, 5);
}

// What all questions answer, as a text.
std::string answers(clip::PolygonLinks& links, FencePolygon& fence, const ClipExtent& limit) {
  std::string text;
  int number = 0, crossings = 0;
  for (FencePolygon* f = &fence; f != nullptr; f = f->nextPoly) links.link_with(*f, number++);
  links.finish();
  text += std::to_string(links.count()) + (links.contested() ? " contested" : "");
  text += text_of(Ring{{limit.xmin, limit.ymin}, {limit.xmax, limit.ymax}});
  number = 0;
  for (FencePolygon* f = &fence; f != nullptr; f = f->nextPoly, ++number) {
    const int with_f = links.mark_crossings(*f, number);
    crossings += with_f;
    text += " " + std::to_string(with_f);
    if (with_f > 0) continue;
    text += links.subject_lies_inside(*f, number) ? "i" : "o";
    text += links.fence_lies_inside(*f, number) ? "i" : "o";
  }
  PieceList sink;
  if (crossings > 0) links.emit_pieces(fence, 5000, sink);
  return text + text_of(sink.pieces) + text_of(sink.touches);
}

TEST(IndexedLinks, EveryQuestionHasTheAnswerOfThePlainForm) {
  constexpr std::uint64_t kSeed = 0x1DE6;
  std::printf("seeds: case_seed(0x%llx, i)\n", static_cast<unsigned long long>(kSeed));
  const InForm indexed(clip::Form::kIndexed);
  int linked = 0;
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(kSeed, i));
    Rings rings;
    for (int k = random.between(1, 3); k > 0; --k) {
      rings.push_back(moved(edge_case_ring(random, 2), random.between(-40, 40), 0));
    }
    const Fence fence(rings, random.between(1, 2));
    const Ring subject = edge_case_ring(random, 2);
    const std::vector<double> flat = flatten(subject, 2);
    std::string text[2];
    for (const clip::Form form : {clip::Form::kPlain, clip::Form::kIndexed}) {
      clip::Subject s(form);
      s.build(*fence.handle(), 2, static_cast<int>(subject.size()), flat.data());
      if (s.empty()) continue;
      FencePolygon& ring = **s.begin();
      ClipExtent limit = ring.extent;
      for (FencePolygon* f = fence.handle(); f != nullptr; f = f->nextPoly) {
        ASSERT_NE(clip::fence_index(*f), nullptr);
      }
      if (form == clip::Form::kPlain) {
        clip::RecordLinks links(ring, limit);
        text[0] = answers(links, *fence.handle(), limit);
        linked += links.count() > 0 ? 1 : 0;
      } else {
        clip::IndexedLinks links(ring, limit);
        text[1] = answers(links, *fence.handle(), limit);
      }
    }
    ASSERT_EQ(text[0], text[1]) << i;
  }
  EXPECT_GT(linked, scaled(5000));
}

}  // namespace
}  // namespace Corvane::Print::tests
