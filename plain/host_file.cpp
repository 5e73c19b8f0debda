// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The names of files, for hosts that open them by their own means.
#include "corvane/print/plain.h"
#include "platform/platform.h"

namespace Corvane::Plain {

int HostFile_nameW(const CPWChar* hfs, CPWChar* out, int capacity) {
  return Print::platform::host_file_name(hfs, out, capacity);
}

}  // namespace Corvane::Plain
