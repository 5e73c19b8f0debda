// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Levels and separators at the end of a host path. `out` may be the path itself, in the wide forms; then the
// buffer is taken to have 256 characters, of which the last is the terminator's whatever it holds, and
// nothing behind it is looked at. Otherwise the path is read to its end, however long, and the result is cut.
// No heap, no state.
#include <algorithm>

#include "config/codepage.h"
#include "config/twin.h"
#include "corvane/print/fu.h"
#include "filespec/bounded.h"

namespace Corvane::Print::filespec {
namespace {

namespace twin = config::twin;

// The whole path, as far as it may be read.
WideView whole_path(const CPWChar* path, const CPWChar* out) {
  if (path == nullptr || path == out) return view_of(path);
  return {path, config::wide_length(path)};
}

// Without one separator at the end, unless it is a root's.
WideView without_separator(WideView path) {
  if (path.empty() || path.back() != '\\') return path;
  const bool root = path.size() == 1 || (path.size() == 3 && path[1] == ':');
  return path.substr(0, path.size() - (root ? 0 : 1));
}

// Cuts the path behind its count-th separator from the end; false when it has fewer.
bool cut_levels(WideView& path, int count) {
  std::size_t end = path.size();
  while (count > 0 && end > 0) {
    if (path[end - 1] == '\\') --count;
    if (count > 0) --end;
  }
  path = path.substr(0, end);
  return count == 0;
}

}  // namespace
}  // namespace Corvane::Print::filespec

using namespace Corvane::Print::filespec;

int FUAppendCompHFSW(const CPWChar* hfs, const CPWChar* comp, CPWChar* out) {
  const WideBuffer component(comp);  // which may lie in out
  FUAppendDirSepHFSW(hfs, out);
  const int length = length_within(out, kLongest);
  const int room = kLongest - length;
  // KEEP(append-comp-unterminated): index 255 is not written: a component that fills the room leaves the text
  // without a terminator where there was none. Looks wrong; callers own that character and keep a zero in it.
  // Pinned by AppendComp.AComponentThatFillsTheRoomLeavesIndex255Alone.
  const int added = std::min(component.length(), room);
  std::copy_n(static_cast<const CPWChar*>(component), added, out + length);
  if (added < room) out[length + added] = 0;
  return FU_OK;
}

int FUAppendCompHFS(const char* hfs, const char* comp, char* out) {
  return FUAppendCompHFSW(twin::in(hfs), twin::in(comp), twin::out(out));
}

int FURemoveCompsHFSW(const CPWChar* hfs, int count, CPWChar* out) {
  WideView path = without_separator(whole_path(hfs, out));
  if (count < 0 || !cut_levels(path, count)) {
    copy_view(out, {});
    return FU_FAILED;
  }
  copy_view(out, count > 0 ? without_separator(path) : path);
  return FU_OK;
}

int FURemoveCompsHFS(const char* hfs, int count, char* out) {
  return FURemoveCompsHFSW(twin::in(hfs), count, twin::out(out));
}

// Room for a separator ends one character before the buffer does: a path of 255 characters is left alone.
int FUAppendDirSepHFSW(const CPWChar* src, CPWChar* out) {
  if (src != out) FUStrCopyW(out, src, kWide);
  FUAppendCharW(out, '\\');
  return FU_OK;
}

int FUAppendDirSepHFS(const char* src, char* out) {
  return FUAppendDirSepHFSW(twin::in(src), twin::out(out));
}

int FURemoveDirSepHFSW(const CPWChar* src, CPWChar* out) {
  copy_view(out, without_separator(whole_path(src, out)));
  return FU_OK;
}

int FURemoveDirSepHFS(const char* src, char* out) {
  return FURemoveDirSepHFSW(twin::in(src), twin::out(out));
}
