/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * A support library that records failed late bindings and answers with what the test has put into its record.
 * RECORDER_CONVENTION is WINAPI, or __cdecl. */
#include <windows.h>

#include <delayimp.h>

#include "recorder.h"

static struct Record record;

__declspec(dllexport) struct Record* standin_record(void) {
  return &record;
}

__declspec(dllexport) FARPROC RECORDER_CONVENTION
    vantrel32_recordDelayLoadHookFailure(unsigned notification, PDelayLoadInfo info) {
  ++record.calls;
  record.notification = notification;
  record.error = info->dwLastError;
  lstrcpynA(record.library, info->szDll, sizeof record.library);
  record.function[0] = 0;
  if (info->dlp.fImportByName) lstrcpynA(record.function, info->dlp.szProcName, sizeof record.function);
  return (FARPROC)record.answer;
}
