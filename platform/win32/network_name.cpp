// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The network provider, whose library is bound when it is first called; late_binding.cpp tells what happens
// when that fails. The structured exception then passes through these frames, so they own nothing.
#include <windows.h>
#include <winnetwk.h>

#include "platform/platform.h"

namespace Corvane::Print::platform {
namespace {

// The size of the answer is part of the contract: a name that does not fit is a failure. The name lies in the
// answer, behind the record that points to it.
constexpr DWORD kAnswerBytes = 512;

}  // namespace

bool network_name(const CPWChar* root, CPWChar* out, int capacity) {
  alignas(UNIVERSAL_NAME_INFOW) char answer[kAnswerBytes];
  DWORD bytes = kAnswerBytes;
  if (WNetGetUniversalNameW(root, UNIVERSAL_NAME_INFO_LEVEL, answer, &bytes) != NO_ERROR) return false;
  return lstrcpynW(out, reinterpret_cast<UNIVERSAL_NAME_INFOW*>(answer)->lpUniversalName, capacity) !=
         nullptr;
}

bool network_name(const char* root, char* out, int capacity) {
  alignas(UNIVERSAL_NAME_INFOA) char answer[kAnswerBytes];
  DWORD bytes = kAnswerBytes;
  if (WNetGetUniversalNameA(root, UNIVERSAL_NAME_INFO_LEVEL, answer, &bytes) != NO_ERROR) return false;
  return lstrcpynA(out, reinterpret_cast<UNIVERSAL_NAME_INFOA*>(answer)->lpUniversalName, capacity) !=
         nullptr;
}

}  // namespace Corvane::Print::platform
