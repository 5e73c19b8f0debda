// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// From a logical specification to a host one, and from a partial host path to a full one. Every step works in
// buffers of 256 characters, and each function reads all of its inputs before it writes its result, apart
// from the defaults of FUFindCreateHFSW. Shared state is only looked at: the configuration variables and the
// current directory.
#include <memory>

#include "config/codepage.h"
#include "config/twin.h"
#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "filespec/bounded.h"
#include "filespec/spec.h"
#include "platform/platform.h"

namespace Corvane::Print::filespec {
namespace {

namespace twin = config::twin;

constexpr int kMostLevels = 50;

struct ReleaseValue {
  void operator()(char* value) const { CFReleaseValue(value); }
};

// Device and directory of a text that names a directory, with or without a separator at its end.
void parse_directory(WideBuffer& directory, CPWChar* dev, CPWChar* dir) {
  directory.append_char('\\');
  FUParseUFSW(directory, dev, dir, nullptr, nullptr, nullptr);
}

// Replaces device and directory by those of the default device.
int take_default_device(const CPWChar* given, Components& parts) {
  const WideBuffer device(given);
  WideBuffer translated;
  const int status = FUTranslateLFSW(device, translated);
  if (status != FU_OK) return status;
  if (same_text(translated, device)) {
    parts.dev.set(device);
  } else {
    // KEEP(default-device-list): a default device that is itself the name of a variable stands for the whole
    // value, where a ; starts a version: of a list, the first entry without its last level is used. Looks
    // wrong; hosts give a device with its colon where they have lists. Pinned by
    // FindCreateHfs.ADefaultDeviceThatIsAVariableWithAListLosesALevel.
    parse_directory(translated, parts.dev, parts.dir);
  }
  return FU_OK;
}

// Whether the default was taken.
bool take_default(const CPWChar* given, WideBuffer& part) {
  if (!part.empty() || is_empty(given)) return false;
  part.set(given);
  return true;
}

// The levels of a directory; none when there are more than kMostLevels.
struct Levels {
  explicit Levels(WideBuffer& dir) {
    // KEEP(fifty-levels): a directory of more than 50 levels counts as one of none. Looks wrong; hosts rely
    // on such paths to resolve to something. Pinned by
    // FindFullHfs.ADirectoryOfMoreThanFiftyLevelsCountsAsNone.
    static_cast<void>(FUSplitDirW(dir, level, kMostLevels, &count));
  }

  // Goes where another directory leads from here; false when that is above the root. There is room for the
  // levels of both.
  bool descend(const Levels& steps) {
    for (int i = 0; i < steps.count; ++i) {
      // KEEP(parent-exact): only the exact text .. climbs; there is no case to ignore, and other spellings,
      // such as "..." or ".. ", are levels. Looks wrong where the system forgives them; it does so itself
      // when the path is used. Pinned by FindFullHfs.OnlyTheExactTextClimbs.
      if (same_text(steps.level[i], W_(".."))) {
        if (count == 0) return false;
        --count;
      } else if (!same_text(steps.level[i], W_("."))) {
        level[count++] = steps.level[i];
      }
    }
    return true;
  }

