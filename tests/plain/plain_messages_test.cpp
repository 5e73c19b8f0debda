// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plain names of the messages, with a debug library that has everything.
#include "tests/debug/standin.h"
#include "tests/platform/system_seam.h"

#include "corvane/print/plain.h"

namespace Corvane::Print::tests {
namespace {

class PlainMessages : public WithStandin {
protected:
  void SetUp() override {
    WithStandin::SetUp();
    Plain::DBMSGW(wide(U"").c_str());
    ASSERT_TRUE(standin_is_loaded());
    record_ = &cleared_record();
    record_->result = 4711;
  }

  DebugRecord* record_ = nullptr;
};

}  // namespace

TEST_F(PlainMessages, EachMessageHasItsCode) {
  using Message = int(CORVANE_PRINT_CALL*)(const CPWChar*);
  const std::pair<Message, unsigned> messages[] = {{Plain::DBMSGW, 0x01000000u},
                                                   {Plain::DBERRW, 0x02000000u},
                                                   {Plain::DBHMSGW, 0x03000000u},
                                                   {Plain::DBATTW, 0x06000000u}};
  for (const auto& [message, code] : messages) {
    EXPECT_EQ(message(wide(U"Stra\u00dfe").c_str()), 4711);
    EXPECT_EQ(record_->number, code);
    EXPECT_EQ(record_->count, 0);
    EXPECT_EQ(std::string(record_->printed), narrow(U"Stra\u00dfe"));
  }
}

// A plain name with arguments of any number hands all of them on.
TEST_F(PlainMessages, NarrowMessagesHaveTheirArguments) {
  char format[] = "%d of %s";
  const auto expect_printed = [this](int result, unsigned code, int pause) {
    EXPECT_EQ(result, 4711);
    EXPECT_EQ(record_->number, code);
    EXPECT_EQ(record_->count, pause);
    EXPECT_EQ(std::string(record_->printed), "7 of nine");
    record_->printed[0] = '\0';
  };
  expect_printed(Plain::DBMSG(format, 7, "nine"), 0x01000000u, 0);
  expect_printed(Plain::DBERR(format, 7, "nine"), 0x02000000u, 0);
  expect_printed(Plain::DBHMSG(format, 7, "nine"), 0x03000000u, 0);
  expect_printed(Plain::DBATT(format, 7, "nine"), 0x06000000u, 0);
  expect_printed(Plain::DBCMSG(0x123456, format, 7, "nine"), 0x123456u, 0);
  expect_printed(Plain::DBBMSG(16, format, 7, "nine"), 0x101010u, 0);
  expect_printed(Plain::DBPAUSE(format, 7, "nine"), 0x05000000u, 1);
}

TEST_F(PlainMessages, ConversionsInAWideMessageFindZeros) {
  Plain::DBMSGW(wide(U"%d %x %s %%%%").c_str());
  EXPECT_STREQ(record_->text1, "0 0 (null) %%");
  EXPECT_STREQ(record_->printed, "0 0 (null) %");
}

}  // namespace Corvane::Print::tests
