// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Translating, filling with defaults and making full, compared with a second implementation, and the narrow
// forms with the wide ones.
#include <gtest/gtest.h>

#include "corvane/print/fu.h"
#include "filespec/spec.h"
#include "tests/filespec/spec_models.h"
#include "tests/filespec/spec_support.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

using Parts = SpecModel::Parts;
using Result = SpecModel::Result;

// A current directory that is spelt the same on every system.
std::u32string host_directory(RandomSpecs& specs) {
  const std::u32string directory = specs.spec();
  return directory.empty() || directory[0] == U'/' ? U"C:" + directory : directory;
}

class ResolveRandom : public testing::Test {
protected:
  // Every case has its own seed and its own variables.
  template <class Case>
  void run(std::uint64_t family, Case one) {
    const ScopedVariables scope((Variables()));
    for (int i = 0; i < scaled(100000); ++i) {
      const std::uint64_t seed = case_seed(family, i);
      SCOPED_TRACE(testing::Message() << "seed " << seed);
      Random random(seed);
      RandomSpecs specs(random);
      model_.variables = specs.variables();
      ScopedVariables::set(model_.variables);
      one(specs);
      if (HasFailure()) return;
    }
  }

  SpecModel model_;
};

}  // namespace

TEST_F(ResolveRandom, TranslationIsThatOfASecondImplementation) {
  run(0xF006, [this](RandomSpecs& specs) {
    const WideText lfs = wide(specs.spec());
    const Result result =
        wide_answer([&](CPWChar* out) { return filespec::FUTranslateLFSW(lfs.c_str(), out); });
    EXPECT_EQ(result, model_.translate(lfs)) << plain(lfs);
  });
}

TEST_F(ResolveRandom, DefaultsAreFilledAsByASecondImplementation) {
  run(0xF007, [this](RandomSpecs& specs) {
    const WideText lfs = wide(specs.spec());
    const Parts defaults{wide(specs.spec()), wide(specs.spec()), {}, wide(specs.spec()), wide(specs.spec())};
    const Result result = wide_answer([&](CPWChar* out) {
      return FUFindCreateHFSW(lfs.c_str(), defaults.dev.c_str(), defaults.dir.c_str(), defaults.ext.c_str(),
                              defaults.ver.c_str(), out);
    });
    EXPECT_EQ(result, model_.find_create(lfs, defaults)) << plain(lfs) << ", " << plain(defaults.dev);
  });
}

TEST_F(ResolveRandom, NarrowDefaultsAreFilledAsWideOnes) {
  run(0xF008, [](RandomSpecs& specs) {
    std::string texts[5];
    WideText as_wide[5];
    for (int k = 0; k < 5; ++k) {
      texts[k] = narrow(specs.spec());
      as_wide[k] = widened(texts[k]);
    }
    const Result result = wide_answer([&](CPWChar* out) {
      return FUFindCreateHFSW(as_wide[0].c_str(), as_wide[1].c_str(), as_wide[2].c_str(), as_wide[3].c_str(),
                              as_wide[4].c_str(), out);
    });
    EXPECT_EQ(narrow_answer([&](char* out) {
                return FUFindCreateHFS(texts[0].c_str(), texts[1].c_str(), texts[2].c_str(), texts[3].c_str(),
                                       texts[4].c_str(), out);
              }),
              Answer(result.first, narrowed(result.second)));
  });
}

TEST_F(ResolveRandom, PathsAreMadeFullAsByASecondImplementation) {
  run(0xF009, [this](RandomSpecs& specs) {
    const std::string current = narrow(host_directory(specs));
    model_.variables[w("PWD")] = widened(current);
    ScopedVariables::set(model_.variables);
    const WideText partial = wide(specs.spec());
    const Result result = wide_answer([&](CPWChar* out) { return FUFindFullHFSW(partial.c_str(), out); });
    EXPECT_EQ(result, SpecModel::find_full(partial, widened(current))) << plain(partial) << ", " << current;
  });
}

TEST_F(ResolveRandom, NarrowPathsAreMadeFullAsWideOnes) {
  run(0xF00A, [](RandomSpecs& specs) {
    const std::string partial = narrow(specs.spec());
    const WideText as_wide = widened(partial);
    const Result result = wide_answer([&](CPWChar* out) { return FUFindFullHFSW(as_wide.c_str(), out); });
    EXPECT_EQ(narrow_answer([&](char* out) { return FUFindFullHFS(partial.c_str(), out); }),
              Answer(result.first, narrowed(result.second)))
        << partial;
  });
}

}  // namespace Corvane::Print::tests
