// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The DB functions that need memory, without any; and that none of them keeps what it took.
#include "corvane/print/db.h"
#include "platform/capi_memory.h"
#include "tests/debug/standin.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

class DebugMemory : public WithStandin {
protected:
  void SetUp() override {
    WithStandin::SetUp();
    DBMEMDUMP(nullptr, 0);
    ASSERT_TRUE(standin_is_loaded());
    cleared_record().result = 5;
    blocks_ = platform::capi_blocks_out();
  }
  void TearDown() override {
    platform::capi_fail_after(-1);
    EXPECT_EQ(platform::capi_blocks_out(), blocks_);
  }

private:
  long blocks_ = 0;
};

}  // namespace

TEST_F(DebugMemory, AWideMessageWithoutMemoryReturns0) {
  const WideText text = wide(U"text");
  EXPECT_EQ(DBMSGW(text.c_str()), 5);
  platform::capi_fail_after(0);
  EXPECT_EQ(DBMSGW(text.c_str()), 0);
  EXPECT_EQ(standin_record().calls, 1);
}

TEST_F(DebugMemory, AListOfArgumentsWithoutMemoryReturns0) {
  char text[] = "text";
  EXPECT_EQ(DBLB(text, 1, text), 5);
  platform::capi_fail_after(0);
  EXPECT_EQ(DBLB(text, 1, text), 0);
  EXPECT_EQ(DBLB(text, 0), 0);
  EXPECT_EQ(standin_record().calls, 1);
}

TEST_F(DebugMemory, NothingElseNeedsMemory) {
  char text[] = "text", buffer[16];
  char* items[] = {text};
  platform::capi_fail_after(0);
  EXPECT_EQ(DBMSG(text), 5);
  EXPECT_EQ(DBLBV(text, 1, items), 5);
  EXPECT_EQ(DBGETSA(text, buffer), 5);
  EXPECT_EQ(DBINP(text, text + 4), 5);
  EXPECT_EQ(DBSTRDUMP(text), 5);
}

TEST_F(DebugMemory, AWideMessageTakesOneBlock) {
  platform::capi_fail_after(-1);
  DBMSGW(wide(U"text").c_str());
  EXPECT_EQ(platform::capi_fail_after(-1), 1);
}

}  // namespace Corvane::Print::tests
