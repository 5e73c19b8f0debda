// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A digest of results, and the families of random calls whose results go into one digest each. Inputs come
// from integers and the four operations, so that they are the same on every target.
#ifndef CORVANE_PRINT_TESTS_DIGEST_DIGEST_H
#define CORVANE_PRINT_TESTS_DIGEST_DIGEST_H

#include <bit>
#include <cmath>
#include <cstdint>
#include <span>

#include "tests/support/clip_call.h"
#include "tests/support/random.h"

namespace Corvane::Print::tests {

// FNV-1a.
class Digest {
public:
  void add(std::uint64_t bits) {
    for (int i = 0; i < 8; ++i) value_ = (value_ ^ ((bits >> (8 * i)) & 0xff)) * 0x100000001b3u;
  }
  void add(int number) { add(static_cast<std::uint64_t>(static_cast<std::int64_t>(number))); }
  // All NaNs are one: which of two an operation hands on is the compiler's choice.
  void add(double number) {
    add(std::isnan(number) ? ~std::uint64_t{0} : std::bit_cast<std::uint64_t>(number));
  }
  void add(const Pieces& pieces) {
    add(pieces.status);
    add(pieces.calls);
    for (const Ring& ring : pieces.rings) {
      add(static_cast<int>(ring.size()));
      for (const Point& p : ring) add(p.x), add(p.y), add(p.z);
    }
  }
  std::uint64_t value() const { return value_; }

private:
  std::uint64_t value_ = 0xcbf29ce484222325u;
};

struct Family {
  const char* name;
  int cases;
  void (*run)(Random&, Digest&);
};

std::span<const Family> clip_families();
std::span<const Family> geometry_families();

}  // namespace Corvane::Print::tests

#endif
