// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The clip memory: growth, the raised request, and what is left after memory ran out.
#include "clip/clip_memory.h"

#include "platform/capi_memory.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <cstring>

namespace Corvane::Print::tests {
namespace {

// A record that gives its arrays back as a host does.
struct Memory {
  CLclpMemType record = {3, 25, 0, nullptr, 150, 0, nullptr};
  Memory() = default;
  Memory(const Memory&) = delete;
  Memory& operator=(const Memory&) = delete;
  ~Memory() {
    std::free(record.counts);
    std::free(record.points);
    platform::capi_fail_after(-1);
  }
};

// Writes everything that must be there, the spare entries included: a sanitizer finds what is not.
void fill(CLclpMemType& record) {
  std::memset(record.counts, 1, (static_cast<std::size_t>(record.polyCapacity) + 1) * sizeof(int));
  std::memset(record.points, 1, (static_cast<std::size_t>(record.pointCapacity) + 1) * 3 * sizeof(double));
}

TEST(ClipMemory, FirstCallAllocatesTheRequestAndASpareEntry) {
  Memory m;
  EXPECT_EQ(CLreallocClpMem(&m.record), CL_OK);
  EXPECT_EQ(m.record.polyRequest, 25);
  EXPECT_EQ(m.record.polyCapacity, 25);
  EXPECT_EQ(m.record.pointRequest, 150);
  EXPECT_EQ(m.record.pointCapacity, 150);
  ASSERT_TRUE(m.record.counts != nullptr && m.record.points != nullptr);
  fill(m.record);
}

TEST(ClipMemory, SmallerRequestIsRaisedToTheCapacity) {
  Memory m;
  ASSERT_EQ(CLreallocClpMem(&m.record), CL_OK);
  int* counts = m.record.counts;
  double* points = m.record.points;
  for (const int request : {24, 1, 0, -1, INT_MIN}) {
    m.record.polyRequest = m.record.pointRequest = request;
    EXPECT_EQ(CLreallocClpMem(&m.record), CL_OK);
    EXPECT_EQ(m.record.polyRequest, 25);
    EXPECT_EQ(m.record.pointRequest, 150);
  }
  EXPECT_EQ(m.record.counts, counts);
  EXPECT_EQ(m.record.points, points);
}

TEST(ClipMemory, GrowthKeepsTheContentsAndTheOtherArray) {
  Memory m;
  ASSERT_EQ(CLreallocClpMem(&m.record), CL_OK);
  fill(m.record);
  m.record.pointRequest = 100000;
  m.record.polyRequest = 3;
  const int* counts = m.record.counts;
  ASSERT_EQ(CLreallocClpMem(&m.record), CL_OK);
  EXPECT_EQ(m.record.counts, counts);
  EXPECT_EQ(m.record.polyRequest, 25);
  EXPECT_EQ(m.record.pointRequest, 100000);
  EXPECT_EQ(m.record.pointCapacity, 100000);
  double kept;
  std::memset(&kept, 1, sizeof(kept));
  EXPECT_EQ(m.record.points[449], kept);
  fill(m.record);
}

TEST(ClipMemory, NullRecordIsABadArgument) {
  EXPECT_EQ(CLreallocClpMem(nullptr), CL_BAD_ARGUMENT);
}

TEST(ClipMemory, NoMemoryForCountsLeavesThemNullAndThePointsAlone) {
  Memory m;
  ASSERT_EQ(CLreallocClpMem(&m.record), CL_OK);
  m.record.polyRequest = 1000;
  m.record.pointRequest = 1000;
  platform::capi_fail_after(0);
  EXPECT_EQ(CLreallocClpMem(&m.record), CL_NO_MEMORY);
  EXPECT_EQ(platform::capi_fail_after(-1), 1);
  EXPECT_EQ(m.record.counts, nullptr);
  EXPECT_EQ(m.record.polyCapacity, 0);
  EXPECT_NE(m.record.points, nullptr);
  EXPECT_EQ(m.record.pointCapacity, 150);
  EXPECT_EQ(CLreallocClpMem(&m.record), CL_OK);  // the request still stands
  EXPECT_EQ(m.record.polyCapacity, 1000);
  fill(m.record);
}

TEST(ClipMemory, NoMemoryForPointsLeavesThemNullAndTheCountsGrown) {
  Memory m;
  platform::capi_fail_after(1);
  EXPECT_EQ(CLreallocClpMem(&m.record), CL_NO_MEMORY);
  EXPECT_NE(m.record.counts, nullptr);
  EXPECT_EQ(m.record.polyCapacity, 25);
  EXPECT_EQ(m.record.points, nullptr);
  EXPECT_EQ(m.record.pointCapacity, 0);
}

TEST(ClipMemory, TheLargestRequestDoesNotWrap) {
  Memory m;
  ASSERT_EQ(CLreallocClpMem(&m.record), CL_OK);
  m.record.pointRequest = INT_MAX;
  platform::capi_fail_after(0);
  EXPECT_EQ(CLreallocClpMem(&m.record), CL_NO_MEMORY);
  // Where the size does not fit the address space, the heap is not even asked.
  EXPECT_EQ(platform::capi_fail_after(-1), sizeof(void*) == 4 ? 0 : 1);
  EXPECT_EQ(m.record.points, nullptr);
  EXPECT_EQ(m.record.pointCapacity, 0);
  m.record.polyRequest = INT_MAX;
  platform::capi_fail_after(0);
  EXPECT_EQ(CLreallocClpMem(&m.record), CL_NO_MEMORY);
  EXPECT_EQ(m.record.counts, nullptr);
}

TEST(ClipMemory, ANegativeCapacityIsNoRoom) {
  Memory m;
  m.record = {3, -2, -5, nullptr, -2, -5, nullptr};
  EXPECT_EQ(CLreallocClpMem(&m.record), CL_OK);
  EXPECT_EQ(m.record.polyRequest, 0);
  EXPECT_EQ(m.record.pointRequest, 0);
  EXPECT_EQ(m.record.counts, nullptr);
  EXPECT_EQ(m.record.points, nullptr);
}

TEST(ClipMemory, TheSharedRecordsAreThreeDimensional) {
  EXPECT_EQ(clip::clipMem1.dim, 3);
  EXPECT_EQ(clip::clipMem2.dim, 3);
}

}  // namespace
}  // namespace Corvane::Print::tests
