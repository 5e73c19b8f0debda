// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Every DB function, called as a host calls it, with a debug library that has everything.
#include <climits>
#include <cstdarg>
#include <cstring>
#include <string>

#include "corvane/print/db.h"
#include "tests/debug/standin.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

constexpr int kResult = 4711;

class DebugCalls : public WithStandin {
protected:
  void SetUp() override {
    WithStandin::SetUp();
    DBMEMDUMP(nullptr, 0);
    ASSERT_TRUE(standin_is_loaded());
    record_ = &cleared_record();
    record_->result = kResult;
  }

  void expect_printed(int result, unsigned code, const char* text, int pause = 0) {
    EXPECT_EQ(result, kResult);
    EXPECT_EQ(record_->calls, 1);
    EXPECT_STREQ(record_->entry, "dllPrintF");
    EXPECT_EQ(record_->number, code) << std::hex << record_->number;
    EXPECT_EQ(record_->count, pause);
    EXPECT_STREQ(record_->printed, text);
    record_->calls = 0;
  }

  void expect_called(int result, const char* entry) {
    EXPECT_EQ(result, kResult);
    EXPECT_EQ(record_->calls, 1);
    EXPECT_STREQ(record_->entry, entry);
  }

  DebugRecord* record_ = nullptr;
};

using DebugWide = DebugCalls;

int message_by_list(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = DBMSGVA(format, arguments);
  va_end(arguments);
  return result;
}

int error_by_list(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = DBERRVA(format, arguments);
  va_end(arguments);
  return result;
}

// A text that may be written to, as the older functions want it.
struct Text {
  explicit Text(const char* text) : text_(text) {}
  operator char*() { return text_.data(); }
  std::string text_;
};

}  // namespace

TEST_F(DebugCalls, TheLibraryIsLoadedOnce) {
  DBMSG("once more");
  EXPECT_EQ(record_->starts, 1);
}

TEST_F(DebugCalls, EachMessageHasItsKind) {
  expect_printed(DBMSG("%s %d", "a", 5), 0x01000000, "a 5");
  expect_printed(DBERR("%s %d", "b", 6), 0x02000000, "b 6");
  expect_printed(DBHMSG("%s %d", "c", 7), 0x03000000, "c 7");
  expect_printed(DBATT("%s %d", "d", 8), 0x06000000, "d 8");
  expect_printed(message_by_list("%s %d", "e", 9), 0x01000000, "e 9");
  expect_printed(error_by_list("%s %d", "f", 10), 0x02000000, "f 10");
}

TEST_F(DebugCalls, OnlyAPauseSetsThePauseFlag) {
  expect_printed(DBPAUSE(Text("press %c"), 'x'), 0x05000000, "press x", 1);
}

TEST_F(DebugCalls, ManyArgumentsOfSeveralTypesArrive) {
  expect_printed(DBMSG("%d %s %.2f %d %d %d %d %.1f %s", 1, "two", 3.5, 4, 5, 6, 7, 8.5, "nine"), 0x01000000,
                 "1 two 3.50 4 5 6 7 8.5 nine");
}

TEST_F(DebugCalls, AFormatGoesOnAsItIs) {
  const char format[] = "100%% of %s\n";
  expect_printed(DBMSG(format, "all"), 0x01000000, "100% of all\n");
  EXPECT_EQ(record_->address1, format);
  EXPECT_EQ(DBMSG(nullptr), kResult);
  EXPECT_EQ(record_->address1, nullptr);
}

TEST_F(DebugCalls, AColourIsTheCallersCode) {
  expect_printed(DBCMSG(0x00336699, Text("%d"), 1), 0x00336699, "1");
  expect_printed(DBCMSG(0x06000000, Text("%d"), 2), 0x06000000, "2");
  expect_printed(DBCMSG(0xFFFFFFFFul, Text("%d"), 3), 0xFFFFFFFF, "3");
}

TEST_F(DebugCalls, AGreyIsClampedAndRepeatedInThreeBytes) {
  expect_printed(DBBMSG(0, Text("%d"), 1), 0x00000000, "1");
  expect_printed(DBBMSG(0x80, Text("%d"), 2), 0x00808080, "2");
  expect_printed(DBBMSG(255, Text("%d"), 3), 0x00FFFFFF, "3");
  expect_printed(DBBMSG(256, Text("%d"), 4), 0x00FFFFFF, "4");
  expect_printed(DBBMSG(300, Text("%d"), 5), 0x00FFFFFF, "5");
  expect_printed(DBBMSG(ULONG_MAX, Text("%d"), 6), 0x00FFFFFF, "6");
}

