// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// plotclip: clips a drawing against a fence and writes what is kept.
#include "plotclip/plotclip.h"

int main(int argc, char** argv) {
  return Corvane::Print::plotclip::run(argc, argv);
}
