// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Dispatch of the instructions, and those that only set something; see hpgl_interpreter.h.
#include "plotclip/hpgl_reader.h"

#include <algorithm>
#include <cmath>

#include "plotclip/hpgl_interpreter.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr int kLargestPen = 32767;
constexpr double kNarrowest = 0.01;  // mm
constexpr double kWidest = 50.0;     // mm
constexpr unsigned char kEndOfText = 3;

double part_of_255(double value) {
  return std::clamp(value, 0.0, 255.0) / 255.0;
}

}  // namespace

std::optional<ReadProblem> read_hpgl(Bytes bytes, Drawing& drawing, const ReadLimits& limits) {
  try {
    HpglInterpreter(bytes, drawing, limits).run();
    return std::nullopt;
  } catch (const ReadProblem& problem) {
    return problem;
  }
}

void HpglInterpreter::run() {
  while (const unsigned code = lexer_.next()) {
    if (draw(code) || set(code) || pass_over(code)) continue;
    ++drawing_.unknown;
    lexer_.skip_parameters();
  }
  end_run();
}

bool HpglInterpreter::draw(unsigned code) {
  switch (code) {
    case mnemonic('P', 'U'):
      lower(false);
      move_pen(lexer_.numbers());
      return true;
    case mnemonic('P', 'D'):
      lower(true);
      move_pen(lexer_.numbers());
      return true;
    case mnemonic('P', 'A'):
      relative_ = false;
      move_pen(lexer_.numbers());
      return true;
    case mnemonic('P', 'R'):
      relative_ = true;
      move_pen(lexer_.numbers());
      return true;
    case mnemonic('P', 'E'):
      encoded();
      return true;
    case mnemonic('A', 'A'):
      arc(false, lexer_.numbers());
      return true;
    case mnemonic('A', 'R'):
      arc(true, lexer_.numbers());
      return true;
    case mnemonic('A', 'T'):
      arc_by_points(false, lexer_.numbers());
      return true;
    case mnemonic('R', 'T'):
      arc_by_points(true, lexer_.numbers());
      return true;
    case mnemonic('C', 'I'):
      circle(lexer_.numbers());
      return true;
    case mnemonic('E', 'A'):
      rectangle(PathKind::kOutline, false, lexer_.numbers());
      return true;
    case mnemonic('E', 'R'):
      rectangle(PathKind::kOutline, true, lexer_.numbers());
      return true;
    case mnemonic('R', 'A'):
      rectangle(PathKind::kFilled, false, lexer_.numbers());
      return true;
    case mnemonic('R', 'R'):
      rectangle(PathKind::kFilled, true, lexer_.numbers());
      return true;
    case mnemonic('E', 'W'):
      wedge(PathKind::kOutline, lexer_.numbers());
      return true;
    case mnemonic('W', 'G'):
      wedge(PathKind::kFilled, lexer_.numbers());
      return true;
    case mnemonic('P', 'M'):
      polygon_mode(lexer_.numbers());
      return true;
    // A fill may name its rule, even-odd or winding; all fills here are even-odd.
    case mnemonic('F', 'P'):
      lexer_.numbers();
      draw_polygon(PathKind::kFilled);
      return true;
    case mnemonic('E', 'P'):
      draw_polygon(PathKind::kOutline);
      return true;
    default:
      return false;
  }
}

bool HpglInterpreter::set(unsigned code) {
  switch (code) {
    case mnemonic('I', 'N'):
      lexer_.numbers();
      initialise();
      return true;
    case mnemonic('D', 'F'):
      restore_defaults();
      return true;
    case mnemonic('S', 'P'):
      set_pen(lexer_.numbers());
      return true;
    case mnemonic('P', 'C'):
      set_pen_colour(lexer_.numbers());
      return true;
    case mnemonic('P', 'W'):
      set_pen_width(lexer_.numbers());
      return true;
    case mnemonic('F', 'T'):
      set_fill(lexer_.numbers());
      return true;
    case mnemonic('I', 'P'):
    case mnemonic('S', 'C'):
      set_frame(code);
      return true;
    case mnemonic('C', 'T'):
      chord_is_angle_ = lexer_.numbers().empty() || lexer_.numbers()[0] == 0.0;
      return true;
    case mnemonic('D', 'T'):
      set_label_end();
      return true;
    default:
      return false;
  }
}

