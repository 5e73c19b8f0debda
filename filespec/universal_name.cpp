// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// From a path on a mapped drive to its network form. The wide and the narrow function ask the network
// provider in their own kind of text, so the steps are written once, over a family of functions. No shared
// state.
//
// KEEP(universal-name-raises): where the network provider library or its function is missing, the structured
// exception 0xC06D007E or 0xC06D007F of the default failure handling leaves FUGetUniversalName(W), with an
// empty result. Looks wrong for functions that return a status; hosts that ship without the provider filter
// these codes, and a recorder of theirs may supply the function instead. So nothing on this way may own
// anything that an exception would leave behind: buffers on the stack only, and no noexcept. Pinned by
// LateBinding.AMissingProviderRaisesTheModuleException,
// LateFunction.AMissingFunctionRaisesTheProcedureException.
#include "config/twin.h"
#include "corvane/print/fu.h"
#include "corvane/print/str.h"
#include "filespec/bounded.h"
#include "filespec/text.h"
#include "platform/platform.h"

namespace Corvane::Print::filespec {
namespace {

struct WideFamily {
  using Char = CPWChar;
  static constexpr int kRoom = FU_WIDE;
  static constexpr auto& parse = FUParseUFSW;
  static constexpr auto& build = FUBuildLFSW;
  static constexpr auto& append_component = FUAppendCompHFSW;
  static constexpr auto& delete_trail = STRDeleteCharTrailW;
  static bool is_drive_letter(const Char* text) { return FUIsDriveLetterW(text) != 0; }
};

struct NarrowFamily {
  using Char = char;
  static constexpr int kRoom = FU_NARROW;
  static constexpr auto& parse = FUParseUFS;
  static constexpr auto& build = FUBuildLFS;
  static constexpr auto& append_component = FUAppendCompHFS;
  static constexpr auto& delete_trail = STRDeleteCharTrail;
  static bool is_drive_letter(const Char* text) { return FUIsDriveLetterW(config::twin::in(text)) != 0; }
};

// dev + ":\"; a drive letter is one character, of at most four bytes in narrow text.
template <class Char>
struct DriveRoot {
  explicit DriveRoot(const Char* letter) {
    Char* end = text;
    while (*letter != 0 && end != text + 4) *end++ = *letter++;
    *end++ = ':';
    *end++ = '\\';
    *end = 0;
  }
  Char text[7];
};

template <class Family>
int universal_name(const typename Family::Char* ufs, typename Family::Char* out) {
  using Char = typename Family::Char;
  if (out == nullptr) return FU_FAILED;
  Char dev[Family::kRoom], dir[Family::kRoom], name[Family::kRoom], ext[Family::kRoom];
  if (ufs != nullptr) Family::parse(ufs, dev, dir, name, ext, nullptr);
  out[0] = 0;
  if (ufs == nullptr || !Family::is_drive_letter(dev)) return FU_FAILED;

  Char share[Family::kRoom];
  if (!platform::network_name(DriveRoot<Char>(dev).text, share, Family::kRoom)) return FU_FAILED;
  Family::delete_trail(share, '\\', share);

  Char rest[Family::kRoom];
  Family::build(nullptr, dir, name, ext, nullptr, rest);
  const Char* component = rest;
  while (*component == '\\') ++component;
  Family::append_component(share, component, out);
  // A component that fills the room is left unterminated.
  out[Family::kRoom - 1] = 0;
  return FU_OK;
}

}  // namespace
}  // namespace Corvane::Print::filespec

int FUGetUniversalNameW(const CPWChar* ufs, CPWChar* out) {
  using namespace Corvane::Print::filespec;
  return universal_name<WideFamily>(ufs, out);
}

int FUGetUniversalName(const char* ufs, char* out) {
  using namespace Corvane::Print::filespec;
  return universal_name<NarrowFamily>(ufs, out);
}
