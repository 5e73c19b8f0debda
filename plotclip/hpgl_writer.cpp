// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See hpgl_writer.h. Every instruction stands on a line of its own and ends with a semicolon, which the
// oldest readers want; long lists are cut into several instructions.
#include "plotclip/hpgl_writer.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <map>

#include "plotclip/hpgl_lexer.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr int kDecimals = 4;
constexpr std::size_t kPairsPerInstruction = 8;

// The shortest text with at most four decimals.
std::string number(double value) {
  char text[64];
  const double bounded = std::clamp(value, -kLargestNumber, kLargestNumber);
  char* end = std::to_chars(text, text + sizeof text, bounded, std::chars_format::fixed, kDecimals).ptr;
  while (end[-1] == '0') --end;
  if (end[-1] == '.') --end;
  std::string result(text, end);
  if (result == "-0") result.erase(0, 1);
  return result;
}

class HpglWriter {
public:
  std::string write(const Drawing& drawing) {
    line("IN");
    for (const auto& [pen, c] : drawing.colours) {
      line("PC", {static_cast<double>(pen), std::round(c.r * 255.0), std::round(c.g * 255.0),
                  std::round(c.b * 255.0)});
    }
    for (const Path& path : drawing.paths) {
      select(path);
      if (path.kind == PathKind::kLine)
        draw_line(path.runs[0]);
      else
        draw_polygon(path);
    }
    line("PU");
    line("SP0");
    return std::move(text_);
  }

private:
  void line(const char* code, std::initializer_list<double> numbers = {}) {
    text_ += code;
    const char* comma = "";
    for (const double n : numbers) {
      text_.append(comma).append(number(n));
      comma = ",";
    }
    text_ += ";\n";
  }

  void select(const Path& path) {
    if (path.pen != pen_) line("SP", {static_cast<double>(pen_ = path.pen)});
    const auto width = widths_.find(pen_);
    if (path.width != (width == widths_.end() ? kDefaultWidth : width->second))
      line("PW", {widths_[pen_] = path.width, static_cast<double>(pen_)});
  }

  // PD with the points from `first` on.
  void draw_to(const PointRun& run, std::size_t first) {
    for (std::size_t i = first; i < run.size();) {
      text_ += "PD";
      for (std::size_t n = 0; n < kPairsPerInstruction && i < run.size(); ++n, ++i)
        text_.append(n != 0 ? "," : "").append(number(run[i].x)).append(",").append(number(run[i].y));
      text_ += ";\n";
    }
  }

  void draw_line(const PointRun& run) {
    line("PU", {run[0].x, run[0].y});
    if (run.size() == 1) line("PD");
    draw_to(run, 1);
  }

  void draw_polygon(const Path& path) {
    line("PU", {path.runs[0][0].x, path.runs[0][0].y});
    line("PM0");
    for (std::size_t i = 0; i < path.runs.size(); ++i) {
      if (i != 0) line("PM1");
      draw_to(path.runs[i], i == 0 ? 1 : 0);
    }
    line("PM2");
    if (path.kind == PathKind::kFilled) set_fill(path.fill);
    line(path.kind == PathKind::kFilled ? "FP" : "EP");
  }

  void set_fill(const Fill& fill) {
    if (fill == fill_) return;
    fill_ = fill;
    switch (fill.type) {
      case FillType::kSolid:
        line("FT", {1.0});
        break;
      case FillType::kHatch:
        line("FT", {3.0, fill.spacing, fill.angle});
        break;
      case FillType::kCrossHatch:
        line("FT", {4.0, fill.spacing, fill.angle});
        break;
      case FillType::kShade:
        line("FT", {10.0, fill.level});
        break;
    }
  }

  std::string text_;
  int pen_ = -1;
  std::map<int, double> widths_;
  Fill fill_;
};

}  // namespace

std::string write_hpgl(const Drawing& drawing) {
  return HpglWriter().write(drawing);
}

}  // namespace Corvane::Print::plotclip
