// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Patterns, path lists, the search over a tree that exists only here, and the enumeration of a small real
// directory, with texts and variables of the fuzzer's choice. Besides what the sanitizers see: patterns match
// as a plain table says, nothing is written behind an output, what is found was tried last and is a file, no
// candidate is longer than a text, and nothing leaks but what stays on purpose.
//
// An input is a byte of choices and then texts, each ended by a line end: specification, list, delimiters,
// default extension, default version, then the values of DATA, VX_PWP and X.
#include <stdlib.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "corvane/print/str.h"
#include "filespec/search.h"
#include "platform/capi_memory.h"
#include "tests/util/str_models.h"

namespace {

using namespace Corvane::Print;
using Text = std::basic_string<CPWChar>;

void require(bool condition) {
  if (!condition) abort();
}

// Bytes as units, so that the fuzzer reaches every character with two of them.
class Input {
public:
  Input(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) {}

  int byte() { return at_ != end_ ? *at_++ : 0; }
  Text text() {
    Text text;
    while (at_ != end_ && *at_ != '\n') {
      CPWChar unit = *at_++;
      if (unit >= 0x80 && at_ != end_) unit = static_cast<CPWChar>(unit << 8 | *at_++);
      if (unit != 0) text += unit;
    }
    if (at_ != end_) ++at_;
    return text;
  }

private:
  const std::uint8_t* at_;
  const std::uint8_t* end_;
};

// An output on the heap, exactly of its size, so that the sanitizer sees a write behind it.
template <class Unit, int size>
struct Out {
  Out() : units(new Unit[size]) {}
  ~Out() { delete[] units; }
  Out(const Out&) = delete;
  Out& operator=(const Out&) = delete;
  std::size_t length() const {
    std::size_t n = 0;
    while (n < size && units[n] != 0) ++n;
    require(n < size);
    return n;
  }
  Unit* units;
};

std::map<Text, Text> g_variables;
void* g_filled = nullptr;  // the buffer that the last lookup filled

int CORVANE_PRINT_CALL look_up(const CPWChar* name, CPWChar* buffer, int capacity) {
  const auto found = g_variables.find(name);
  if (found == g_variables.end() || found->second.empty()) return 0;
  const int bytes = static_cast<int>((found->second.size() + 1) * sizeof(CPWChar));
  if (bytes > capacity) return bytes;
  std::memcpy(buffer, found->second.c_str(), static_cast<std::size_t>(bytes));
  g_filled = buffer;
  return bytes;
}

// Every candidate whose hash says so is a file: a few, always the same ones.
class FakeTree : public filespec::FileProbe, public filespec::SearchObserver {
public:
  explicit FakeTree(unsigned share) : share_(share) {}

