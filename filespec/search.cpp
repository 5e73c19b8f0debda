// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The seven steps of the search, in order; the first candidate that is a regular file ends it. Steps 5 and 6
// search again for another text, without search path and defaults.
//
// Why it always ends: the text of an inner search begins with VX_PWP:, so that its own step 5 finds too few
// levels to cut, and its own step 6 makes of it VX_PWP: and its name, of which the same would be made again.
// A search that would repeat one that is still under way is given up.
//
// No shared state.
#include "filespec/search.h"

#include "filespec/bounded.h"
#include "filespec/list_walk.h"
#include "filespec/spec.h"
#include "platform/platform.h"

namespace Corvane::Print::filespec {
namespace {

constexpr int kRelocatedLevels = 2;

// Where the last two levels of a specification begin: behind the second \ from its end, one at its very end
// not counted. Null when there are fewer.
const CPWChar* last_levels(const CPWChar* spec) {
  WideBuffer trimmed;
  FURemoveDirSepHFSW(spec, trimmed);
  int missing = kRelocatedLevels;
  for (int at = trimmed.length(); at > 0; --at) {
    if (trimmed.view()[static_cast<std::size_t>(at) - 1] == u'\\' && --missing == 0) return spec + at;
  }
  return nullptr;
}

// A specification with the default extension and version where it has none. False when it has no need of
// them.
bool fill_defaults(const CPWChar* spec, const WideBuffer& def_ext, const WideBuffer& def_ver,
                   WideBuffer& filled) {
  if (def_ext.empty() && def_ver.empty()) return false;
  Components parts;
  parse(spec, parts);
  const bool fill_ext = parts.ext.empty() && !def_ext.empty();
  const bool fill_ver = parts.ver.empty() && !def_ver.empty();
  if (!fill_ext && !fill_ver) return false;
  if (fill_ext) parts.ext = def_ext;
  if (fill_ver) parts.ver = def_ver;
  build(parts, filled);
  return true;
}

class Search {
public:
  Search(const SearchConditions& conditions, const CPWChar* ufs, const CPWChar* def_ext,
         const CPWChar* def_ver)
      : conditions_(conditions), ufs_(ufs), def_ext_(def_ext), def_ver_(def_ver) {
    FUParseUFSW(ufs_, dev_, dir_, name_, ext_, nullptr);
  }

  int run(const CPWChar* search_path) {
    const bool found = in_current_directory() || as_is() || as_variable() || in_lists(search_path) ||
                       relocated() || by_name_alone();
    return found ? FU_OK : status_;
  }

  const CPWChar* found() const { return found_; }

private:
  // A search within `outer`, for another text.
  Search(const Search& outer, int step, const CPWChar* ufs)
      : Search(outer.conditions_, ufs, nullptr, nullptr) {
    outer_ = &outer;
    reported_step_ = outer.reported_step_ != 0 ? outer.reported_step_ : step;
  }

  bool in_current_directory();
  bool as_is();
  bool as_variable();
  bool in_lists(const CPWChar* search_path);
  bool in_list(const CPWChar* list);
  bool in_directory(WideView directory);
  bool relocated();
  bool by_name_alone();

  bool search_within(int step, const CPWChar* text);
  bool repeats(const CPWChar* text) const;
  bool try_text(int step, const CPWChar* text);
  bool try_candidate(int step, WideView candidate);
  bool exists(int step, WideView candidate);

