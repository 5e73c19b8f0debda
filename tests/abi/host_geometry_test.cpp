// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Calls every export of the GEOM, MAT and OL families once through the shared library, as a host does.
#include <gtest/gtest.h>

#include <vector>

#include "corvane/print/geom.h"
#include "corvane/print/mat.h"
#include "corvane/print/ol.h"

namespace {

using namespace Corvane::Print;
using Doubles = std::vector<double>;

int CORVANE_PRINT_CALL ascending(void* new_item, void* list_item, void* context) {
  ++*static_cast<int*>(context);
  return *static_cast<int*>(new_item) - *static_cast<int*>(list_item);
}

int CORVANE_PRINT_CALL is_context(void* item, void* context) {
  return *static_cast<int*>(item) == *static_cast<int*>(context) ? 1 : 0;
}

}  // namespace

TEST(HostGeometry, VectorsAndCornersAreComputed) {
  double a[] = {1, 2, 3}, b[] = {4, 5, 6}, sum[3] = {}, four[8] = {}, eight[24] = {};
  EXPECT_EQ(GEOMAddVector(3, a, b, sum), 0);
  EXPECT_EQ(sum[2], 9);
  EXPECT_EQ(GEOMComputeRectVerts(a, b, four), 0);
  EXPECT_EQ(Doubles(four, four + 8), (Doubles{1, 2, 4, 2, 4, 5, 1, 5}));
  EXPECT_EQ(GEOMComputeCubeVerts(a, b, eight), 0);
  EXPECT_EQ(Doubles(eight + 18, eight + 21), (Doubles{4, 5, 6}));
}

TEST(HostGeometry, PointsAreEnclosed) {
  double flat[2][2] = {{3, 1}, {2, 4}}, space[2][3] = {{3, 1, 9}, {2, 4, 8}}, low[3] = {}, high[3] = {};
  EXPECT_EQ(GEOMComputeMinEnclRect(2, flat, low, high), 0);
  EXPECT_EQ(Doubles(low, low + 2), (Doubles{2, 1}));
  EXPECT_EQ(GEOMComputeMinEnclCube(2, space, low, high), 0);
  EXPECT_EQ(Doubles(low, low + 3), (Doubles{2, 1, 8}));
  EXPECT_EQ(GEOMComputeCubeDiag(2, space[0], low, high), 0);
  EXPECT_EQ(Doubles(high, high + 3), (Doubles{3, 4, 9}));
}

TEST(HostGeometry, RectanglesAndBoxesAreIntersected) {
  double a1[] = {0, 0, 0}, a2[] = {10, 10, 10}, b1[] = {5, 6, 7}, b2[] = {15, 16, 17}, low[3] = {},
         high[3] = {};
  EXPECT_EQ(GEOMComputeRectIntersection(a1, a2, b1, b2, low, high), 1);
  EXPECT_EQ(Doubles(low, low + 2), (Doubles{5, 6}));
  EXPECT_EQ(GEOMComputeCubeIntersection(a1, a2, b1, b2, low, high), 1);
  EXPECT_EQ(Doubles(low, low + 3), (Doubles{5, 6, 7}));
}

TEST(HostGeometry, PointsAreJudged) {
  const double line[] = {0, 5, 1, 5, 2, 5};
  EXPECT_EQ(GEOMPointsEqual(2, 3, line), 0);
  EXPECT_EQ(GEOMPointsColinear(2, 3, line), 1);
  EXPECT_EQ(GEOMPointsParallelToAxis(GEOM_X_AXIS, 2, 3, line), 1);
  EXPECT_EQ(GEOMPointsParallelToPlane(GEOM_YZ_PLANE, 2, 3, line), 0);
  EXPECT_EQ(GEOMValueInRange(5, 4, 6), 1);
}

TEST(HostGeometry, PlotAreasAreChecked) {
  double area[] = {0, 0, 10, 0, 10, 5, 0, 5, 0, 0}, side[4] = {};
  EXPECT_EQ(GEOMCheckRect(2, 5, area), 1);
  EXPECT_EQ(GEOMCheckRectangularPlotArea(2, 5, area), 1);
  EXPECT_EQ(GEOMShapeFindLongestSide(2, 4, area, side), 0);
  EXPECT_EQ(Doubles(side, side + 4), (Doubles{0, 0, 10, 0}));
}

