// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plain names of the DB family. Those with arguments of any number are beside the functions that they
// stand for, in debug/: such arguments cannot be handed on.
#include "corvane/print/db.h"
#include "corvane/print/plain.h"

namespace Corvane::Plain {

namespace print = Corvane::Print;

namespace {

using WideMessage = int (*)(const CPWChar* format, ...);

// KEEP(plain-db-zeros): a wide message goes on with sixteen zeros behind it that nobody asked for. Looks
// wrong; the text is used as a format, so a percent sign in a file name would take whatever lies on the stack
// for an address. Pinned by PlainMessages.ConversionsInAWideMessageFindZeros.
int send(WideMessage message, const CPWChar* text) {
  void* const z = nullptr;
  return message(text, z, z, z, z, z, z, z, z, z, z, z, z, z, z, z, z);
}

}  // namespace

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

int DBMSGVA(const char* format, va_list args) {
  return print::DBMSGVA(format, args);
}

int DBERRVA(const char* format, va_list args) {
  return print::DBERRVA(format, args);
}

int DBGETSA(char* text, char* buffer) {
  return print::DBGETSA(text, buffer);
}

int DBGETSW(unsigned short* text, unsigned short* buffer) {
  return print::DBGETSW(text, buffer);
}

int DBMEMDUMP(void* address, unsigned int count) {
  return print::DBMEMDUMP(address, count);
}

int DBSTRDUMP(char* text) {
  return print::DBSTRDUMP(text);
}

int DBMB(char* text1, char* text2, unsigned int style) {
  return print::DBMB(text1, text2, style);
}

int DBInitApp(char* name) {
  return print::DBInitApp(name);
}

int DBLBV(char* title, int count, char** items) {
  return print::DBLBV(title, count, items);
}

}  // namespace Corvane::Plain
