// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The pool: the order in which nodes are taken, the switch from buffer to buffer, the restart, and what a
// failed request leaves behind. That the pool is unguarded against threads cannot be tested.
#include "clip/node_pool.h"

#include "tests/clip/clip_state.h"
#include "tests/support/area.h"
#include "tests/support/clip_call.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <iterator>
#include <memory>
#include <vector>

namespace Corvane::Print::tests {
namespace {

using clip::BufferTable;
using clip::CurBuf;
using clip::CurIdx;
using clip::kBufferNodes;
using clip::NodeMemory;

static_assert(std::size(BufferTable) == 129);
static_assert(kBufferNodes == 512);
static_assert(sizeof(clip::Cnode) >= sizeof(FencePolygon) && sizeof(clip::Cnode) >= sizeof(FenceVertex));

// A fence block that goes back to the heap, its nodes full of rubbish.
struct Block {
  explicit Block(int nodes) : at(clip::start_fence_block(nodes)) {
    std::memset(static_cast<void*>(at), 0xA5, static_cast<std::size_t>(nodes) * sizeof(clip::Cnode));
  }
  ~Block() {
    BufferTable[0] = clip::Cmemory{0, nullptr};
    platform::capi_free(at);
  }
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;
  clip::Cnode* at;
};

void take_vertices(int count) {
  for (int i = 0; i < count; ++i) ASSERT_NE(clip::take_vertex(), nullptr);
}

TEST(NodePool, AFenceBlockIsEntryZeroOfTheTable) {
  const Block block(7);
  ASSERT_NE(block.at, nullptr);
  EXPECT_EQ(CurBuf, 0);
  EXPECT_EQ(CurIdx, 0);
  EXPECT_EQ(NodeMemory, block.at);
  EXPECT_EQ(BufferTable[0].buffer, block.at);
  EXPECT_EQ(BufferTable[0].capacity, 7);
}

TEST(NodePool, NodesAreTakenOneBehindTheOther) {
  const Block block(4);
  EXPECT_EQ(&clip::take_header()->first, &block.at[0].polygon.first);
  EXPECT_EQ(&clip::take_vertex()->x, &block.at[1].vertex.x);
  EXPECT_EQ(CurIdx, 2);
  EXPECT_EQ(&clip::take_vertex()->x, &block.at[2].vertex.x);
  EXPECT_EQ(&clip::take_vertex()->x, &block.at[3].vertex.x);
  EXPECT_EQ(CurIdx, 4);
  EXPECT_EQ(CurBuf, 0);
}

TEST(NodePool, AHeaderIsZeroedWhenItIsTaken) {
  const Block block(2);
  const FencePolygon* header = clip::take_header();
  EXPECT_TRUE(header->first == nullptr && header->start == nullptr && header->nextPoly == nullptr);
  EXPECT_TRUE(header->lineClipper == nullptr && header->probe == nullptr);
  EXPECT_TRUE(header->totalPoints == 0 && header->vertexCount == 0 && header->containment == 0);
  EXPECT_TRUE(header->dim == 0 && header->clockwise == 0 && header->mode == 0 && header->overlap == 0);
  EXPECT_EQ(header->refCount, 0);
  EXPECT_EQ(header->area, 0.0);
  EXPECT_TRUE(header->extent.xmin == 0 && header->extent.ymin == 0 && header->extent.zmin == 0);
  EXPECT_TRUE(header->extent.xmax == 0 && header->extent.ymax == 0 && header->extent.zmax == 0);
}

TEST(NodePool, AVertexIsZeroedButForItsW) {
  const Block block(2);
  const FenceVertex* v = clip::take_vertex();
  EXPECT_TRUE(v->x == 0 && v->y == 0 && v->z == 0 && v->tolerance == 0);
  EXPECT_EQ(v->w, 1.0);
  EXPECT_TRUE(v->dx == 0 && v->dy == 0 && v->param == 0 && v->marker == 0 && v->marker2 == 0);
  EXPECT_TRUE(v->next == nullptr && v->next2 == nullptr && v->prev == nullptr && v->partner == nullptr);
}

TEST(NodePool, AFullBlockIsFollowedByTheFirstOverflowBuffer) {
  const Block block(2);
  take_vertices(2);
  EXPECT_EQ(CurBuf, 0);
  const FenceVertex* third = clip::take_vertex();
  EXPECT_EQ(CurBuf, 1);
  EXPECT_EQ(CurIdx, 1);
  EXPECT_EQ(NodeMemory, BufferTable[1].buffer);
  EXPECT_EQ(third, &NodeMemory[0].vertex);
  EXPECT_EQ(BufferTable[1].capacity, 512);
}

TEST(NodePool, AHeaderNeverTakesTheLastSlot) {
  {
    const Block block(2);
    take_vertices(1);
    const FencePolygon* header = clip::take_header();
    EXPECT_EQ(CurBuf, 1);
    EXPECT_EQ(header, &BufferTable[1].buffer[0].polygon);
  }
  ASSERT_TRUE(clip::restart_overflow());
  take_vertices(510);
  EXPECT_EQ(clip::take_header(), &BufferTable[1].buffer[510].polygon);  // the last but one it does take
  ASSERT_TRUE(clip::restart_overflow());
  take_vertices(511);
  const FencePolygon* in_the_next = clip::take_header();
  EXPECT_EQ(in_the_next, &BufferTable[2].buffer[0].polygon);
  ASSERT_TRUE(clip::restart_overflow());
  take_vertices(511);
  EXPECT_EQ(clip::take_vertex(), &BufferTable[1].buffer[511].vertex);  // which a vertex may take
}

TEST(NodePool, TheRestartGoesBackToTheFirstOverflowBuffer) {
  const Block block(3);
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(clip::restart_overflow());
    EXPECT_EQ(CurBuf, 1);
    EXPECT_EQ(CurIdx, 0);
    EXPECT_EQ(BufferTable[0].capacity, 0);
    EXPECT_EQ(NodeMemory, BufferTable[1].buffer);
    EXPECT_EQ(clip::take_vertex(), &BufferTable[1].buffer[0].vertex);
    take_vertices(600);
    EXPECT_EQ(CurBuf, 2);
  }
}

TEST(NodePool, OverflowBuffersAreKeptForReuse) {
  ASSERT_TRUE(clip::restart_overflow());
  take_vertices(4 * kBufferNodes);
  const clip::Cnode* fourth = BufferTable[4].buffer;
  ASSERT_TRUE(clip::restart_overflow());
  platform::capi_fail_after(-1);
  take_vertices(4 * kBufferNodes);
  EXPECT_EQ(platform::capi_fail_after(-1), 0);  // the heap was not asked
  EXPECT_EQ(BufferTable[4].buffer, fourth);
}

TEST(NodePool, BuffersGoOnBehindTheTable) {
  constexpr int kBuffers = 300;
  std::vector<FenceVertex*> taken;
  for (int round = 0; round < 2; ++round) {  // the second time on buffers that are there already
    ASSERT_TRUE(clip::restart_overflow());
    taken.clear();
    for (int i = 0; i < kBuffers * kBufferNodes; ++i) {
      FenceVertex* v = clip::take_vertex();
      ASSERT_NE(v, nullptr);
      v->x = i;
      taken.push_back(v);
    }
    EXPECT_EQ(CurBuf, kBuffers);
    for (int i = 0; i < kBuffers * kBufferNodes; ++i) ASSERT_EQ(taken[static_cast<std::size_t>(i)]->x, i);
    for (int i = 1; i < clip::kTableEntries; ++i) ASSERT_EQ(BufferTable[i].capacity, kBufferNodes);
  }
  ASSERT_TRUE(clip::restart_overflow());
  EXPECT_EQ(clip::take_vertex(), taken.front());
}

TEST(NodePool, NoMemoryForABlockLeavesThePoolAsItWas) {
  const FailurePlanEnds plan_ends;
  const Block block(5);
  take_vertices(2);
  platform::capi_fail_after(0);
  EXPECT_EQ(clip::start_fence_block(9), nullptr);
  EXPECT_EQ(BufferTable[0].buffer, block.at);
  EXPECT_EQ(BufferTable[0].capacity, 5);
  EXPECT_EQ(CurIdx, 2);
}

TEST(NodePool, ABlockBeyondTheAddressSpaceIsRefused) {
  const FailurePlanEnds plan_ends;
  platform::capi_fail_after(0);
  EXPECT_EQ(clip::start_fence_block(INT_MAX), nullptr);
  // Where the size does not fit, the heap is not even asked.
  EXPECT_EQ(platform::capi_fail_after(-1), sizeof(void*) == 4 ? 0 : 1);
}

TEST(NodePool, NoMemoryAtTheRestartIsReportedAndTheNextTryGoesOn) {
  const FailurePlanEnds plan_ends;
  release_overflow_buffers();
  platform::capi_fail_after(0);
  EXPECT_FALSE(clip::restart_overflow());
  EXPECT_FALSE(clip::restart_overflow());
  platform::capi_fail_after(-1);
  EXPECT_TRUE(clip::restart_overflow());
  EXPECT_NE(clip::take_vertex(), nullptr);
}

TEST(NodePool, NoMemoryForAHeaderIsNull) {
  const FailurePlanEnds plan_ends;
  release_overflow_buffers();
  ASSERT_TRUE(clip::restart_overflow());
  take_vertices(511);
  platform::capi_fail_after(0);
  EXPECT_EQ(clip::take_header(), nullptr);
  EXPECT_NE(clip::take_vertex(), nullptr);  // the last slot is still there
  EXPECT_EQ(clip::take_vertex(), nullptr);
  platform::capi_fail_after(-1);
  const FencePolygon* header = clip::take_header();
  EXPECT_EQ(header, &BufferTable[2].buffer[0].polygon);
}

// Each round lets one request succeed: either a buffer, or the room to list further buffers, after which the
// buffer itself fails. The room is doubled, so it must be met within as many buffers as there are already.
TEST(NodePool, NoMemoryBehindTheTableIsNullAndTheNextTryGoesOn) {
  const FailurePlanEnds plan_ends;
  ASSERT_TRUE(clip::restart_overflow());
  take_vertices(130 * kBufferNodes);
  platform::capi_fail_after(0);
  while (clip::take_vertex() != nullptr) continue;
  int lists_grown = 0;
  for (int rounds = CurBuf + 300; rounds > 0 && lists_grown == 0; --rounds) {
    const int full = CurBuf;
    platform::capi_fail_after(0);
    ASSERT_EQ(clip::take_vertex(), nullptr);
    ASSERT_EQ(CurBuf, full);
    ASSERT_EQ(CurIdx, kBufferNodes);
    platform::capi_fail_after(1);
    if (clip::take_vertex() == nullptr) {
      ++lists_grown;
      ASSERT_EQ(CurBuf, full);
      platform::capi_fail_after(-1);
      ASSERT_NE(clip::take_vertex(), nullptr);
    }
    ASSERT_EQ(CurBuf, full + 1);
    take_vertices(kBufferNodes - 1);
  }
  EXPECT_EQ(lists_grown, 1);
}

TEST(NodePool, ASubjectOf100000VerticesIsClippedRight) {
  const InForm plain(clip::Form::kPlain);  // the other one takes few nodes for it
  constexpr int kPoints = 100000;
  Ring subject;  // a wide comb: its upper side is jagged, so that a cut through it makes a piece per tooth
  for (int i = 0; i < kPoints / 2; ++i) subject.push_back({2.0 * i, 0, 0});
  for (int i = kPoints / 2 - 1; i >= 0; --i) subject.push_back({2.0 * i, i % 2 == 0 ? 10.0 : 20.0, 0});
  const double right = 2.0 * (kPoints / 2 - 1);
  const Fence around({{{-1, -1, 0}, {right + 1, -1, 0}, {right + 1, 21, 0}, {-1, 22, 0}}}, CL_KEEP_INSIDE);
  const Pieces whole = clip_polygon(around, subject);
  EXPECT_GT(CurBuf, clip::kTableEntries);
  EXPECT_EQ(whole.status, CL_OK);
  ASSERT_EQ(whole.rings.size(), 1u);
  EXPECT_EQ(whole.rings[0].size(), subject.size());
  EXPECT_EQ(kept_area(whole.rings), area(subject));

  const Fence above({{{-5, 15, 0}, {right + 5, 15, 0}, {right + 5, 30, 0}, {-5, 31, 0}}}, CL_KEEP_INSIDE);
  const Pieces tips = clip_polygon(above, subject);
  EXPECT_EQ(tips.status, CL_OK);
  EXPECT_TRUE(tips.canaries && tips.counted);
  EXPECT_EQ(tips.rings.size(), static_cast<std::size_t>(kPoints / 4));
  // A tip is 2 wide and 5 high; the rightmost is half of one.
  EXPECT_NEAR(kept_area(tips.rings), (kPoints / 4 - 0.5) * 5.0, 1e-3);
}

}  // namespace
}  // namespace Corvane::Print::tests
