// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plotter that a plot file drives: pen, position, modes, and the path being drawn. Private to the reader,
// whose files each hold one group of instructions: hpgl_reader.cpp the dispatch and the settings,
// hpgl_lines.cpp lines and arcs, hpgl_encoded.cpp encoded polylines, hpgl_areas.cpp rectangles, wedges and
// the polygon buffer.
//
// Invariants: `at_` is the pen's place on the sheet, never beyond kLargestPlace; `run_` is the line being
// drawn and is not yet part of the drawing; while `in_polygon_`, movements go into `ring_` instead.
#ifndef CORVANE_PRINT_PLOTCLIP_HPGL_INTERPRETER_H
#define CORVANE_PRINT_PLOTCLIP_HPGL_INTERPRETER_H

#include <map>
#include <vector>

#include "plotclip/drawing.h"
#include "plotclip/hpgl_frame.h"
#include "plotclip/hpgl_lexer.h"
#include "plotclip/hpgl_reader.h"

namespace Corvane::Print::plotclip {

class HpglInterpreter {
public:
  HpglInterpreter(Bytes bytes, Drawing& drawing, const ReadLimits& limits)
      : lexer_(bytes), drawing_(drawing), limits_(limits) {}
  void run();

private:
  using Numbers = std::vector<double>;

  // hpgl_reader.cpp
  bool draw(unsigned code);
  bool set(unsigned code);
  bool pass_over(unsigned code);
  void set_frame(unsigned code);
  void set_scale(const Numbers& n);
  void set_fill(const Numbers& n);
  void set_pen(const Numbers& n);
  void set_pen_colour(const Numbers& n);
  void set_pen_width(const Numbers& n);
  void set_label_end();
  void initialise();
  void restore_defaults();

  // hpgl_lines.cpp
  void move_pen(const Numbers& n);
  void lower(bool down);
  void go_to(Point p);
  void end_run();
  void follow(const std::vector<Point>& points);
  void arc(bool relative, const Numbers& n);
  void arc_by_points(bool relative, const Numbers& n);
  void circle(const Numbers& n);
  Point place(double x, double y, bool relative) const;
  Point bounded(Point p) const;
  double chord(const Numbers& n, std::size_t index) const;
  void add_path(PathKind kind, std::vector<PointRun> runs);

  // hpgl_encoded.cpp
  void encoded();
  double encoded_number(unsigned base);
  void encoded_point(double x, double y, bool absolute, bool up);

  // hpgl_areas.cpp
  void polygon_mode(const Numbers& n);
  void polygon_move(const Point& p);
  void close_ring();
  void draw_polygon(PathKind kind);
  void rectangle(PathKind kind, bool relative, const Numbers& n);
  void wedge(PathKind kind, const Numbers& n);

  // Reports a parameter list of the wrong length or kind at the instruction.
  void want(bool good, const char* expected) const {
    if (!good) lexer_.fail_at_instruction(expected);
  }

  HpglLexer lexer_;
  Drawing& drawing_;
  const ReadLimits limits_;
  std::size_t points_ = 0;

  HpglFrame frame_;
  Point at_;
  bool down_ = false;
  bool relative_ = false;
  bool chord_is_angle_ = true;
  int pen_ = 1;
  std::map<int, double> widths_;
  Fill fill_;
  unsigned char label_end_ = 3;
  PointRun run_;

  bool in_polygon_ = false;
  std::vector<PointRun> polygon_;
  PointRun ring_;
  Point polygon_start_;
};

}  // namespace Corvane::Print::plotclip

#endif