  CPWChar* level[2 * kMostLevels];
  int count = 0;
};

// The directory `levels` under a root of one \, or two for a network path.
void join_levels(const Levels& levels, bool network, WideBuffer& dir) {
  dir.set(network ? W_("\\\\") : W_("\\"));
  for (int i = 0; i < levels.count; ++i) {
    dir.append(levels.level[i]);
    dir.append(W_("\\"));
  }
}

// A path that starts neither at a device nor at a root, from the current directory on. `partial` receives the
// full path's components.
bool resolve_relative(Components& partial) {
  WideBuffer current_dir;
  // KEEP(drive-relative-device): the path's own device is ignored: D:x\f resolves under the current drive.
  // Looks wrong; there is one current directory, not one for each drive. Pinned by
  // FindFullHfs.TheDeviceOfARelativePathIsIgnored.
  FUGetCurrentDevDirW(partial.dev, current_dir);
  const bool network = current_dir.view().starts_with(view_of(W_("\\\\")));
  Levels levels(current_dir);
  WideBuffer steps(partial.dir);
  if (!levels.descend(Levels(steps))) return false;
  join_levels(levels, network, partial.dir);
  return true;
}

}  // namespace

int FUTranslateLFSW(const CPWChar* lfs, CPWChar* out) {
  const WideBuffer text(lfs);
  if (const VariableValue value{text}) {
    FUStrCopyW(out, value.text(), kWide);
    return FU_OK;
  }
  Components parts;
  parse(text, parts);
  if (parts.dev.empty() || FUIsDriveLetterW(parts.dev) == 1) {
    FUStrCopyW(out, text, kWide);
    return FU_OK;
  }
  const VariableValue value{parts.dev};
  if (!value) {
    FUStrCopyW(out, W_(""), kWide);
    return FU_NO_DEVICE;
  }
  // KEEP(device-drops-directory): the specification's own directory gives way to that of its device's first
  // entry, also when that entry is empty. Looks wrong; a logical device names the directory itself. Pinned by
  // Translate.TheDirectoryOfALogicalSpecificationIsDropped.
  WideBuffer directory(value.text());
  if (CPWChar* const end = find_first(directory, ';')) *end = 0;
  parse_directory(directory, parts.dev, parts.dir);
  build(parts, out);
  return FU_OK;
}

void FUGetCurrentDevDirW(CPWChar* dev, CPWChar* dir) {
  WideBuffer given, current;
  if (const std::unique_ptr<char, ReleaseValue> pwd{CFGetenv("PWD")}) {
    config::widen_cut(pwd.get(), given, FU_WIDE);
    platform::host_directory(given, current, FU_WIDE);
  } else {
    platform::current_directory(current, FU_WIDE);
  }
  parse_directory(current, dev, dir);
}

int FUSplitDirW(CPWChar* dir, CPWChar** levels, int max, int* count) {
  *count = 0;
  CPWChar* rest = dir;
  while (*rest != 0) {
    CPWChar* const end = find_first(rest, '\\');
    if (end != rest) {
      if (*count == max) {
        *count = 0;
        return FU_FAILED;
      }
      levels[(*count)++] = rest;
    }
    if (end == nullptr) break;
    *end = 0;
    rest = end + 1;
  }
  return FU_OK;
}

}  // namespace Corvane::Print::filespec

using namespace Corvane::Print::filespec;

int FUFindCreateHFSW(const CPWChar* lfs, const CPWChar* defDev, const CPWChar* defDir, const CPWChar* defExt,
                     const CPWChar* defVer, CPWChar* out) {
  int status = FUTranslateLFSW(lfs, out);
  if (status != FU_OK) return status;
  Components parts;
  parse(out, parts);
  bool changed = parts.dev.empty() && !is_empty(defDev);
  if (changed) status = take_default_device(defDev, parts);
  if (status != FU_OK) return status;
  changed |= take_default(defDir, parts.dir);
  changed |= take_default(defExt, parts.ext);
  changed |= take_default(defVer, parts.ver);
  if (changed) build(parts, out);
  return FU_OK;
}

int FUFindCreateHFS(const char* lfs, const char* defDev, const char* defDir, const char* defExt,
                    const char* defVer, char* out) {
  return FUFindCreateHFSW(twin::in(lfs), twin::in(defDev), twin::in(defDir), twin::in(defExt),
                          twin::in(defVer), twin::out(out));
}

int FUFindFullHFSW(const CPWChar* partialHfs, CPWChar* out) {
  const WideBuffer partial(partialHfs);
  FUStrCopyW(out, partial, kWide);
  if (FUIsFullHFSW(partial) == 1) return FU_OK;
  Components parts;
  parse(partial, parts);
  // KEEP(slash-is-relative): a path that starts with / is relative; where that / is its whole directory, it
  // is a level of that name. Looks wrong; only \ makes a root, as in the test of what is full. Pinned by
  // FindFullHfs.ARootGivenWithASlashIsALevelOfThatName.
  if (partial[0] == '\\') {
    WideBuffer unused;
    FUGetCurrentDevDirW(parts.dev, unused);
  } else if (!resolve_relative(parts)) {
    FUStrCopyW(out, W_(""), kWide);
    return FU_FAILED;
  }
  build(parts, out);
  return FU_OK;
}

int FUFindFullHFS(const char* partialHfs, char* out) {
  return FUFindFullHFSW(twin::in(partialHfs), twin::out(out));
}
