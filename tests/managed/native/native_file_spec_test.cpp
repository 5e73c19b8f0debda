// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <new>
#include <utility>

#include "corvane/print/nativefilespec.h"
#include "platform/capi_memory.h"
#include "tests/platform/system_seam.h"
#include "tests/support/heap_watch.h"

namespace Corvane::Print::tests {
namespace {

constexpr int kTexts[] = {NATIVEFILESPEC_UFS, NATIVEFILESPEC_HFS, NATIVEFILESPEC_MONIKER};

// Longer than what a string keeps without the heap.
WideText long_text(char32_t unit) {
  return wide(std::u32string(5000, unit));
}

NativeFileSpec full_spec() {
  NativeFileSpec spec;
  spec.ufs = wide(U"tq_plot:a1.plt");
  spec.hfs = wide(U"C:\\plots\\a1.plt");
  spec.monikerString = wide(U"dq:4711");
  spec.accessMode = CP_FILE_CHECK_OUT;
  return spec;
}

bool same(const NativeFileSpec& a, const NativeFileSpec& b) {
  return a.ufs == b.ufs && a.hfs == b.hfs && a.monikerString == b.monikerString &&
         a.accessMode == b.accessMode;
}

struct Release {
  void operator()(NativeFileSpec* spec) const { NativeFileSpec_release(spec); }
};
using Spec = std::unique_ptr<NativeFileSpec, Release>;

WideText text_of(const Spec& spec, int which) {
  int length = -1;
  const CPWChar* const text = NativeFileSpec_text(spec.get(), which, &length);
  EXPECT_EQ(text[length], 0) << "no terminator";
  return WideText(text, static_cast<std::size_t>(length));
}

int set_text(const Spec& spec, int which, const WideText& text) {
  return NativeFileSpec_setText(spec.get(), which, text.data(), static_cast<int>(text.size()));
}

}  // namespace

TEST(NativeFileSpec, StartsEmpty) {
  EXPECT_TRUE(same(NativeFileSpec(), {}));
  EXPECT_EQ(NativeFileSpec().accessMode, 0);
  EXPECT_TRUE(NativeFileSpec().ufs.empty());
}

TEST(NativeFileSpec, PrefersItsHostName) {
  NativeFileSpec spec = full_spec();
  EXPECT_EQ(&spec.GetHfsOrUfs(), &spec.hfs);
  spec.hfs.clear();
  EXPECT_EQ(&spec.GetHfsOrUfs(), &spec.ufs);
  spec.ufs.clear();
  EXPECT_EQ(&spec.GetHfsOrUfs(), &spec.ufs);
}

TEST(NativeFileSpec, AssignmentCopiesEverythingAndReturnsItself) {
  const NativeFileSpec from = full_spec();
  NativeFileSpec to;
  to.monikerString = wide(U"another");
  EXPECT_EQ(&(to = from), &to);
  EXPECT_TRUE(same(to, from));
  NativeFileSpec& itself = to;
  to = itself;
  EXPECT_TRUE(same(to, from));
}

TEST(NativeFileSpec, ClearingEmptiesEverything) {
  NativeFileSpec spec = full_spec();
  spec.clear();
  EXPECT_TRUE(same(spec, {}));
}

TEST(NativeFileSpec, AnAssignmentWithoutMemoryChangesNothing) {
  NativeFileSpec from;
  from.ufs = long_text(U'u');
  from.hfs = long_text(U'h');
  from.monikerString = long_text(U'm');
  for (long successes = 0; successes < 3; ++successes) {
    NativeFileSpec to = full_spec();
    if (!operator_new_fail_after(successes)) return;
    bool thrown = false;
    try {
      to = from;
    } catch (const std::bad_alloc&) {
      thrown = true;
    }
    operator_new_fail_after(-1);
    EXPECT_TRUE(thrown) << successes;
    EXPECT_TRUE(same(to, full_spec())) << successes;
  }
}

TEST(NativeFileSpecFields, AreEmptyInANewSpecification) {
  const Spec spec(NativeFileSpec_create());
  ASSERT_NE(spec, nullptr);
  for (const int which : kTexts) EXPECT_EQ(text_of(spec, which), WideText());
  EXPECT_EQ(NativeFileSpec_accessMode(spec.get()), 0);
}

TEST(NativeFileSpecFields, AreTheMembers) {
  const Spec spec(NativeFileSpec_create());
  EXPECT_EQ(set_text(spec, NATIVEFILESPEC_UFS, wide(U"ufs")), NATIVEFILESPEC_OK);
  EXPECT_EQ(set_text(spec, NATIVEFILESPEC_HFS, wide(U"hfs")), NATIVEFILESPEC_OK);
  EXPECT_EQ(set_text(spec, NATIVEFILESPEC_MONIKER, wide(U"moniker")), NATIVEFILESPEC_OK);
  NativeFileSpec_setAccessMode(spec.get(), 99);
  EXPECT_EQ(spec->ufs, wide(U"ufs"));
  EXPECT_EQ(spec->hfs, wide(U"hfs"));
  EXPECT_EQ(spec->monikerString, wide(U"moniker"));
  EXPECT_EQ(spec->accessMode, 99);
  EXPECT_EQ(NativeFileSpec_accessMode(spec.get()), 99);
  NativeFileSpec_clear(spec.get());
  EXPECT_TRUE(same(*spec, {}));
}

TEST(NativeFileSpecFields, HoldTextsOfAnyLengthAndContent) {
  const Spec spec(NativeFileSpec_create());
  WideText odd = wide(U"a\u00e4\u4e2d\U0001F600");
  odd += CPWChar(0);
  odd += CPWChar(0xD800);
  odd += long_text(U'\u00e9');
  for (const int which : kTexts) {
    EXPECT_EQ(set_text(spec, which, odd), NATIVEFILESPEC_OK);
    EXPECT_EQ(text_of(spec, which), odd);
    EXPECT_EQ(NativeFileSpec_setText(spec.get(), which, nullptr, INT_MAX), NATIVEFILESPEC_OK);
    EXPECT_EQ(text_of(spec, which), WideText());
  }
}

TEST(NativeFileSpecFields, OtherNumbersAreNoTexts) {
  const Spec spec(NativeFileSpec_create());
  *spec = full_spec();
  for (const int which : {-1, 3, INT_MIN, INT_MAX}) {
    int length = -1;
    EXPECT_EQ(NativeFileSpec_text(spec.get(), which, &length), nullptr);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(set_text(spec, which, wide(U"x")), NATIVEFILESPEC_BAD_ARGUMENT);
  }
  EXPECT_EQ(NativeFileSpec_setText(spec.get(), 0, wide(U"x").c_str(), -1), NATIVEFILESPEC_BAD_ARGUMENT);
  EXPECT_TRUE(same(*spec, full_spec()));
}

TEST(NativeFileSpecFields, ATextWithoutMemoryStaysAsItWas) {
  const Spec spec(NativeFileSpec_create());
  *spec = full_spec();
  const WideText text = long_text(U'x');
  if (!operator_new_fail_after(0)) return;
  const int status = set_text(spec, NATIVEFILESPEC_HFS, text);
  operator_new_fail_after(-1);
  EXPECT_EQ(status, NATIVEFILESPEC_NO_MEMORY);
  EXPECT_TRUE(same(*spec, full_spec()));
}

TEST(NativeFileSpecFields, WithoutMemoryThereIsNoSpecification) {
  platform::capi_fail_after(0);
  NativeFileSpec* const spec = NativeFileSpec_create();
  platform::capi_fail_after(-1);
  EXPECT_EQ(spec, nullptr);
}

TEST(NativeFileSpecFields, ReleasingReturnsTheBlockAndNullIsIgnored) {
  const long before = platform::capi_blocks_out();
  NativeFileSpec* const spec = NativeFileSpec_create();
  EXPECT_EQ(platform::capi_blocks_out(), before + 1);
  NativeFileSpec_release(spec);
  NativeFileSpec_release(nullptr);
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

}  // namespace Corvane::Print::tests