// Texts, and settings without any effect on where lines lie.
bool HpglInterpreter::pass_over(unsigned code) {
  switch (code) {
    case mnemonic('L', 'B'):
    case mnemonic('B', 'L'):
    case mnemonic('W', 'D'):
      ++drawing_.labels;
      lexer_.skip_text(label_end_);
      return true;
    case mnemonic('S', 'M'):
      if (lexer_.take("a symbol or ';'") != ';') lexer_.skip_parameters();
      return true;
    case mnemonic('A', 'C'):
    case mnemonic('A', 'D'):
    case mnemonic('A', 'S'):
    case mnemonic('B', 'P'):
    case mnemonic('C', 'A'):
    case mnemonic('C', 'O'):
    case mnemonic('C', 'P'):
    case mnemonic('C', 'R'):
    case mnemonic('C', 'S'):
    case mnemonic('D', 'I'):
    case mnemonic('D', 'R'):
    case mnemonic('D', 'V'):
    case mnemonic('E', 'C'):
    case mnemonic('E', 'S'):
    case mnemonic('F', 'S'):
    case mnemonic('L', 'A'):
    case mnemonic('L', 'O'):
    case mnemonic('L', 'T'):
    case mnemonic('M', 'C'):
    case mnemonic('M', 'T'):
    case mnemonic('N', 'P'):
    case mnemonic('P', 'G'):
    case mnemonic('P', 'P'):
    case mnemonic('P', 'S'):
    case mnemonic('P', 'T'):
    case mnemonic('Q', 'L'):
    case mnemonic('R', 'F'):
    case mnemonic('S', 'A'):
    case mnemonic('S', 'D'):
    case mnemonic('S', 'I'):
    case mnemonic('S', 'L'):
    case mnemonic('S', 'R'):
    case mnemonic('S', 'S'):
    case mnemonic('S', 'V'):
    case mnemonic('T', 'D'):
    case mnemonic('T', 'L'):
    case mnemonic('T', 'R'):
    case mnemonic('U', 'L'):
    case mnemonic('V', 'A'):
    case mnemonic('V', 'N'):
    case mnemonic('V', 'S'):
    case mnemonic('W', 'U'):
      lexer_.skip_parameters();
      return true;
    default:
      return false;
  }
}

void HpglInterpreter::set_frame(unsigned code) {
  const Numbers& n = lexer_.numbers();
  if (code == mnemonic('S', 'C')) {
    set_scale(n);
    return;
  }
  want(n.empty() || n.size() == 2 || n.size() == 4, "IP with no, two or four numbers");
  if (n.empty())
    frame_.clear_points();
  else if (n.size() == 2)
    frame_.move_points(n[0], n[1]);
  else
    frame_.set_points(n[0], n[1], n[2], n[3]);
}

void HpglInterpreter::set_scale(const Numbers& n) {
  want(n.empty() || (n.size() >= 4 && n.size() <= 7 && n.size() != 6),
       "SC with no, four, five or seven numbers");
  if (n.empty()) {
    frame_.clear_scale();
    return;
  }
  const double type = n.size() > 4 ? n[4] : 0.0;
  want(type == 0.0 || type == 1.0 || type == 2.0, "SC with type 0, 1 or 2");
  const bool spare = n.size() == 7;
  const bool good = type == 2.0 ? frame_.scale_by(n[0], n[1], n[2], n[3])
                                : frame_.scale_to(n[0], n[1], n[2], n[3], type == 1.0, spare ? n[5] : 50.0,
                                                  spare ? n[6] : 50.0);
  want(good, "SC with ranges that are not empty");
}

void HpglInterpreter::set_fill(const Numbers& n) {
  fill_ = {};
  if (n.empty()) return;
  const double spacing = n.size() > 1 ? std::abs(n[1] * frame_.x_factor()) : 0.0;
  const double angle = n.size() > 2 ? std::fmod(n[2], 360.0) : 0.0;
  if (n[0] == 3.0) fill_ = {FillType::kHatch, spacing, angle, 100.0};
  if (n[0] == 4.0) fill_ = {FillType::kCrossHatch, spacing, angle, 100.0};
  if (n[0] == 10.0) fill_ = {FillType::kShade, 0.0, 0.0, n.size() > 1 ? std::clamp(n[1], 0.0, 100.0) : 50.0};
}

void HpglInterpreter::set_pen(const Numbers& n) {
  end_run();
  pen_ = n.empty() ? 0 : static_cast<int>(std::clamp(n[0], 0.0, static_cast<double>(kLargestPen)));
}

void HpglInterpreter::set_pen_colour(const Numbers& n) {
  if (n.empty()) drawing_.colours.clear();
  if (n.empty() || n[0] < 0.0 || n[0] > kLargestPen) return;
  const int pen = static_cast<int>(n[0]);
  if (n.size() < 4)
    drawing_.colours.erase(pen);
  else
    drawing_.colours[pen] = {part_of_255(n[1]), part_of_255(n[2]), part_of_255(n[3])};
}

void HpglInterpreter::set_pen_width(const Numbers& n) {
  end_run();
  if (n.empty()) widths_.clear();
  if (n.empty()) return;
  const double pen = n.size() > 1 ? n[1] : pen_;
  if (pen < 0.0 || pen > kLargestPen) return;
  widths_[static_cast<int>(pen)] = std::clamp(n[0], kNarrowest, kWidest);
}

// The byte after DT is the terminator itself, whatever it is; a bare "DT;" brings back the usual one.
void HpglInterpreter::set_label_end() {
  const unsigned char c = lexer_.at_end() ? ';' : lexer_.take("a label terminator");
  label_end_ = c == ';' ? kEndOfText : c;
  if (c != ';') lexer_.skip_parameters();
}

void HpglInterpreter::initialise() {
  restore_defaults();
  frame_.clear_points();
  lower(false);
  at_ = {};
}

void HpglInterpreter::restore_defaults() {
  end_run();
  frame_.clear_scale();
  relative_ = false;
  chord_is_angle_ = true;
  widths_.clear();
  fill_ = {};
  label_end_ = kEndOfText;
  in_polygon_ = false;
  polygon_.clear();
  ring_.clear();
}

}  // namespace Corvane::Print::plotclip
