// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See locate.h.
#include "plotclip/locate.h"

namespace Corvane::Print::plotclip {

std::string find_fence_file(const std::string& name) {
  return name;
}

std::string resolve_output_name(const std::string& name) {
  return name;
}

}  // namespace Corvane::Print::plotclip
