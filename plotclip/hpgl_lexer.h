// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Cuts a plot file into instructions: two letters, then numbers, a text, or encoded coordinates, whichever
// the interpreter asks for. Escape sequences and printer job lines between instructions are stepped over.
//
// The lexer only ever moves forward over the bytes it was given, so any input ends; what it cannot read it
// reports by throwing a ReadProblem.
#ifndef CORVANE_PRINT_PLOTCLIP_HPGL_LEXER_H
#define CORVANE_PRINT_PLOTCLIP_HPGL_LEXER_H

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace Corvane::Print::plotclip {

// Where reading stopped and what was expected there, as in "expected a number, found '!'".
struct ReadProblem {
  std::size_t offset = 0;
  std::string what;
};

using Bytes = std::span<const unsigned char>;

// Numbers beyond this (2^30 less 1, the range of the language's own numbers) are taken for it.
inline constexpr double kLargestNumber = 1073741823.0;

// The two letters of an instruction as one value, for use in a switch.
constexpr unsigned mnemonic(char first, char second) {
  return static_cast<unsigned>(static_cast<unsigned char>(first)) << 8 | static_cast<unsigned char>(second);
}

class HpglLexer {
public:
  explicit HpglLexer(Bytes bytes) : bytes_(bytes) {}

  // Steps to the next instruction. Returns 0 at the end, else its mnemonic() in capitals.
  unsigned next();
  // Byte offset of the instruction that next() returned.
  std::size_t instruction_offset() const { return start_; }
  std::size_t offset() const { return at_; }
  bool at_end() const { return at_ >= bytes_.size(); }

  // The numbers that follow, up to whatever is none. Valid until the next call.
  const std::vector<double>& numbers();
  // Steps behind the text that ends with `terminator`.
  void skip_text(unsigned char terminator);
  // Steps over the parameters of an instruction that is not interpreted, quoted texts included.
  void skip_parameters();
  // The next byte, whatever it is; `expected` names it in the report when the file ends here.
  unsigned char take(const char* expected);
  unsigned char peek() const { return at_end() ? 0 : bytes_[at_]; }

  [[noreturn]] void fail(std::size_t offset, const std::string& expected) const;
  [[noreturn]] void fail_at_instruction(const std::string& expected) const { fail(start_, expected); }

private:
  void skip_separators();
  void skip_escape();
  void skip_job_lines();
  double number();
  double take_count();

  Bytes bytes_;
  std::size_t at_ = 0;
  std::size_t start_ = 0;
  std::vector<double> numbers_;
};

}  // namespace Corvane::Print::plotclip

#endif
