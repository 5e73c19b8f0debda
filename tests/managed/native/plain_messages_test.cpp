// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plain names of the messages, with a debug library that has everything.
#include "tests/debug/standin.h"
#include "tests/platform/system_seam.h"

#include "managed/native/plain_names.h"

namespace Corvane::Print::tests {
namespace {

class PlainNames : public WithStandin {
protected:
  void SetUp() override {
    WithStandin::SetUp();
    ::DBMSGW(wide(U"").c_str());
    ASSERT_TRUE(standin_is_loaded());
    record_ = &cleared_record();
    record_->result = 4711;
  }

  DebugRecord* record_ = nullptr;
};

}  // namespace

TEST_F(PlainNames, EachMessageHasItsCode) {
  using Message = int(CORVANE_PRINT_CALL*)(const CPWChar*);
  const std::pair<Message, unsigned> messages[] = {
      {::DBMSGW, 0x01000000u}, {::DBERRW, 0x02000000u}, {::DBHMSGW, 0x03000000u}, {::DBATTW, 0x06000000u}};
  for (const auto& [message, code] : messages) {
    EXPECT_EQ(message(wide(U"Stra\u00dfe").c_str()), 4711);
    EXPECT_EQ(record_->number, code);
    EXPECT_EQ(record_->count, 0);
    EXPECT_EQ(std::string(record_->printed), narrow(U"Stra\u00dfe"));
  }
}

TEST_F(PlainNames, ConversionsInAMessageFindZeros) {
  ::DBMSGW(wide(U"%d %x %s %%%%").c_str());
  EXPECT_STREQ(record_->text1, "0 0 (null) %%");
  EXPECT_STREQ(record_->printed, "0 0 (null) %");
}

}  // namespace Corvane::Print::tests
