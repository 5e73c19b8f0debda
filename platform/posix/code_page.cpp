// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// UTF-8 and UTF-16, with the calling shape of the Windows conversions. Both directions copy the characters
// below 0x80 that a text begins with; from there on they read one code point, replace what is none by U+FFFD,
// and hand it to a sink that counts and writes as far as there is room.
//
// What the copy buys: a file name of ASCII letters costs a tenth. Why it cannot change a result: such a
// character is a code point of its own and one unit on either side, and what follows does not look back.
#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/platform.h"
#include "platform/text_vector.h"

namespace Corvane::Print::platform {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Counts units, and writes those for which there is room.
template <class Unit>
class Sink {
public:
  //   written   what is there already, within the capacity
  Sink(Unit* out, std::size_t capacity, std::size_t written)
      : out_(out), capacity_(capacity), count_(written) {}

  void put(char32_t unit) {
    if (count_ < capacity_) out_[count_] = static_cast<Unit>(unit);
    ++count_;
  }

  // The result of the whole call: 0 when something did not fit.
  int result() const {
    if (count_ > INT_MAX || (capacity_ != 0 && count_ > capacity_)) return 0;
    return static_cast<int>(count_);
  }

private:
  Unit* out_;
  std::size_t capacity_;
  std::size_t count_;
};

// A text of known length.
template <class Unit>
class Source {
public:
  Source(const Unit* text, const Unit* end) : at_(text), end_(end) {}

  bool more() const { return at_ != end_; }

  // The next unit; only when there is more().
  Unit peek() const { return *at_; }
  Unit take() { return *at_++; }

private:
  const Unit* at_;
  const Unit* end_;
};

// What a first byte says of its sequence: how many bytes follow, and the range of the first of them, which
// keeps out overlong forms, surrogates and numbers beyond U+10FFFF.
struct Sequence {
  int following;
  std::uint8_t low;
  std::uint8_t high;
};

Sequence sequence_of(std::uint8_t first) {
  if (first >= 0xC2 && first <= 0xDF) return {1, 0x80, 0xBF};
  if (first == 0xE0) return {2, 0xA0, 0xBF};
  if (first == 0xED) return {2, 0x80, 0x9F};
  if (first >= 0xE1 && first <= 0xEF) return {2, 0x80, 0xBF};
  if (first == 0xF0) return {3, 0x90, 0xBF};
  if (first >= 0xF1 && first <= 0xF3) return {3, 0x80, 0xBF};
  if (first == 0xF4) return {3, 0x80, 0x8F};
  return {0, 0, 0};
}

// Takes a sequence, or the longest piece that begins one.
char32_t take_code_point(Source<char>& source) {
  const auto first = static_cast<std::uint8_t>(source.take());
  if (first < 0x80) return first;
  Sequence sequence = sequence_of(first);
  if (sequence.following == 0) return kReplacement;
  char32_t code_point = first & (0x3Fu >> sequence.following);
  for (; sequence.following != 0; --sequence.following) {
    if (!source.more()) return kReplacement;
    const auto next = static_cast<std::uint8_t>(source.peek());
    if (next < sequence.low || next > sequence.high) return kReplacement;
    code_point = code_point << 6 | (next & 0x3Fu);
    sequence.low = 0x80;
    sequence.high = 0xBF;
    source.take();
  }
  return code_point;
}

char32_t take_code_point(Source<CPWChar>& source) {
  const char32_t first = source.take();
  if (first < 0xD800 || first > 0xDFFF) return first;
  if (first > 0xDBFF || !source.more()) return kReplacement;
  const char32_t second = source.peek();
  if (second < 0xDC00 || second > 0xDFFF) return kReplacement;
  source.take();
  return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

void put_code_point(Sink<CPWChar>& sink, char32_t code_point) {
  if (code_point < 0x10000) return sink.put(code_point);
  sink.put(0xD800 + ((code_point - 0x10000) >> 10));
  sink.put(0xDC00 + ((code_point - 0x10000) & 0x3FF));
}

void put_code_point(Sink<char>& sink, char32_t code_point) {
  if (code_point < 0x80) return sink.put(code_point);
  if (code_point < 0x800) {
    sink.put(0xC0 | code_point >> 6);
  } else {
    if (code_point < 0x10000) {
      sink.put(0xE0 | code_point >> 12);
    } else {
      sink.put(0xF0 | code_point >> 18);
      sink.put(0x80 | (code_point >> 12 & 0x3F));
    }
    sink.put(0x80 | (code_point >> 6 & 0x3F));
  }
  sink.put(0x80 | (code_point & 0x3F));
}

template <class From, class To>
int convert(const From* text, int length, To* out, int capacity) noexcept {
  if (text == nullptr || length == 0 || length < kToTerminator) return 0;
  if (capacity < 0 || (capacity != 0 && out == nullptr)) return 0;
  // The terminator of an open length is a unit like any other: it begins and continues no sequence.
  const std::size_t units =
      length == kToTerminator ? std::char_traits<From>::length(text) + 1 : static_cast<std::size_t>(length);
  const auto room = static_cast<std::size_t>(capacity);
  const std::size_t copied = copy_ascii(text, std::min(units, room), out);
  Source<From> source(text + copied, text + units);
  Sink<To> sink(out, room, copied);
  while (source.more()) put_code_point(sink, take_code_point(source));
  return sink.result();
}

}  // namespace

int wide_from_narrow(const char* text, int length, CPWChar* out, int capacity) noexcept {
  return convert(text, length, out, capacity);
}

int narrow_from_wide(const CPWChar* text, int length, char* out, int capacity) noexcept {
  return convert(text, length, out, capacity);
}

}  // namespace Corvane::Print::platform
