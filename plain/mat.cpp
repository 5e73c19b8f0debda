// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plain names of the MAT family.
#include "corvane/print/mat.h"
#include "corvane/print/plain.h"

namespace Corvane::Plain {

namespace print = Corvane::Print;

int MATBuildTransHMat(int dim, double tx, double ty, double tz, double* m) {
  return print::MATBuildTransHMat(dim, tx, ty, tz, m);
}

int MATBuildScaleHMat(int dim, double sx, double sy, double sz, double* m) {
  return print::MATBuildScaleHMat(dim, sx, sy, sz, m);
}

int MATBuildRotAboutZHMat(int dim, double angle, double* m) {
  return print::MATBuildRotAboutZHMat(dim, angle, m);
}

int MATBuildInvTransHMat(int dim, double* m, double* inv) {
  return print::MATBuildInvTransHMat(dim, m, inv);
}

int MATBuildInvScaleHMat(int dim, double* m, double* inv) {
  return print::MATBuildInvScaleHMat(dim, m, inv);
}

int MATBuildInvRotHMat(int dim, double* m, double* inv) {
  return print::MATBuildInvRotHMat(dim, m, inv);
}

int MATInvRotMat(int dim, double* r, double* inv) {
  return print::MATInvRotMat(dim, r, inv);
}

int MATTransposeMat(int n, const double* m, double* t) {
  return print::MATTransposeMat(n, m, t);
}

int MATMulMatMat(int n, double* a, double* b, double* c) {
  return print::MATMulMatMat(n, a, b, c);
}

int MATMulVecMat(int n, double* vecs, int count, double* m, double* out) {
  return print::MATMulVecMat(n, vecs, count, m, out);
}

int MATCvtMatToHomog(int dim, double* r, double* h) {
  return print::MATCvtMatToHomog(dim, r, h);
}

void MATConvertPtDimToHomog(int dim, int count, const double* pts, double* hpts) {
  print::MATConvertPtDimToHomog(dim, count, pts, hpts);
}

void MATConvertPtHomogToDim(int dim, int count, const double* hpts, double* pts) {
  print::MATConvertPtHomogToDim(dim, count, hpts, pts);
}

}  // namespace Corvane::Plain
