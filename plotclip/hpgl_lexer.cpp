// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Letters, numbers and texts of the plotter's language; see hpgl_lexer.h. Classification of bytes is done by
// hand, since the functions of the C library depend on the locale.
#include "plotclip/hpgl_lexer.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace Corvane::Print::plotclip {
namespace {

constexpr unsigned char kEscape = 0x1b;

bool is_digit(unsigned char c) {
  return c >= '0' && c <= '9';
}
bool is_sign(unsigned char c) {
  return c == '+' || c == '-';
}
bool is_letter(unsigned char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
// Controls and blanks are never part of an instruction; plotters skip them too.
bool is_blank(unsigned char c) {
  return c <= ' ' && c != kEscape;
}
char capital(unsigned char c) {
  return static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
}

std::string describe(Bytes bytes, std::size_t offset) {
  if (offset >= bytes.size()) return "the end of the file";
  char text[16];
  const unsigned char c = bytes[offset];
  std::snprintf(text, sizeof text, c > ' ' && c < 0x7f ? "'%c'" : "byte 0x%02x", c);
  return text;
}

}  // namespace

void HpglLexer::fail(std::size_t offset, const std::string& expected) const {
  throw ReadProblem{offset, "expected " + expected + ", found " + describe(bytes_, offset)};
}

void HpglLexer::skip_separators() {
  for (;;) {
    while (!at_end() && (is_blank(bytes_[at_]) || bytes_[at_] == ';' || bytes_[at_] == ',')) ++at_;
    if (at_end() || bytes_[at_] != kEscape) return;
    skip_escape();
  }
}

unsigned HpglLexer::next() {
  skip_separators();
  start_ = at_;
  if (at_end()) return 0;
  if (!is_letter(bytes_[at_])) fail(at_, "an instruction");
  if (at_ + 1 >= bytes_.size() || !is_letter(bytes_[at_ + 1]))
    fail(at_ + 1, "the second letter of an instruction");
  const unsigned code = mnemonic(capital(bytes_[at_]), capital(bytes_[at_ + 1]));
  at_ += 2;
  return code;
}

// Device control (ESC . letter [numbers :]), language switches (ESC % number letter) and printer commands
// (ESC ... capital letter), whose binary data (a W command with a count) is stepped over as a whole.
void HpglLexer::skip_escape() {
  ++at_;
  if (at_end()) return;
  const unsigned char kind = bytes_[at_++];
  if (kind == '.') {
    if (!at_end()) ++at_;
    while (!at_end() && (is_digit(bytes_[at_]) || bytes_[at_] == ';')) ++at_;
    if (!at_end() && bytes_[at_] == ':') ++at_;
    return;
  }
  if (kind < '!' || kind > '/') return;  // two-character sequence, such as the printer reset
  double count = 0.0;
  while (!at_end() && bytes_[at_] > ' ' && bytes_[at_] < 0x7f) {
    const unsigned char c = bytes_[at_];
    if (is_digit(c)) {
      count = take_count();
      continue;
    }
    ++at_;
    if (c < '@' || c > 'Z') continue;
    if (c == 'W') at_ += std::min(bytes_.size() - at_, static_cast<std::size_t>(count));
    if (kind == '%' && c == 'A')  // the printer's language: until it is left again
      while (!at_end() && bytes_[at_] != kEscape) ++at_;
    if (kind == '%' && c == 'X') skip_job_lines();
    return;
  }
}

void HpglLexer::skip_job_lines() {
  while (!at_end() && bytes_[at_] == '@') {
    while (!at_end() && bytes_[at_] != '\n' && bytes_[at_] != kEscape) ++at_;
    while (!at_end() && is_blank(bytes_[at_])) ++at_;
  }
}

double HpglLexer::take_count() {
  double value = 0.0;
  for (; !at_end() && is_digit(bytes_[at_]); ++at_)
    value = std::min(value * 10.0 + (bytes_[at_] - '0'), kLargestNumber);
  return value;
}

const std::vector<double>& HpglLexer::numbers() {
  numbers_.clear();
  for (;;) {
    while (!at_end() && (is_blank(bytes_[at_]) || bytes_[at_] == ',')) ++at_;
    if (at_end()) return numbers_;
    const unsigned char c = bytes_[at_];
    if (!is_digit(c) && !is_sign(c) && c != '.') break;
    numbers_.push_back(number());
  }
  if (const unsigned char c = bytes_[at_]; c != ';' && c != kEscape && !is_letter(c))
    fail(at_, "a number or the end of the instruction");
  return numbers_;
}

double HpglLexer::number() {
  const std::size_t begin = at_;
  if (is_sign(bytes_[at_])) ++at_;
  const std::size_t first_digit = at_;
  std::size_t digits = 0;
  for (; !at_end() && is_digit(bytes_[at_]); ++at_) ++digits;
  if (!at_end() && bytes_[at_] == '.')
    for (++at_; !at_end() && is_digit(bytes_[at_]); ++at_) ++digits;
  if (digits == 0) fail(at_, "a digit");
  // An exponent is no part of the language, but some writers emit one. It cannot be mistaken for an
  // instruction: their second character is a letter.
  if (std::size_t e = at_ + 1; e < bytes_.size() && (bytes_[at_] == 'e' || bytes_[at_] == 'E')) {
    if (is_sign(bytes_[e])) ++e;
    if (e < bytes_.size() && is_digit(bytes_[e])) {
      for (at_ = e; !at_end() && is_digit(bytes_[at_]);) ++at_;
    }
  }
  const char* text = reinterpret_cast<const char*>(bytes_.data());
  double value = 0.0;
  if (std::from_chars(text + first_digit, text + at_, value).ec == std::errc::result_out_of_range) {
    // Too small or too large for a double; the first character tells well enough which.
    value = text[first_digit] == '0' || text[first_digit] == '.' ? 0.0 : kLargestNumber;
  }
  value = std::min(value, kLargestNumber);
  return bytes_[begin] == '-' ? -value : value;
}

void HpglLexer::skip_text(unsigned char terminator) {
  while (!at_end() && bytes_[at_] != terminator) ++at_;
  if (at_end()) fail(at_, "the terminator of the label at byte " + std::to_string(start_));
  ++at_;
}

void HpglLexer::skip_parameters() {
  while (!at_end() && bytes_[at_] != ';' && bytes_[at_] != kEscape && !is_letter(bytes_[at_])) {
    if (bytes_[at_++] != '"') continue;
    while (!at_end() && bytes_[at_] != '"') ++at_;
    if (at_end()) fail(at_, "the closing quotation mark");
    ++at_;
  }
}

unsigned char HpglLexer::take(const char* expected) {
  if (at_end()) fail(at_, expected);
  return bytes_[at_++];
}

}  // namespace Corvane::Print::plotclip
