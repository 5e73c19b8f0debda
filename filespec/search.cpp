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

#include "config/value.h"
#include "filespec/bounded.h"
#include "filespec/list_walk.h"
#include "filespec/spec.h"
#include "filespec/split.h"
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
    dev_.set(ufs_.device());
    ufs_.take_directory(dir_);
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
  WideView in_folder(WideView directory, CPWChar* text) const;
  bool in_lists(const CPWChar* search_path);
  bool in_list(const CPWChar* list);
  bool asks_the_system_only() const;
  bool in_directory(WideView directory, WideView file);
  bool in_directory(WideView directory);
  bool relocated();
  bool by_name_alone();
  bool is_full_logical_still() const;

  bool search_within(int step, const CPWChar* text);
  bool repeats(const CPWChar* text) const;
  bool try_text(int step, const CPWChar* text);
  bool try_candidate(int step, WideView candidate);
  bool exists(int step, WideView candidate);

  const SearchConditions& conditions_;
  const Search* outer_ = nullptr;
  int reported_step_ = 0;  // of an inner search: the step of the host's search that led here; else 0
  const Split ufs_;
  WideBuffer def_ext_, def_ver_;
  WideBuffer dev_, dir_;  // of ufs_
  const WideView name_ = ufs_.name(), ext_ = ufs_.extension();
  WideBuffer found_;
  bool is_variable_ = false;  // what as_variable() has found
  int status_ = FU_NOT_FOUND;
};

// Name and extension of the specification behind a directory; `text` has room for 256 characters.
WideView Search::in_folder(WideView directory, CPWChar* text) const {
  GrowingText spec(text);
  join({{}, directory, name_, ext_, {}}, spec);
  return spec.finish();
}

bool Search::in_current_directory() {
  if (!conditions_.switches.current_directory_first) return false;
  CPWChar text[kWide];
  return try_candidate(FU_STEP_CURRENT_DIRECTORY, in_folder(W_("."), text));
}

bool Search::as_is() {
  if (!conditions_.switches.as_is && !is_full_logical(ufs_)) return false;
  return try_candidate(FU_STEP_AS_IS, ufs_.view());
}

// KEEP(search-variable-stays): the value that names the file which was found is never released; one that did
// not help is. Looks wrong; a search that ends here has always left it, as a narrow lookup leaves its wide
// value. Pinned by SearchMemory.AValueThatNamesTheFileStaysAllocated.
//
// Never inlined, so that the leak suppressions of the tests can name this frame and cover nothing else.
[[gnu::noinline]] bool Search::as_variable() {
  VariableValue value(ufs_.text());
  is_variable_ = static_cast<bool>(value);
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
  CPWChar text[kWide];
  const WideView file = asks_the_system_only() ? in_folder(W_("\\"), text) : WideView();
  for (;;) {
    const WideView element = elements.next_view();
    if (element.empty()) return false;
    const bool in_pieces = !file.empty() && element.size() + file.size() < kWide;
    if (in_pieces ? in_directory(element, file) : in_directory(element)) return true;
  }
}

// Whether a directory has one candidate, of which nobody but the system is told.
bool Search::asks_the_system_only() const {
  return conditions_.files == nullptr && conditions_.observer == nullptr && def_ext_.empty() &&
         def_ver_.empty() && dir_.empty() && !name_.empty();
}

// Asks for that one candidate in two pieces, the file with a separator in front.
//
// What it buys: a candidate costs 35 ns beside the system's call instead of 50. Why it cannot change a
// result: the pieces make up the candidate, which is put together as ever when the file is there.
bool Search::in_directory(WideView directory, WideView file) {
  if (directory.back() == '\\') file.remove_prefix(1);
  if (!platform::host_file_in_folder(directory.data(), static_cast<int>(directory.size()), file.data(),
                                     static_cast<int>(file.size())))
    return false;
  in_folder(directory, found_);
  return true;
}

// KEEP(search-list-drops-version): in the directories of a list the version that was asked for is not looked
// for. Looks wrong; lists hold the current files, and only a default version is put behind them. Pinned by
// SearchLists.TheVersionIsNotLookedFor.
//
// Candidates are put together where they are tried, from texts whose lengths are known.
bool Search::in_directory(WideView directory) {
  CPWChar first_text[kWide];
  const WideView first = in_folder(directory, first_text);
  if (try_candidate(FU_STEP_LISTS, first)) return true;
  // Without a directory of its own the specification makes the same candidate once more, as the separator
  // stands in front of the name already.
  if (dir_.empty() && !name_.empty()) return false;

  CPWChar below_text[kWide], second_text[kWide];
  GrowingText below(below_text);
  below.append(directory);
  below.append_char('\\');
  below.append(dir_.view());
  const WideView second = in_folder(below.finish(), second_text);
  return second != first && try_candidate(FU_STEP_LISTS, second);
}

bool Search::relocated() {
  if (!is_full_host(ufs_) || !CFIsVariableDefinedW(W_("VX_PWP"))) return false;
  const CPWChar* const levels = last_levels(ufs_.text());
  if (levels == nullptr) return false;
  WideBuffer text(W_("VX_PWP:"));
  text.append(levels);
  return search_within(FU_STEP_RELOCATED, text);
}

bool Search::by_name_alone() {
  if (ufs_.view().empty() || is_full_logical_still() || !CFIsVariableDefinedW(W_("VX_PWP"))) return false;
  CPWChar text[kWide];
  return search_within(FU_STEP_BY_NAME, in_folder(W_("VX_PWP:"), text).data());
}

// The environment is not asked for the same variable again, while a host is: it sees each lookup, and may
// define variables when it is told of a candidate. What it buys: 40 ns of a search that finds nothing.
bool Search::is_full_logical_still() const {
  if (config::host_is_asked() || conditions_.observer != nullptr || conditions_.files != nullptr)
    return is_full_logical(ufs_);
  return is_full_host(ufs_) || is_variable_ || is_behind_logical_device(ufs_);
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
    if (search->ufs_.view() == view_of(text)) return true;
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
