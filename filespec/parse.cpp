// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The grammar of specifications: the five components, and what is full. The parser works on a private copy of
// at most 255 characters, so an output may be the buffer that holds the specification. Neither it nor
// FUIsFullHFSW uses the heap. No state.
#include "config/twin.h"
#include "corvane/print/fu.h"
#include "corvane/print/str.h"
#include "filespec/bounded.h"
#include "filespec/spec.h"

namespace Corvane::Print::filespec {
namespace {

namespace twin = config::twin;

// Cuts `rest` in front of the last `mark` and returns what followed the mark; nothing where there is none.
WideView take_version(WideView& rest) {
  const std::size_t mark = rest.rfind(CPWChar{';'});
  if (mark == WideView::npos) return {};
  const WideView version = rest.substr(mark + 1);
  rest = rest.substr(0, mark);
  return version;
}

WideView take_device(WideView& rest) {
  const std::size_t mark = rest.find(CPWChar{':'});
  if (mark == WideView::npos) return {};
  const WideView device = rest.substr(0, mark);
  rest.remove_prefix(mark + 1);
  return device;
}

// Writes the directory to `dir`, which may be null, and leaves the rest behind it.
void take_directory(WideView& rest, CPWChar* dir) {
  static constexpr CPWChar kSeparators[] = {'/', ']', '\\', 0};
  const std::size_t at = rest.find_last_of(kSeparators);
  if (at == WideView::npos) return;
  if (rest[at] == ']' || at == 0) {
    // KEEP(root-as-typed): the separator of a root stays as it was typed, / or \. Looks wrong beside the
    // other directories; callers compare a root with what they gave. Pinned by
    // ParseUfs.ARootKeepsItsSeparatorAsTyped.
    copy_view(dir, rest.substr(0, at + 1));
  } else if (dir != nullptr) {
    copy_view(dir, rest.substr(0, at));
    STRReplaceCharW(dir, '/', '\\', dir);
  }
  rest.remove_prefix(at + 1);
}

// The extension behind the last dot, which is cut off `rest`. A dot at the end is an extension itself, one at
// the beginning belongs to the name.
WideView take_extension(WideView& rest) {
  const std::size_t dot = rest.rfind(CPWChar{'.'});
  if (dot == WideView::npos) return {};
  const bool at_end = dot + 1 == rest.size();
  if (dot == 0 && !at_end) return {};
  const WideView extension = rest.substr(at_end ? dot : dot + 1);
  rest = rest.substr(0, dot);
  return extension;
}

bool begins_with(const CPWChar* text, const CPWChar* beginning) {
  return view_of(text).starts_with(view_of(beginning));
}

}  // namespace
}  // namespace Corvane::Print::filespec

using namespace Corvane::Print;
using namespace Corvane::Print::filespec;

int FUParseUFSW(const CPWChar* ufs, CPWChar* dev, CPWChar* dir, CPWChar* name, CPWChar* ext, CPWChar* ver) {
  const WideBuffer copy(ufs);
  for (CPWChar* const out : {dev, dir, name, ext, ver}) copy_view(out, {});
  WideView rest = copy.view();
  copy_view(ver, take_version(rest));
  copy_view(dev, take_device(rest));
  take_directory(rest, dir);
  copy_view(ext, take_extension(rest));
  copy_view(name, rest);
  return FU_OK;
}

int FUParseUFS(const char* ufs, char* dev, char* dir, char* name, char* ext, char* ver) {
  return FUParseUFSW(twin::in(ufs), twin::out_opt(dev), twin::out_opt(dir), twin::out_opt(name),
                     twin::out_opt(ext), twin::out_opt(ver));
}

// KEEP(slash-root-not-full): C:/f.txt is not full, while C:/a/f.txt is. Looks wrong; the root keeps its / and
// only \ counts as one. Pinned by IsFullHfs.ARootGivenWithASlashIsNotFull.
int FUIsFullHFSW(const CPWChar* hfs) {
  WideBuffer dev, dir;
  FUParseUFSW(hfs, dev, dir, nullptr, nullptr, nullptr);
  return begins_with(dir, dev.empty() ? W_("\\\\") : W_("\\")) ? 1 : 0;
}

int FUIsFullHFS(const char* hfs) {
  return FUIsFullHFSW(twin::in(hfs));
}

int FUIsFullLFSW(const CPWChar* lfs) {
  const WideBuffer text(lfs);
  if (FUIsFullHFSW(text) == 1 || CFIsVariableDefinedW(text)) return 1;
  WideBuffer dev, name;
  FUParseUFSW(text, dev, nullptr, name, nullptr, nullptr);
  return !dev.empty() && FUIsDriveLetterW(dev) == 0 && !name.empty() ? 1 : 0;
}

int FUIsFullLFS(const char* lfs) {
  return FUIsFullLFSW(twin::in(lfs));
}
