// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Any text as a port, a share, an address, a name to trim, a path on a drive and a name with a token,
// compared with the plain models of the tests. Files are looked for and never written; what exists is as in
// the folder that the fuzzer runs in. Buffers are as large as they are said to be, for the sanitizers to
// watch.
//
// The first byte says how much room the name with a token has. Of the others, one below 128 is a character,
// and any other makes one with the byte behind it.
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "platform/platform.h"
#include "tests/filespec/names_models.h"

namespace {

using namespace Corvane::Print::tests;

void require(bool good) {
  if (!good) std::abort();
}

WideText text_of(const std::uint8_t* data, std::size_t size) {
  WideText text;
  for (std::size_t i = 0; i < size && data[i] != 0; ++i) {
    unsigned unit = data[i];
    if (unit >= 128 && i + 1 < size) unit = (unit & 127) << 9 | data[++i];
    if (unit == 0) break;
    text += static_cast<CPWChar>(unit);
  }
  return text;
}

// The text in a block without a character to spare.
std::unique_ptr<CPWChar[]> block_of(const WideText& text, std::size_t room) {
  auto block = std::make_unique<CPWChar[]>(room);
  std::copy_n(text.c_str(), std::min(room, text.size() + 1), block.get());
  return block;
}

void check_predicates(const WideText& spec) {
  const auto block = block_of(spec, spec.size() + 1);
  require(FUIsPortName(block.get()) == model::is_port_name(spec));
  require(FUIsUncShare(block.get()) == model::is_unc_share(spec));
  require(FUIsIPAddress(block.get()) == model::is_ip_address(spec));
  require((FUIsPseudoFile(block.get()) != 0) == model::is_pseudo_file(spec));
  require(block.get() == spec);
}

void check_changes(const WideText& spec) {
  const auto block = block_of(spec, spec.size() + 1);
  const auto out = std::make_unique<CPWChar[]>(FU_WIDE);
  // No variable is defined, see below.
  FUModifyPortName(out.get(), block.get());
  require(out.get() == model::modified_port(spec, {}));
  require(FUGetUniversalNameW(block.get(), out.get()) == FU_FAILED && out[0] == 0);
  FUTrimExtension(block.get());
  require(block.get() == model::trimmed(spec));
}

void check_token(const WideText& spec, std::size_t spare) {
  const WideText expected = model::resolved(
      spec, [](const WideText& name) { return Corvane::Print::platform::host_file_exists(name.c_str()); });
  const std::size_t room = std::max(spec.size(), expected.size()) + 1 + spare;
  auto block = block_of(spec, room);
  FUResolveAutoIncToken(block.get(), static_cast<int>(room));
  require(block.get() == expected);

  // Less room than the result needs: the part that fits.
  block = block_of(spec, spec.size() + 1);
  const std::size_t little = std::min(spec.size(), spare) + 1;
  FUResolveAutoIncToken(block.get(), static_cast<int>(little));
  require(block.get() == (expected == spec ? spec : expected.substr(0, little - 1)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool installed = [] {
    Corvane::Print::CFSetGetEnvVarCallback([](const CPWChar*, CPWChar*, int) { return 0; });
    return true;
  }();
  if (size == 0 || !installed) return 0;
  const WideText spec = text_of(data + 1, size - 1);
  check_predicates(spec);
  check_changes(spec);
  check_token(spec, data[0]);
  return 0;
}
