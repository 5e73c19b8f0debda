// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Joining components. The result grows in a buffer of its own, so it may be written over one of the
// components. No heap, no state.
#include "config/codepage.h"
#include "config/twin.h"
#include "corvane/print/fu.h"
#include "filespec/bounded.h"
#include "filespec/spec.h"

namespace Corvane::Print::filespec {
namespace {

namespace twin = config::twin;

// Characters of a name and its extension with its dot, above which the name is cut.
constexpr std::size_t kNameAndExtension = 513;

// What the extension adds to the name.
std::size_t extension_length(WideView ext) {
  if (ext.empty()) return 0;
  return ext.size() + (ext.front() == '.' ? 0 : 1);
}

// KEEP(build-513): a name is cut only when it and its extension exceed 513 characters, twice what the result
// has room for, and only then is the result FU_SHORTENED. Looks wrong; callers take that status for a name
// they must not use, and shorter ones that are cut by the buffer were always let through. Pinned by
// BuildLfs.TheNameIsShortenedOnlyAbove513Characters.
//
// The lengths are those of the whole texts; more than 255 characters reach the result in no case.
int append_name(GrowingText& spec, WideView name, WideView ext) {
  const std::size_t extension = extension_length(ext);
  if (name.size() + extension <= kNameAndExtension) {
    spec.append(name);
    return FU_OK;
  }
  const std::size_t kept = extension < kNameAndExtension ? kNameAndExtension - extension : 0;
  spec.append(name.substr(0, kept));
  return FU_SHORTENED;
}

// The text behind its mark, which is put in front where the text does not begin with it. An empty
// specification receives no mark (append-char-empty).
void append_marked(GrowingText& spec, char16_t mark, WideView text) {
  if (text.empty()) return;
  if (text.front() != mark) spec.append_char(mark);
  spec.append(text);
}

// The whole text, however long.
WideView whole(const CPWChar* text) {
  return text != nullptr ? WideView(text, config::wide_length(text)) : WideView();
}

}  // namespace

int join(const ComponentViews& parts, GrowingText& spec) {
  int status = FU_OK;
  if (!parts.dev.empty()) {
    spec.append(parts.dev);
    spec.append_char(':');
  }
  if (!parts.dir.empty()) {
    spec.append(parts.dir);
    // KEEP(build-slash-backslash): a directory that ends in / still receives \. Looks wrong; systems take the
    // two for one, and results are compared as text. Pinned by
    // BuildLfs.ADirectoryEndingInASlashReceivesABackslash.
    if (!parts.name.empty()) spec.append_char('\\');
  }
  if (!parts.name.empty()) status = append_name(spec, parts.name, parts.ext);
  append_marked(spec, '.', parts.ext);
  append_marked(spec, ';', parts.ver);
  return status;
}

}  // namespace Corvane::Print::filespec

using namespace Corvane::Print::filespec;

int FUBuildLFSW(const CPWChar* dev, const CPWChar* dir, const CPWChar* name, const CPWChar* ext,
                const CPWChar* ver, CPWChar* out) {
  CPWChar text[kWide];
  GrowingText spec(text);
  const int status = join({whole(dev), whole(dir), whole(name), whole(ext), whole(ver)}, spec);
  copy_view(out, spec.finish());
  return status;
}

int FUBuildLFS(const char* dev, const char* dir, const char* name, const char* ext, const char* ver,
               char* out) {
  return FUBuildLFSW(twin::in_or_empty(dev), twin::in_or_empty(dir), twin::in_or_empty(name),
                     twin::in_or_empty(ext), twin::in_or_empty(ver), twin::out(out));
}
