// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Calls every export that is there for the managed layer once through the shared library, as host_test.cpp
// does with the other families. There is no debug library.
#include <gtest/gtest.h>

#include "corvane/print/nativefilespec.h"
#include "corvane/print/plain.h"

namespace {

using Corvane::Print::NativeFileSpec;
using namespace Corvane::Plain;

const CPWChar kText[] = {'n', 'o', 'n', 'e', 0};

int CORVANE_PRINT_CALL answers_x(const CPWChar*, CPWChar* buffer, int capacity) {
  if (capacity < 4) return 4;
  buffer[0] = 'x';
  buffer[1] = 0;
  return 4;
}

}  // namespace

TEST(HostManaged, PlainNamesLookVariablesUp) {
  CFSetGetEnvVarCallback(answers_x);
  CPWChar* const value = CFGetenvW(kText);
  CFSetGetEnvVarCallback(nullptr);
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value[0], static_cast<CPWChar>('x'));
  CFReleaseValue(value);
}

TEST(HostManaged, PlainNamesPrintNothingWithoutADebugLibrary) {
  EXPECT_EQ(DBMSGW(kText), 0);
  EXPECT_EQ(DBERRW(kText), 0);
  EXPECT_EQ(DBATTW(kText), 0);
  EXPECT_EQ(DBHMSGW(kText), 0);
}

TEST(HostManaged, PlainNamesAskForFlags) {
  EXPECT_EQ(DbgTools_addDebugVar("CORVANE_NO_SUCH_VARIABLE"), 1);
  EXPECT_EQ(DbgTools_isFlagDefined("none"), 0);
  EXPECT_EQ(DbgTools_isDebugOnW(kText), 0);
  EXPECT_EQ(DbgTools_isDevDebugOnW(kText), 0);
}

TEST(HostManaged, AFileHasAName) {
  CPWChar name[8];
  EXPECT_EQ(HostFile_nameW(kText, name, 8), 4);
  EXPECT_EQ(name[3], static_cast<CPWChar>('e'));
}

TEST(HostManaged, MembersOfANativeFileSpecificationAreFound) {
  NativeFileSpec spec;
  spec.ufs.assign(kText);
  NativeFileSpec copy;
  copy = spec;
  EXPECT_EQ(copy.GetHfsOrUfs(), spec.ufs);
  copy.clear();
  EXPECT_TRUE(copy.ufs.empty());
}

TEST(HostManaged, FieldsOfANativeFileSpecificationArePlainFunctions) {
  NativeFileSpec* const spec = NativeFileSpec_create();
  ASSERT_NE(spec, nullptr);
  EXPECT_EQ(NativeFileSpec_setText(spec, NATIVEFILESPEC_HFS, kText, 4), NATIVEFILESPEC_OK);
  NativeFileSpec_setAccessMode(spec, 3);
  int length = 0;
  EXPECT_EQ(NativeFileSpec_text(spec, NATIVEFILESPEC_HFS, &length)[0], static_cast<CPWChar>('n'));
  EXPECT_EQ(length, 4);
  EXPECT_EQ(NativeFileSpec_accessMode(spec), 3);
  NativeFileSpec_clear(spec);
  EXPECT_EQ(NativeFileSpec_accessMode(spec), 0);
  NativeFileSpec_release(spec);
}
