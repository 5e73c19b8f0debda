// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plain names of the STR family.
#include "corvane/print/str.h"
#include "corvane/print/plain.h"

namespace Corvane::Plain {

namespace print = Corvane::Print;

int STRCompareCIW(const CPWChar* s1, const CPWChar* s2) {
  return print::STRCompareCIW(s1, s2);
}

int STRCompareCI(const char* s1, const char* s2) {
  return print::STRCompareCI(s1, s2);
}

int STRCompareCICountW(const CPWChar* s1, const CPWChar* s2, int count) {
  return print::STRCompareCICountW(s1, s2, count);
}

int STRCompareCICount(const char* s1, const char* s2, int count) {
  return print::STRCompareCICount(s1, s2, count);
}

int STRMatchPatternW(const CPWChar* string, const CPWChar* pattern) {
  return print::STRMatchPatternW(string, pattern);
}

int STRMatchPattern(const char* string, const char* pattern) {
  return print::STRMatchPattern(string, pattern);
}

int STRMatchPatternCIW(const CPWChar* string, const CPWChar* pattern) {
  return print::STRMatchPatternCIW(string, pattern);
}

int STRMatchPatternCI(const char* string, const char* pattern) {
  return print::STRMatchPatternCI(string, pattern);
}

CPWChar* STRDeleteCharW(const CPWChar* str, int ch, CPWChar* out) {
  return print::STRDeleteCharW(str, ch, out);
}

char* STRDeleteChar(const char* str, int ch, char* out) {
  return print::STRDeleteChar(str, ch, out);
}

CPWChar* STRDeleteCharLeadW(const CPWChar* str, int ch, CPWChar* out) {
  return print::STRDeleteCharLeadW(str, ch, out);
}

char* STRDeleteCharLead(const char* str, int ch, char* out) {
  return print::STRDeleteCharLead(str, ch, out);
}

CPWChar* STRDeleteCharTrailW(const CPWChar* str, int ch, CPWChar* out) {
  return print::STRDeleteCharTrailW(str, ch, out);
}

char* STRDeleteCharTrail(const char* str, int ch, char* out) {
  return print::STRDeleteCharTrail(str, ch, out);
}

CPWChar* STRExtractSubstrW(const CPWChar* str, int start, int count, CPWChar* out) {
  return print::STRExtractSubstrW(str, start, count, out);
}

char* STRExtractSubstr(const char* str, int start, int count, char* out) {
  return print::STRExtractSubstr(str, start, count, out);
}

CPWChar* STRInsertSubstrW(const CPWChar* str, int pos, const CPWChar* sub, CPWChar* out) {
  return print::STRInsertSubstrW(str, pos, sub, out);
}

char* STRInsertSubstr(const char* str, int pos, const char* sub, char* out) {
  return print::STRInsertSubstr(str, pos, sub, out);
}

CPWChar* STRLowerW(const CPWChar* str, CPWChar* out) {
  return print::STRLowerW(str, out);
}

char* STRLower(const char* str, char* out) {
  return print::STRLower(str, out);
}

CPWChar* STRUpperW(const CPWChar* str, CPWChar* out) {
  return print::STRUpperW(str, out);
}

char* STRUpper(const char* str, char* out) {
  return print::STRUpper(str, out);
}

CPWChar* STRReplaceCharW(const CPWChar* str, int from, int to, CPWChar* out) {
  return print::STRReplaceCharW(str, from, to, out);
}

char* STRReplaceChar(const char* str, int from, int to, char* out) {
  return print::STRReplaceChar(str, from, to, out);
}

CPWChar* STRReverseW(CPWChar* str) {
  return print::STRReverseW(str);
}

char* STRReverse(char* str) {
  return print::STRReverse(str);
}

CPWChar* STRDupW(const CPWChar* str) {
  return print::STRDupW(str);
}

char* STRDup(const char* str) {
  return print::STRDup(str);
}

}  // namespace Corvane::Plain