TEST_F(DebugWide, EachMessageHasItsKind) {
  const WideText format = wide(U"%s %d"), text = wide(U"plot");
  expect_printed(DBMSGW(wide(U"%d mm").c_str(), 5), 0x01000000, "5 mm");
  expect_printed(DBERRW(wide(U"%d mm").c_str(), 6), 0x02000000, "6 mm");
  expect_printed(DBATTW(wide(U"%d mm").c_str(), 7), 0x06000000, "7 mm");
  expect_printed(DBHMSGW(wide(U"%d mm").c_str(), 8), 0x03000000, "8 mm");
  expect_printed(DBMSGW(format.c_str(), text.c_str(), 9), 0x01000000, "plot 9");
}

TEST_F(DebugWide, TheTextIsFormattedASecondTime) {
  expect_printed(DBMSGW(wide(U"%d and %%d").c_str(), 7), 0x01000000, "7 and 7");
  EXPECT_STREQ(record_->text1, "7 and %d");
  expect_printed(DBMSGW(wide(U"%d%%%%").c_str(), 50), 0x01000000, "50%");
  EXPECT_STREQ(record_->text1, "50%%");
}

TEST_F(DebugWide, TheArgumentsAreCompleteBothTimes) {
  expect_printed(DBERRW(wide(U"%d %d %.1f %d|%%d %%d %%.1f %%d").c_str(), 1, 2, 3.5, 4), 0x02000000,
                 "1 2 3.5 4|1 2 3.5 4");
}

TEST_F(DebugWide, TheTextReachesTheLibraryInNarrowText) {
  const WideText name = wide(U"\u00E9t\u00E9");
  DBMSGW(wide(U"<%s>").c_str(), name.c_str());
  EXPECT_EQ(record_->text1, "<" + narrow(U"\u00E9t\u00E9") + ">");
}

TEST_F(DebugWide, ATextIsCutBehindIts4096thCharacter) {
  for (const int length : {4094, 4095, 4096, 4097, 5000, 8190, 8191, 8192, 12000}) {
    const WideText text(static_cast<std::size_t>(length), CPWChar('x'));
    DBMSGW(text.c_str());
    EXPECT_EQ(std::strlen(record_->text1), static_cast<std::size_t>(length < 4096 ? length : 4096)) << length;
    DBHMSGW(wide(U"%s").c_str(), text.c_str());
    EXPECT_EQ(std::strlen(record_->text1), static_cast<std::size_t>(length < 4096 ? length : 4096)) << length;
  }
}

TEST_F(DebugWide, ANullFormatIsAnEmptyText) {
  expect_printed(DBMSGW(nullptr), 0x01000000, "");
}

TEST_F(DebugCalls, QuestionsAreHandedOn) {
  int first = 0, second = 0;
  expect_called(DBINP(Text("how many?"), Text("dd"), &first, &second), "dllScanF");
  EXPECT_STREQ(record_->text1, "how many?");
  EXPECT_STREQ(record_->text2, "dd");
  EXPECT_EQ(first, 100);
  EXPECT_EQ(second, 101);
}

TEST_F(DebugCalls, TextsAreAskedFor) {
  char buffer[16] = "before";
  expect_called(DBGETSA(Text("name?"), buffer), "dllGetSA");
  EXPECT_STREQ(record_->text1, "name?");
  EXPECT_EQ(record_->address2, buffer);
  EXPECT_STREQ(buffer, "answer");
}

TEST_F(DebugCalls, WideTextsAreAskedFor) {
  unsigned short question[] = {'?', 0}, buffer[4] = {1, 1, 1, 1};
  expect_called(DBGETSW(question, buffer), "dllGetSW");
  EXPECT_EQ(record_->address1, question);
  EXPECT_EQ(record_->address2, buffer);
  EXPECT_EQ(record_->number, static_cast<unsigned>('?'));
  EXPECT_EQ(buffer[0], 'w');
}

