// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Hosts on 32-bit Windows align their stack to 4 bytes, and vector instructions fault on what is not aligned
// to 16. So the exports that use them are called from stacks of every alignment. Part of the tests on 32-bit
// x86.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "corvane/print/cl.h"
#include "corvane/print/geom.h"
#include "corvane/print/mat.h"

namespace {

using namespace Corvane::Print;
using Words = std::vector<std::uint32_t>;

template <class T>
std::uint32_t word(T* pointer) {
  return reinterpret_cast<std::uint32_t>(pointer);
}

// Calls a function whose arguments are these words while the stack is `offset` bytes off an alignment of 16.
template <class Function>
int call_with_stack(std::uint32_t offset, Function* function, const Words& arguments) {
  const std::uint32_t below = 4 * static_cast<std::uint32_t>(arguments.size()) + offset;
  auto result = reinterpret_cast<std::uint32_t>(function);
  std::uint32_t count = arguments.size(), from = word(arguments.data()), off = offset;
  asm volatile(
      "movl %%esp, %%ebx\n\t"
      "subl %[below], %%esp\n\t"
      "andl $-16, %%esp\n\t"
      "addl %%edx, %%esp\n\t"
      "movl %%esp, %%edi\n\t"
      "cld\n\t"
      "rep movsl\n\t"
      "call *%%eax\n\t"
      "movl %%ebx, %%esp"
      : "+a"(result), "+c"(count), "+S"(from), "+d"(off)
      : [below] "m"(below)
      : "ebx", "edi", "memory", "cc", "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7");
  return static_cast<int>(result);
}

class HostStack : public testing::TestWithParam<std::uint32_t> {
protected:
  template <class Function>
  int call(Function* function, const Words& arguments) {
    return call_with_stack(GetParam(), function, arguments);
  }
};

TEST_P(HostStack, LinesAreClipped) {
  double corners[] = {0, 0, 10, 10}, out[400] = {};
  std::vector<double> line;
  for (int i = 0; i < 100; ++i) {
    line.push_back(i % 7 * 3 - 5);
    line.push_back(i % 5 * 4 - 3);
  }
  int two = 2, pieces = 200, points = 200, counts[200] = {};
  CLFenceHandle fence = nullptr;
  ASSERT_EQ(CLdefFence(&fence, 2, 1, &two, corners, 0.0, 0.0, 2), CL_OK);
  EXPECT_EQ(call(CLclipLine, {word(fence), 2, 100, word(line.data()), word(&pieces), word(counts), word(out),
                              word(&points)}),
            CL_OK);
  EXPECT_GT(pieces, 10);
  CLdeleteFence(fence);
}

TEST_P(HostStack, PolygonsAndLinesAreClippedByAManySidedFence) {
  std::vector<double> zigzag, strip;
  for (int i = 0; i < 50; ++i) {
    zigzag.push_back(i * 10);
    zigzag.push_back(i % 2 * 50);
    strip.push_back(i * 10 + 3);
    strip.push_back(i % 2 * 5 + 20);
  }
  for (std::vector<double>* ring : {&zigzag, &strip}) {
    for (const double back : {490.0, -5.0, 0.0, -5.0}) ring->push_back(back);
  }
  int count = 52;
  CLFenceHandle fence = nullptr;
  ASSERT_EQ(CLdefFence(&fence, 2, 1, &count, zigzag.data(), 0.0, 0.0, 2), CL_OK);
  for (const auto clip : {CLclipPolygon, CLclipLine}) {
    std::vector<double> out(2000);
    int pieces = 200, points = 900, counts[200] = {};
    EXPECT_EQ(call(clip, {word(fence), 2, 52, word(strip.data()), word(&pieces), word(counts),
                          word(out.data()), word(&points)}),
              CL_OK);
    EXPECT_EQ(points, clip == CLclipPolygon ? 101 : 76);
  }
  CLdeleteFence(fence);
}

TEST_P(HostStack, PolygonsAreGrown) {
  double ring[] = {0, 0, 10, 0, 10, 10, 0, 10}, grown[8] = {};
  const double distance = 1;
  std::uint32_t halves[2];
  std::memcpy(halves, &distance, sizeof halves);
  int four = 4;
  EXPECT_EQ(call(CLGrowPolygons, {2, 1, word(&four), word(ring), halves[0], halves[1], word(grown)}), CL_OK);
  EXPECT_EQ(grown[4], 11);
}

TEST_P(HostStack, RowsAndMatricesAreMultiplied) {
  for (std::uint32_t n = 2; n <= 4; ++n) {
    double rows[16] = {1, 2, 3, 4, 5, 6, 7, 8}, m[16] = {1, 2, 3, 4, 5, 6, 7, 8}, out[16] = {};
    EXPECT_EQ(call(MATMulVecMat, {n, word(rows), 2, word(m), word(out)}), 0);
    EXPECT_NE(out[0], 0);
    EXPECT_EQ(call(MATMulMatMat, {n, word(rows), word(m), word(m)}), 0);
    EXPECT_EQ(m[0], out[0]);
  }
}

TEST_P(HostStack, CoordinatesAreTakenTogether) {
  double points[60], low[3] = {}, high[3] = {}, sum[60] = {};
  for (int i = 0; i < 60; ++i) points[i] = i;
  EXPECT_EQ(call(GEOMComputeMinEnclRect, {30, word(points), word(low), word(high)}), 0);
  EXPECT_EQ(high[1], 59);
  EXPECT_EQ(call(GEOMComputeCubeDiag, {20, word(points), word(low), word(high)}), 0);
  EXPECT_EQ(high[2], 59);
  EXPECT_EQ(call(GEOMAddVector, {60, word(points), word(points), word(sum)}), 0);
  EXPECT_EQ(sum[59], 118);
}

INSTANTIATE_TEST_SUITE_P(EveryAlignment, HostStack, testing::Values(0u, 4u, 8u, 12u));

}  // namespace
