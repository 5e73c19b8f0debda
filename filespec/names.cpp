// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What a plot destination may be besides a file: a printer's port, a share, a printer's network address, a
// name with a token. And two small changes of names. The predicates look at the whole text, however long it
// is, and never write; a null text is an empty one. No shared state.
#include <algorithm>
#include <cctype>
#include <cwctype>

#include "config/codepage.h"
#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "corvane/print/str.h"
#include "filespec/bounded.h"
#include "filespec/text.h"

namespace Corvane::Print::filespec {
namespace {

constexpr int kPortLetters = 3;  // LPT
constexpr int kLongestPort = 6;
constexpr int kGroups = 4;  // of an address
constexpr int kLongestGroup = 3;

WideView whole(const CPWChar* text) {
  return text != nullptr ? WideView(text) : WideView();
}

bool is_digit(CPWChar c) {
  return std::iswdigit(static_cast<std::wint_t>(c)) != 0;
}

bool is_port_name(const CPWChar* ufs) {
  WideBuffer name;
  FUParseUFSW(ufs, nullptr, nullptr, name, nullptr, nullptr);
  int length = name.length();
  if (length < kPortLetters || length > kLongestPort) return false;
  if (STRCompareCICountW(name, W_("lpt"), kPortLetters) != 0) return false;
  // KEEP(port-colon-of-the-input): the colon is looked for in the whole specification, at the length of its
  // name. Looks wrong; a device of as many letters as the name lets its last character be anything, and hosts
  // count such names as ports. Pinned by PortName.TheColonIsLookedForInTheWholeSpecification.
  // The name is a part of the input, which therefore is at least as long.
  if (ufs[length - 1] == ':') --length;
  const WideView digits = name.view().substr(0, static_cast<std::size_t>(length));
  return std::all_of(digits.begin() + std::min(kPortLetters, length), digits.end(), is_digit);
}

bool is_unc_share(const CPWChar* ufs) {
  const WideView text = whole(ufs);
  if (text.size() <= 2 || !text.starts_with(W_("\\\\"))) return false;
  const std::size_t share = text.find(W_("\\"), 2);
  return share != WideView::npos && text.find(W_("\\"), share + 1) == WideView::npos;
}

// KEEP(address-loose): the groups of an address have no range, and its last group may be empty.
// Looks wrong; 999.1.1.1 and 1.2.3. have always gone to the network instead of a file. Pinned by
// IpAddress.GroupsHaveNoRange, IpAddress.ATrailingDotPasses.
bool is_ip_address(const CPWChar* ufs) {
  int dots = 0;
  int digits = 0;  // of the current group
  for (const CPWChar c : whole(ufs)) {
    if (c == '.') {
      if (digits == 0 || ++dots >= kGroups) return false;
      digits = 0;
    } else if (!is_digit(c) || ++digits > kLongestGroup) {
      return false;
    }
  }
  return dots == kGroups - 1;
}

// X:\ when the variable's value begins with such a root; false otherwise.
bool drive_root(const char* variable, CPWChar (&root)[4]) {
  char* const value = CFGetenv(variable);
  if (value == nullptr) return false;
  const bool is_root =
      std::isalpha(static_cast<unsigned char>(value[0])) != 0 && value[1] == ':' && value[2] == '\\';
  if (is_root) {
    value[3] = '\0';
    config::widen_cut(value, root, 4);
  }
  CFReleaseValue(value);
  return is_root;
}

// The port behind the root, without a colon at its end. What does not fit is cut after that, so that a cut
// never makes a colon the last one. `out` may be `port`.
void put_behind_root(const CPWChar (&root)[4], WideView port, CPWChar* out) {
  const WideView start(root);
  if (port.ends_with(W_(":"))) port.remove_suffix(1);
  const std::size_t kept = std::min(port.size(), kWide - 1 - start.size());
  std::char_traits<CPWChar>::move(out + start.size(), port.data(), kept);
  std::copy(start.begin(), start.end(), out);
  out[start.size() + kept] = 0;
}

void modify_port_name(CPWChar* out, const CPWChar* port) {
  if (out == nullptr) return;
  CPWChar root[4];
  if (drive_root("TQLOCAL", root) || drive_root("WINDIR", root)) {
    put_behind_root(root, whole(port), out);
  } else {
    FUStrCopyW(out, port, kWide);
  }
}

// KEEP(trim-keeps-extension): what stays is the extension. Looks wrong for a function of this name; callers
// use it to look at the extension. Pinned by TrimExtension.TheExtensionStaysAndTheRestGoes.
void trim_extension(CPWChar* s) {
  const WideView text = whole(s);
  const std::size_t dot = text.rfind(W_("."));
  if (dot == WideView::npos) return;
  std::char_traits<CPWChar>::move(s, s + dot + 1, text.size() - dot);
}

}  // namespace
}  // namespace Corvane::Print::filespec

using namespace Corvane::Print;

bool FUIsPortName(const CPWChar* ufs) {
  return filespec::is_port_name(ufs);
}

bool FUIsUncShare(const CPWChar* ufs) {
  return filespec::is_unc_share(ufs);
}

bool FUIsIPAddress(const CPWChar* ufs) {
  return filespec::is_ip_address(ufs);
}

int FUIsPseudoFile(const CPWChar* ufs) {
  const bool has_token = filespec::whole(ufs).find(W_("<")) != filespec::WideView::npos;
  return has_token || FUIsPortName(ufs) || FUIsUncShare(ufs) || FUIsIPAddress(ufs) ? 1 : 0;
}

void FUModifyPortName(CPWChar* out, const CPWChar* port) {
  filespec::modify_port_name(out, port);
}

void FUTrimExtension(CPWChar* s) {
  filespec::trim_extension(s);
}
