// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The grammar of specifications: the five components, and what is full. Where the components stand, is in
// split.h; it works on a private copy of at most 255 characters, so an output may be the buffer that holds
// the specification. Neither the parser nor FUIsFullHFSW uses the heap. No state.
#include "config/twin.h"
#include "corvane/print/fu.h"
#include "filespec/bounded.h"
#include "filespec/spec.h"
#include "filespec/split.h"

namespace Corvane::Print::filespec {

// KEEP(slash-root-not-full): C:/f.txt is not full, while C:/a/f.txt is. Looks wrong; the root keeps its / and
// only \ counts as one. Pinned by IsFullHfs.ARootGivenWithASlashIsNotFull.
bool is_full_host(const Split& spec) {
  const std::size_t needed = spec.device().empty() ? 2 : 1;
  const WideView directory = spec.typed_directory();
  if (directory.size() < needed) return false;
  const auto is_separator = [&](CPWChar c) { return c == '\\' || (c == '/' && !spec.keeps_directory()); };
  return is_separator(directory[0]) && is_separator(directory[needed - 1]);
}

bool is_full_logical(const Split& spec) {
  return is_full_host(spec) || CFIsVariableDefinedW(spec.text()) || is_behind_logical_device(spec);
}

bool is_behind_logical_device(const Split& spec) {
  if (spec.device().empty()) return false;
  WideBuffer dev;
  dev.set(spec.device());
  return FUIsDriveLetterW(dev) == 0 && !spec.name().empty();
}

}  // namespace Corvane::Print::filespec

using namespace Corvane::Print;
using namespace Corvane::Print::filespec;
namespace twin = config::twin;

int FUParseUFSW(const CPWChar* ufs, CPWChar* dev, CPWChar* dir, CPWChar* name, CPWChar* ext, CPWChar* ver) {
  const Split split(ufs);
  Split::take({}, dir);
  Split::take(split.version(), ver);
  Split::take(split.device(), dev);
  split.take_directory(dir);
  Split::take(split.extension(), ext);
  Split::take(split.name(), name);
  return FU_OK;
}

int FUParseUFS(const char* ufs, char* dev, char* dir, char* name, char* ext, char* ver) {
  return FUParseUFSW(twin::in(ufs), twin::out_opt(dev), twin::out_opt(dir), twin::out_opt(name),
                     twin::out_opt(ext), twin::out_opt(ver));
}

int FUIsFullHFSW(const CPWChar* hfs) {
  return is_full_host(Split(hfs)) ? 1 : 0;
}

int FUIsFullHFS(const char* hfs) {
  return FUIsFullHFSW(twin::in(hfs));
}

int FUIsFullLFSW(const CPWChar* lfs) {
  return is_full_logical(Split(lfs)) ? 1 : 0;
}

int FUIsFullLFS(const char* lfs) {
  return FUIsFullLFSW(twin::in(lfs));
}