TEST_F(DebugCalls, MemoryIsDumped) {
  unsigned char bytes[] = {1, 2, 3, 0, 5};
  expect_called(DBMEMDUMP(bytes, 5), "dllMemDump");
  EXPECT_EQ(record_->address1, bytes);
  EXPECT_EQ(record_->number, 5u);
  EXPECT_EQ(record_->bytes[4], 5);
}

TEST_F(DebugCalls, ATextIsDumpedWithItsTerminator) {
  char text[] = "ab";
  expect_called(DBSTRDUMP(text), "dllMemDump");
  EXPECT_EQ(record_->address1, text);
  EXPECT_EQ(record_->number, 3u);
  EXPECT_STREQ(reinterpret_cast<char*>(record_->bytes), "ab");
  char empty[] = "";
  DBSTRDUMP(empty);
  EXPECT_EQ(record_->number, 1u);
}

TEST_F(DebugCalls, ANullTextIsDumpedAsNoBytes) {
  record_->number = 99;
  expect_called(DBSTRDUMP(nullptr), "dllMemDump");
  EXPECT_EQ(record_->address1, nullptr);
  EXPECT_EQ(record_->number, 0u);
}

TEST_F(DebugCalls, AMessageBoxGetsItsTextsAndStyle) {
  expect_called(DBMB(Text("text"), Text("title"), 0x80000031u), "dllMessageBox");
  EXPECT_STREQ(record_->text1, "text");
  EXPECT_STREQ(record_->text2, "title");
  EXPECT_EQ(record_->number, 0x80000031u);
}

TEST_F(DebugCalls, TheApplicationsNameIsHandedOn) {
  char name[] = "plot engine";
  expect_called(DBInitApp(name), "dllInitApp");
  EXPECT_EQ(record_->address1, name);
}

TEST_F(DebugCalls, AListIsHandedOnAsItIs) {
  char one[] = "one", two[] = "two";
  char* items[] = {one, two};
  expect_called(DBLBV(Text("choose"), 2, items), "dllListBox");
  EXPECT_STREQ(record_->text1, "choose");
  EXPECT_EQ(record_->count, 2);
  EXPECT_EQ(record_->address2, items);
  DBLBV(nullptr, -3, nullptr);
  EXPECT_EQ(record_->count, -3);
  EXPECT_EQ(record_->address2, nullptr);
}

TEST_F(DebugCalls, ArgumentsBecomeAList) {
  Text a("a"), b("b"), c("c");
  expect_called(DBLB(Text("choose"), 3, static_cast<char*>(a), static_cast<char*>(b), static_cast<char*>(c)),
                "dllListBox");
  EXPECT_STREQ(record_->text1, "choose");
  EXPECT_EQ(record_->count, 3);
  EXPECT_STREQ(record_->items[0], "a");
  EXPECT_STREQ(record_->items[1], "b");
  EXPECT_STREQ(record_->items[2], "c");
}

TEST_F(DebugCalls, MoreArgumentsThanRegistersBecomeAList) {
  Text t[12] = {Text("0"), Text("1"), Text("2"), Text("3"), Text("4"),  Text("5"),
                Text("6"), Text("7"), Text("8"), Text("9"), Text("10"), Text("11")};
  char* const p[12] = {t[0], t[1], t[2], t[3], t[4], t[5], t[6], t[7], t[8], t[9], t[10], t[11]};
  DBLB(Text("choose"), 12, p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11]);
  EXPECT_EQ(record_->count, 12);
  for (int i = 0; i < 12; ++i) EXPECT_EQ(record_->items[i], std::to_string(i));
}

TEST_F(DebugCalls, ACountBelowOneIsHandedOnWithAListOfNone) {
  for (const int count : {0, -1, INT_MIN}) {
    record_->address2 = nullptr;
    record_->calls = 0;
    expect_called(DBLB(Text("choose"), count), "dllListBox");
    EXPECT_EQ(record_->count, count);
    EXPECT_NE(record_->address2, nullptr);
  }
}

TEST_F(DebugCalls, TheDestinationIsNeverSet) {
  DBInitApp(Text("plot"));
  DBLB(Text("t"), 0);
  DBMSG("x");
  EXPECT_STREQ(record_->entry, "dllPrintF");
  EXPECT_EQ(record_->calls, 3);
}

}  // namespace Corvane::Print::tests