  const SearchConditions& conditions_;
  const Search* outer_ = nullptr;
  int reported_step_ = 0;  // of an inner search: the step of the host's search that led here; else 0
  WideBuffer ufs_, def_ext_, def_ver_;
  WideBuffer dev_, dir_, name_, ext_;  // of ufs_
  WideBuffer found_;
  int status_ = FU_NOT_FOUND;
};

bool Search::in_current_directory() {
  if (!conditions_.switches.current_directory_first) return false;
  WideBuffer candidate;
  FUBuildLFSW(nullptr, W_("."), name_, ext_, nullptr, candidate);
  return try_candidate(FU_STEP_CURRENT_DIRECTORY, candidate.view());
}

bool Search::as_is() {
  if (!conditions_.switches.as_is && FUIsFullLFSW(ufs_) == 0) return false;
  return try_candidate(FU_STEP_AS_IS, ufs_.view());
}

// KEEP(search-variable-stays): the value that names the file which was found is never released; one that did
// not help is. Looks wrong; a search that ends here has always left it, as a narrow lookup leaves its wide
// value. Pinned by SearchMemory.AValueThatNamesTheFileStaysAllocated.
//
// Never inlined, so that the leak suppressions of the tests can name this frame and cover nothing else.
[[gnu::noinline]] bool Search::as_variable() {
  VariableValue value(ufs_);
  if (!value || !try_text(FU_STEP_VARIABLE, value.text())) return false;
  value.leave_allocated();
  return true;
}

bool Search::in_lists(const CPWChar* search_path) {
  const VariableValue device(dev_);
  if (device && in_list(device.text())) return true;
  return !is_empty(search_path) && in_list(search_path);
}

bool Search::in_list(const CPWChar* list) {
  ListWalk elements;
  if (!elements.start(list, W_(";"))) {
    status_ = FU_NO_MEMORY;
    return false;
  }
  for (;;) {
    const WideView element = elements.next_view();
    if (element.empty()) return false;
    if (in_directory(element)) return true;
  }
}

// KEEP(search-list-drops-version): in the directories of a list the version that was asked for is not looked
// for. Looks wrong; lists hold the current files, and only a default version is put behind them. Pinned by
// SearchLists.TheVersionIsNotLookedFor.
//
// Candidates are put together where they are tried, from texts whose lengths are known.
bool Search::in_directory(WideView directory) {
  const WideView dir = dir_.view(), name = name_.view(), ext = ext_.view();
  CPWChar plain_text[kWide];
  GrowingText plain(plain_text);
  join({{}, directory, name, ext, {}}, plain);
  const WideView first = plain.finish();
  if (try_candidate(FU_STEP_LISTS, first)) return true;
  // Without a directory of its own the specification makes the same candidate once more, as the separator
  // stands in front of the name already.
  if (dir.empty() && !name.empty()) return false;

  CPWChar below_text[kWide], second_text[kWide];
  GrowingText below(below_text), second(second_text);
  below.append(directory);
  below.append_char('\\');
  below.append(dir);
  join({{}, below.finish(), name, ext, {}}, second);
  return second.finish() != first && try_candidate(FU_STEP_LISTS, second.finish());
}

bool Search::relocated() {
  if (FUIsFullHFSW(ufs_) == 0 || !CFIsVariableDefinedW(W_("VX_PWP"))) return false;
  const CPWChar* const levels = last_levels(ufs_);
  if (levels == nullptr) return false;
  WideBuffer text(W_("VX_PWP:"));
  text.append(levels);
  return search_within(FU_STEP_RELOCATED, text);
}

bool Search::by_name_alone() {
  if (ufs_.empty() || FUIsFullLFSW(ufs_) != 0 || !CFIsVariableDefinedW(W_("VX_PWP"))) return false;
  WideBuffer text;
  FUBuildLFSW(nullptr, W_("VX_PWP:"), name_, ext_, nullptr, text);
  return search_within(FU_STEP_BY_NAME, text);
}

bool Search::search_within(int step, const CPWChar* text) {
  if (repeats(text)) return false;
  Search inner(*this, step, text);
  const int status = inner.run(nullptr);
  if (status == FU_NO_MEMORY) status_ = FU_NO_MEMORY;
  if (status != FU_OK) return false;
  found_.set(inner.found());
  return true;
}

bool Search::repeats(const CPWChar* text) const {
  for (const Search* search = this; search != nullptr; search = search->outer_) {
    if (same_text(search->ufs_, text)) return true;
  }
  return false;
}

bool Search::try_text(int step, const CPWChar* text) {
  const WideBuffer candidate(text);
  return try_candidate(step, candidate.view());
}

//   candidate  zero-terminated
bool Search::try_candidate(int step, WideView candidate) {
  if (exists(step, candidate)) return true;
  WideBuffer filled;
  return fill_defaults(candidate.data(), def_ext_, def_ver_, filled) && exists(step, filled.view());
}

bool Search::exists(int step, WideView candidate) {
  if (candidate.empty()) return false;
  const CPWChar* const text = candidate.data();
  const bool found = conditions_.files != nullptr
                         ? conditions_.files->is_file(text)
                         : platform::host_file_is_regular(text, static_cast<int>(candidate.size()));
  if (conditions_.observer != nullptr)
    conditions_.observer->tried(reported_step_ != 0 ? reported_step_ : step, text, found);
  if (found) found_.set(text);
  return found;
}

}  // namespace

int search_file(const SearchConditions& conditions, const CPWChar* ufs, const CPWChar* search_path,
                const CPWChar* def_ext, const CPWChar* def_ver, CPWChar* out) {
  Search search(conditions, ufs, def_ext, def_ver);
  const int status = search.run(search_path);
  FUStrCopyW(out, status == FU_OK ? search.found() : nullptr, kWide);
  return status;
}

}  // namespace Corvane::Print::filespec