TEST(HostMatrix, PointsAreMovedAndMovedBack) {
  double shift[9], scale[9], turn[9], both[9], inverse[9], p[] = {1, 0, 1};
  EXPECT_EQ(MATBuildTransHMat(2, 5, 7, 0, shift), 0);
  EXPECT_EQ(MATBuildScaleHMat(2, 2, 4, 0, scale), 0);
  EXPECT_EQ(MATBuildRotAboutZHMat(2, 0, turn), 0);
  EXPECT_EQ(MATMulMatMat(3, scale, shift, both), 0);
  EXPECT_EQ(MATMulMatMat(3, both, turn, both), 0);
  EXPECT_EQ(MATMulVecMat(3, p, 1, both, p), 0);
  EXPECT_EQ(Doubles(p, p + 3), (Doubles{7, 7, 1}));

  EXPECT_EQ(MATBuildInvTransHMat(2, shift, inverse), 0);
  EXPECT_EQ(MATMulVecMat(3, p, 1, inverse, p), 0);
  EXPECT_EQ(MATBuildInvScaleHMat(2, scale, inverse), 0);
  EXPECT_EQ(MATMulVecMat(3, p, 1, inverse, p), 0);
  EXPECT_EQ(MATBuildInvRotHMat(2, turn, inverse), 0);
  EXPECT_EQ(MATMulVecMat(3, p, 1, inverse, p), 0);
  EXPECT_EQ(Doubles(p, p + 3), (Doubles{1, 0, 1}));
}

TEST(HostMatrix, FormsAreConverted) {
  double plain[] = {1, 2, 3, 4}, inverse[4], transposed[4], homogeneous[9], points[] = {1, 2, 3, 4, 0, 0};
  EXPECT_EQ(MATInvRotMat(2, plain, inverse), 0);
  EXPECT_EQ(MATTransposeMat(2, plain, transposed), 0);
  EXPECT_EQ(Doubles(inverse, inverse + 4), (Doubles{1, 3, 2, 4}));
  EXPECT_EQ(Doubles(transposed, transposed + 4), (Doubles{1, 3, 2, 4}));
  EXPECT_EQ(MATCvtMatToHomog(2, plain, homogeneous), 0);
  EXPECT_EQ(Doubles(homogeneous, homogeneous + 9), (Doubles{1, 2, 0, 3, 4, 0, 0, 0, 1}));
  MATConvertPtDimToHomog(2, 2, points, points);
  EXPECT_EQ(Doubles(points, points + 6), (Doubles{1, 2, 1, 3, 4, 1}));
  MATConvertPtHomogToDim(2, 2, points, points);
  EXPECT_EQ(Doubles(points, points + 4), (Doubles{1, 2, 3, 4}));
}

TEST(HostObjectList, AListIsKeptForAHost) {
  void* const list = OLCreate();
  ASSERT_NE(list, nullptr);
  int compared = 0;
  for (int number : {3, 1, 2}) {
    EXPECT_EQ(OLItemInsert(list, &number, sizeof number, ascending, &compared), OL_OK);
  }
  EXPECT_EQ(compared, 3);
  int count = 0;
  EXPECT_EQ(OLGetNumItems(list, &count), OL_OK);
  EXPECT_EQ(count, 3);

  void* item = nullptr;
  EXPECT_EQ(OLItemGetByIndex(list, 2, &item), OL_OK);
  EXPECT_EQ(*static_cast<int*>(item), 3);
  int wanted = 2, index = 0;
  EXPECT_EQ(OLItemGetByFilter(list, is_context, &wanted, &index, &item), OL_OK);
  EXPECT_EQ(index, 1);

  wanted = 9;
  EXPECT_EQ(OLItemSet(list, 1, &wanted, sizeof wanted), OL_OK);
  EXPECT_EQ(OLItemGetByFilter(list, is_context, &wanted, &index, nullptr), OL_OK);
  EXPECT_EQ(OLItemDelete(list, 1), OL_OK);
  EXPECT_EQ(OLItemGetByFilter(list, is_context, &wanted, &index, nullptr), OL_NOT_FOUND);
  EXPECT_EQ(OLClear(list), OL_OK);
  EXPECT_EQ(OLDestroy(list), OL_OK);
}