  bool is_file(const CPWChar* spec) override {
    last_ = spec;
    require(!last_.empty() && last_.size() < FU_WIDE);
    std::uint32_t hash = 2166136261u;
    for (const CPWChar c : last_) hash = (hash ^ c) * 16777619u;
    return hash % 256 < share_;
  }
  void tried(int step, const CPWChar* candidate, bool found) override {
    require(step >= FU_STEP_CURRENT_DIRECTORY && step <= FU_STEP_BY_NAME && candidate == last_ && !found_);
    found_ = found;
  }
  void check(int status, const CPWChar* out) const {
    require(status == (found_ ? FU_OK : FU_NOT_FOUND));
    require(found_ ? out == last_ : out[0] == 0);
  }

private:
  unsigned share_;
  Text last_;
  bool found_ = false;
};

// A search that ends with a variable's value leaves that value allocated, on purpose; it was the last that
// was looked up. Here it is released, or minutes of fuzzing would fill the memory.
template <class Call>
int searching(Call call) {
  const long before = platform::capi_blocks_out();
  const int status = call();
  const bool left = platform::capi_blocks_out() == before + 1;
  require(left ? status == FU_OK : platform::capi_blocks_out() == before);
  if (left) platform::capi_free(g_filled);
  return status;
}

// A table has a row for each character of the pattern: longer texts would take more time than they are worth.
void match_pattern(Text text, Text pattern) {
  text.resize(std::min<std::size_t>(text.size(), 600));
  pattern.resize(std::min<std::size_t>(pattern.size(), 200));
  const auto units = [](const Text& t) { return std::u32string(t.begin(), t.end()); };
  const bool own_text = tests::model::compare(text, pattern) == 0;
  require((STRMatchPatternW(text.c_str(), pattern.c_str()) != 0) ==
          tests::model::table_match(units(text), units(pattern), false));
  require((STRMatchPatternCIW(text.c_str(), pattern.c_str()) != 0) ==
          (own_text || tests::model::table_match(units(text), units(pattern), true)));
}

void match_narrow_pattern(const std::string& text, const std::string& pattern) {
  const int exactly = STRMatchPattern(text.c_str(), pattern.c_str());
  const int ignoring = STRMatchPatternCI(text.c_str(), pattern.c_str());
  require((exactly == 0 || exactly == 1) && (ignoring == 1 || ignoring == exactly));
  require(STRMatchPatternCI(text.c_str(), text.c_str()) == 1);
}

void walk_list(const Text& list, const Text& delimiters, const Text& comp) {
  FUPathIterator* iterator;
  Out<CPWChar, FU_WIDE> out;
  int status = FUPathGetFirstW(list.c_str(), delimiters.c_str(), out.units, &iterator);
  for (; status == FU_OK; status = FUPathGetNextW(&iterator, out.units)) require(out.length() != 0);
  require(status == FU_FAILED && iterator == nullptr && out.length() == 0);
  FUPathContainsCompW(list.c_str(), delimiters.c_str(), comp.c_str());
}

void walk_narrow_list(const std::string& list, const std::string& delimiters, const std::string& comp) {
  FUPathIterator* iterator;
  Out<char, FU_NARROW> out;
  int status = FUPathGetFirst(list.c_str(), delimiters.c_str(), out.units, &iterator);
  for (; status == FU_OK; status = FUPathGetNext(&iterator, out.units)) require(out.length() != 0);
  require(status == FU_FAILED && iterator == nullptr && out.length() == 0);
  FUPathContainsComp(list.c_str(), delimiters.c_str(), comp.c_str());
}

// A directory that C: stands for, with a few files; it stays for the life of the process.
struct RealTree {
  RealTree() : path(std::filesystem::temp_directory_path()) {
    for (int number = 0; !std::filesystem::create_directory(path / ("fuzz" + std::to_string(number)));
         ++number)
      last = number + 1;
    path /= "fuzz" + std::to_string(last);
    std::filesystem::create_directory(path / "sub");
    for (const char* const name : {"a.plt", "b.plt", "C.PLT", "sub/a.pen"})
      std::ofstream(path / name).put('\n');
    setenv("CORVANE_DRIVE_C", path.c_str(), 1);
  }
  ~RealTree() { std::filesystem::remove_all(path); }
  std::filesystem::path path;
  int last = 0;
};

void enumerate(const Text& lfs, const Text& ext, const Text& ver, bool stop_early) {
  FUMatchLFSHandle* handle;
  Out<CPWChar, FU_WIDE> out;
  int status = FUMatchLFSFirstW(lfs.c_str(), u"C", u"\\", ext.c_str(), ver.c_str(), out.units, &handle);
  if (status == FU_OK && handle == nullptr) return;
  // Relative directories may be large; a few names tell enough.
  for (int count = 0; status == FU_OK; status = FUMatchLFSNextW(&handle, out.units)) {
    require(out.length() != 0);
    if (stop_early || ++count == 50) return FUMatchLFSFreeW(handle);
  }
  require(status == FU_FAILED && handle == nullptr && out.length() == 0);
}

std::string low_bytes(const Text& text) {
  std::string bytes;
  for (const CPWChar c : text) bytes += static_cast<char>((c & 0xFF) != 0 ? c : 1);
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const RealTree tree;
  Input input(data, size);
  const int choices = input.byte();
  const Text ufs = input.text(), list = input.text(), delimiters = input.text();
  const Text ext = input.text(), ver = input.text();
  g_variables.clear();
  for (const char16_t* const name : {u"DATA", u"VX_PWP", u"X"}) g_variables[name] = input.text();
  CFSetGetEnvVarCallback(look_up);
  const long before = platform::capi_blocks_out();

  match_pattern(ufs, list);
  match_narrow_pattern(low_bytes(ufs), low_bytes(list));
  walk_list(list, delimiters, ufs);
  walk_narrow_list(low_bytes(list), low_bytes(delimiters), low_bytes(ufs));
  FakeTree files(choices & 4 ? 0 : 8);
  Out<CPWChar, FU_WIDE> out;
  const filespec::SearchConditions conditions{
      .switches = {.current_directory_first = (choices & 1) != 0, .as_is = (choices & 2) == 0},
      .files = &files,
      .observer = &files};
  const int status = searching([&] {
    return filespec::search_file(conditions, ufs.c_str(), list.c_str(), ext.c_str(), ver.c_str(), out.units);
  });
  out.length();
  files.check(status, out.units);
  Out<char, FU_NARROW> narrow_out;
  searching([&] {
    return FUSearchUFS(low_bytes(ufs).c_str(), low_bytes(list).c_str(), low_bytes(ext).c_str(),
                       low_bytes(ver).c_str(), narrow_out.units);
  });
  narrow_out.length();
  enumerate(ufs, ext, ver, (choices & 8) != 0);

  require(platform::capi_blocks_out() == before);
  CFSetGetEnvVarCallback(nullptr);
  return 0;
}
