// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Stands in for input_gdal.cpp where GDAL is not there; see input.h.
#include "plotclip/input.h"

namespace Corvane::Print::plotclip {

std::optional<Drawing> read_with_gdal(const std::string&) {
  return std::nullopt;
}

}  // namespace Corvane::Print::plotclip
