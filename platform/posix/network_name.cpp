// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No drive here is mapped to a share.
#include "platform/platform.h"

namespace Corvane::Print::platform {

bool network_name(const CPWChar*, CPWChar*, int) {
  return false;
}

bool network_name(const char*, char*, int) {
  return false;
}

}  // namespace Corvane::Print::platform
