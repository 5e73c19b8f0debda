// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Plain names take and give what their namesakes do. That there is one for every function of the namespace is
// found out by tools/make-names, from the headers.
#include <gtest/gtest.h>

#include "corvane/print/cf.h"
#include "corvane/print/db.h"
#include "corvane/print/geom.h"
#include "corvane/print/mat.h"
#include "corvane/print/ol.h"
#include "corvane/print/plain.h"
#include "corvane/print/str.h"

namespace {

namespace plain = Corvane::Plain;
namespace print = Corvane::Print;

// Does not compile when the two differ. No template, since on 64-bit Windows a va_list has attributes that a
// template would ignore.
#define SAME(name) [[maybe_unused]] decltype(&plain::name) const same_##name = &print::name
#define SAME_PAIR(name) \
  SAME(name);           \
  SAME(name##W)

SAME(CFSetGetEnvVarCallback);
SAME_PAIR(CFGetenv);
SAME_PAIR(CFIsVariableDefined);
SAME(CFReleaseValue);

SAME(GEOMAddVector);
SAME(GEOMComputeRectVerts);
SAME(GEOMComputeCubeVerts);
SAME(GEOMComputeMinEnclRect);
SAME(GEOMComputeMinEnclCube);
SAME(GEOMComputeCubeDiag);
SAME(GEOMComputeRectIntersection);
SAME(GEOMComputeCubeIntersection);
SAME(GEOMPointsEqual);
SAME(GEOMPointsColinear);
SAME(GEOMPointsParallelToAxis);
SAME(GEOMPointsParallelToPlane);
SAME(GEOMValueInRange);
SAME(GEOMCheckRect);
SAME(GEOMCheckRectangularPlotArea);
SAME(GEOMShapeFindLongestSide);

SAME(MATBuildTransHMat);
SAME(MATBuildScaleHMat);
SAME(MATBuildRotAboutZHMat);
SAME(MATBuildInvTransHMat);
SAME(MATBuildInvScaleHMat);
SAME(MATBuildInvRotHMat);
SAME(MATInvRotMat);
SAME(MATTransposeMat);
SAME(MATMulMatMat);
SAME(MATMulVecMat);
SAME(MATCvtMatToHomog);
SAME(MATConvertPtDimToHomog);
SAME(MATConvertPtHomogToDim);

SAME(OLCreate);
SAME(OLDestroy);
SAME(OLClear);
SAME(OLGetNumItems);
SAME(OLItemInsert);
SAME(OLItemDelete);
SAME(OLItemSet);
SAME(OLItemGetByIndex);
SAME(OLItemGetByFilter);

SAME_PAIR(STRCompareCI);
SAME_PAIR(STRCompareCICount);
SAME_PAIR(STRMatchPattern);
SAME_PAIR(STRMatchPatternCI);
SAME_PAIR(STRDeleteChar);
SAME_PAIR(STRDeleteCharLead);
SAME_PAIR(STRDeleteCharTrail);
SAME_PAIR(STRExtractSubstr);
SAME_PAIR(STRInsertSubstr);
SAME_PAIR(STRLower);
SAME_PAIR(STRUpper);
SAME_PAIR(STRReplaceChar);
SAME_PAIR(STRReverse);
SAME_PAIR(STRDup);

// The wide messages differ, as plain.h tells.
SAME(DBMSG);
SAME(DBMSGVA);
SAME(DBERR);
SAME(DBERRVA);
SAME(DBATT);
SAME(DBHMSG);
SAME(DBCMSG);
SAME(DBBMSG);
SAME(DBPAUSE);
SAME(DBINP);
SAME(DBGETSA);
SAME(DBGETSW);
SAME(DBMEMDUMP);
SAME(DBSTRDUMP);
SAME(DBMB);
SAME(DBInitApp);
SAME(DBLBV);
SAME(DBLB);

}  // namespace

TEST(PlainNames, HaveTheSameConstants) {
  static_assert(static_cast<int>(plain::GEOM_X_AXIS) == print::GEOM_X_AXIS);
  static_assert(static_cast<int>(plain::GEOM_Y_AXIS) == print::GEOM_Y_AXIS);
  static_assert(static_cast<int>(plain::GEOM_XY_PLANE) == print::GEOM_XY_PLANE);
  static_assert(static_cast<int>(plain::GEOM_XZ_PLANE) == print::GEOM_XZ_PLANE);
  static_assert(static_cast<int>(plain::GEOM_YZ_PLANE) == print::GEOM_YZ_PLANE);
  const int plain_results[] = {plain::OL_OK,        plain::OL_BAD_INDEX, plain::OL_NOT_A_LIST,
                               plain::OL_NO_MEMORY, plain::OL_NOT_FOUND, plain::OL_EMPTY,
                               plain::OL_NO_FILTER};
  const int results[] = {print::OL_OK,        print::OL_BAD_INDEX, print::OL_NOT_A_LIST, print::OL_NO_MEMORY,
                         print::OL_NOT_FOUND, print::OL_EMPTY,     print::OL_NO_FILTER};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(plain_results[i], results[i]);
}
