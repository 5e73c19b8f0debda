// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The exports that the managed layer finds by plain names. No state; each is a call of another function.
//
// KEEP(plain-db-zeros): a message of the managed layer goes on with sixteen zeros behind it that nobody asked
// for. Looks wrong; the text is used as a format, so a percent sign in a file name would take whatever lies
// on the stack for an address. Pinned by PlainNames.ConversionsInAMessageFindZeros.
#include "managed/native/plain_names.h"

#include <exception>

#include "config/codepage.h"
#include "corvane/print/db.h"
#include "corvane/print/dbgtools.h"
#include "platform/capi_block.h"
#include "platform/platform.h"

namespace {

namespace print = Corvane::Print;

using WideMessage = int (*)(const CPWChar* format, ...);

int send(WideMessage message, const CPWChar* text) {
  void* const z = nullptr;
  return message(text, z, z, z, z, z, z, z, z, z, z, z, z, z, z, z, z);
}

using Narrow = print::platform::CapiBlock<char>;

}  // namespace

void CFSetGetEnvVarCallback(print::CFGetEnvVarCallback callback) {
  print::CFSetGetEnvVarCallback(callback);
}

CPWChar* CFGetenvW(const CPWChar* name) {
  return print::CFGetenvW(name);
}

void CFReleaseValue(void* value) {
  print::CFReleaseValue(value);
}

int DBMSGW(const CPWChar* format) {
  return send(print::DBMSGW, format);
}

int DBERRW(const CPWChar* format) {
  return send(print::DBERRW, format);
}

int DBATTW(const CPWChar* format) {
  return send(print::DBATTW, format);
}

int DBHMSGW(const CPWChar* format) {
  return send(print::DBHMSGW, format);
}

int DbgTools_addDebugVar(const char* variableName) {
  try {
    print::DbgTools::Instance().AddDebugVar(variableName);
    return 1;
  } catch (const std::exception&) {
    return 0;
  }
}

int DbgTools_isDebugOnW(const CPWChar* flag) {
  const Narrow narrow(print::config::narrowed_block(flag));
  return DbgTools_isDebugOn(narrow.get());
}

int DbgTools_isDevDebugOnW(const CPWChar* flag) {
  const Narrow narrow(print::config::narrowed_block(flag));
  const print::DbgTools& tools = print::DbgTools::Instance();
  return tools.enabled && tools.IsFlagDefined(narrow.get()) ? 1 : 0;
}

int HostFile_nameW(const CPWChar* hfs, CPWChar* out, int capacity) {
  return print::platform::host_file_name(hfs, out, capacity);
}
