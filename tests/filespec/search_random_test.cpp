// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The search against a plain model of it, over trees of files that exist only in the test.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "filespec/search.h"
#include "tests/filespec/search_model.h"
#include "tests/filespec/searching.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

using search_model::Variables;

constexpr const char32_t* kPieces[] = {U"a",      U"b",       U"f.txt", U"g",  U".",    U"..",   U"\\",
                                       U"\\",     U"/",       U"]",     U":",  U";",    U"DATA", U"DATA:",
                                       U"VX_PWP", U"VX_PWP:", U"C:\\",  U"C:", U"\\\\", U"X",    U"2"};

WideText random_spec(Random& random, int pieces) {
  WideText text;
  while (pieces-- > 0) text += wide(kPieces[random.below(static_cast<int>(std::size(kPieces)))]);
  return text;
}

// Mostly a handful of pieces, sometimes of a length where buffers end.
WideText random_text(Random& random) {
  static constexpr int kLengths[] = {250, 254, 255, 256, 257, 511, 512, 513, 514, 5000};
  if (!random.one_in(40)) return random_spec(random, random.below(8));
  const auto length = static_cast<std::size_t>(kLengths[random.below(static_cast<int>(std::size(kLengths)))]);
  if (random.one_in(2)) {
    const WideText front = random_spec(random, 3);
    const WideText back = random_spec(random, 3);
    return front +
           WideText(length > front.size() + back.size() ? length - front.size() - back.size() : 0,
                    CPWChar('n')) +
           back;
  }
  WideText text;
  while (text.size() < length) text += random_spec(random, 1);
  return text.substr(0, length);
}

WideText random_list(Random& random) {
  WideText text;
  for (int n = random.below(4); n > 0; --n)
    text += random_text(random) + wide(random.one_in(8) ? U";;" : U";");
  return text;
}

struct Case {
  explicit Case(Random& random)
      : ufs(random_text(random)),
        list(random_list(random)),
        ext(random.one_in(2)   ? wide(U"ext")
            : random.one_in(3) ? random_text(random)
                               : WideText()),
        ver(random.one_in(4) ? wide(U"7") : WideText()),
        switches{random.one_in(3), !random.one_in(3)} {
    if (random.one_in(2)) add(U"DATA", random_list(random));
    if (random.one_in(2)) add(U"VX_PWP", random_list(random));
    if (random.one_in(4)) add(U"X", random_text(random));
    if (random.one_in(6) && !ufs.empty())
      variables[search_model::cut(ufs)] = wide(U"C:\\value\\") + random_text(random);
    std::erase_if(variables, [](const auto& each) { return each.second.empty(); });
  }
  void add(std::u32string_view name, const WideText& value) { variables[wide(name)] = value; }

  WideText ufs, list, ext, ver;
  filespec::SearchSwitches switches;
  Variables variables;
};

class FakeTree : public filespec::FileProbe, public filespec::SearchObserver {
public:
  explicit FakeTree(const std::set<WideText>& files) : files_(files) {}
  bool is_file(const CPWChar* spec) override { return files_.contains(spec); }
  void tried(int step, const CPWChar* candidate, bool found) override {
    all.push_back({step, candidate, found});
  }
  std::vector<Tried> all;

private:
  const std::set<WideText>& files_;
};

// The model's candidates when there is no file: from these the files of the case are taken.
std::set<WideText> random_files(Random& random, const Case& c) {
  std::set<WideText> files;
  search_model::Search nothing(c.variables, c.switches.current_directory_first, c.switches.as_is,
                               [](const WideText&) { return false; });
  nothing(c.ufs, c.list, c.ext, c.ver);
  if (nothing.tried.empty()) return files;
  for (int n = random.below(3); n > 0; --n)
    files.insert(nothing.tried[static_cast<std::size_t>(random.below(static_cast<int>(nothing.tried.size())))]
                     .candidate);
  return files;
}

TEST(SearchRandom, AgreesWithThePlainModel) {
  long found = 0, by_inner_search = 0;
  const int cases = scaled(100000);
  for (int i = 0; i < cases; ++i) {
    const std::uint64_t seed = case_seed(0x5EA4, i);
    Random random(seed);
    const Case c(random);
    const std::set<WideText> files = random_files(random, c);
    const HostVariables variables(c.variables);
    search_model::Search model(c.variables, c.switches.current_directory_first, c.switches.as_is,
                               [&files](const WideText& spec) { return files.contains(spec); });
    const int expected = model(c.ufs, c.list, c.ext, c.ver) ? FU_OK : FU_NOT_FOUND;

    FakeTree tree(files);
    Guarded<CPWChar> out(FU_WIDE);
    const filespec::SearchConditions conditions{.switches = c.switches, .files = &tree, .observer = &tree};
    const int status = filespec::search_file(conditions, c.ufs.c_str(), c.list.c_str(), c.ext.c_str(),
                                             c.ver.c_str(), out.data());
    ASSERT_EQ(status, expected) << "seed " << seed;
    ASSERT_EQ(tree.all, model.tried) << "seed " << seed;
    ASSERT_EQ(WideText(out.data()), model.found) << "seed " << seed;
    ASSERT_TRUE(out.intact()) << "seed " << seed;
    if (status == FU_OK) ++found;
    if (status == FU_OK && tree.all.back().step >= FU_STEP_RELOCATED) ++by_inner_search;
  }
  // The cases are worth something only when searches succeed, also the inner ones.
  EXPECT_GT(found, cases / 10);
  EXPECT_TRUE(by_inner_search > cases / 500 || cases < 5000);
}

}  // namespace
}  // namespace Corvane::Print::tests
