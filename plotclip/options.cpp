// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The command line; see options.h. Lists of numbers are parsed here rather than by the command-line library,
// so that a wrong one is answered with what was expected.
#include "plotclip/options.h"

#include <charconv>
#include <CLI/CLI.hpp>
#include <cmath>
#include <iostream>

#include "corvane/print/version.h"
#include "plotclip/files.h"
#include "plotclip/output.h"
#include "plotclip/problem.h"

namespace Corvane::Print::plotclip {
namespace {

// Beyond this, numbers on the command line are slips, not measures.
constexpr double kLargestArgument = 1e9;
constexpr double kSmallestScale = 1e-6;
constexpr double kLargestScale = 1e6;

[[noreturn]] void wrong(const std::string& line) {
  throw Problem(line, kExitUsage);
}

// The text as numbers between commas; empty when it is none.
std::vector<double> number_list(const std::string& text) {
  std::vector<double> values;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (;;) {
    if (at < end && *at == '+') ++at;
    double value = 0.0;
    const auto result = std::from_chars(at, end, value);
    if (result.ec != std::errc{} || !(std::abs(value) <= kLargestArgument)) return {};
    values.push_back(value);
    at = result.ptr;
    if (at == end) return values;
    if (*at++ != ',') return {};
  }
}

std::vector<double> numbers(const char* option, const std::string& text, std::size_t least, std::size_t most,
                            const char* expected) {
  std::vector<double> values = number_list(text);
  if (values.size() < least || values.size() > most)
    wrong(std::string(option) + ": expected " + expected + ", found '" + text + "'");
  return values;
}

// The options as text, before the numbers in them are looked at.
struct RawOptions {
  std::string fence, depth, grow, move, scale, rotate;
};

void declare(CLI::App& app, Options& o, RawOptions& raw) {
  app.set_version_flag("--version", "plotclip " CORVANE_PRINT_VERSION);
  app.footer("plotclip name TEXT... tells what file specifications mean; a drawing called name is ./name");
  app.add_option("DRAWING", o.drawing, "plot file (HP-GL/2: .plt .hpgl ...) or another vector drawing")
      ->required();
  auto* fence = app.add_option("--fence", raw.fence, "upright rectangle x0,y0,x1,y1");
  auto* file = app.add_option("--fence-file", o.fence_file,
                              "text file with the fence's polygons, searched in PLOTCLIP_FENCES");
  fence->excludes(file);
  app.add_flag("--explain", o.explain, "tell every place where the fence file is looked for")->needs(file);
  app.add_flag("--outside", o.outside, "keep what lies outside the fence instead of inside");
  app.add_option("--depth", raw.depth, "keep the depths lo,hi only (drawings with a third dimension)");
  app.add_option("--grow", raw.grow, "move the fence's edges outward by this distance");
  app.add_option("--scale", raw.scale, "scale the drawing by s or sx,sy before clipping");
  app.add_option("--rotate", raw.rotate, "then turn it by so many degrees, counter-clockwise");
  app.add_option("--move", raw.move, "then move it by x,y");
  app.add_option("-o,--output", o.outputs, "output: .svg .pdf .png .plt .hpgl; may be repeated")
      ->required()
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  app.add_flag("--ghost", o.ghost, "draw the whole drawing pale behind what is kept");
  app.add_option("--size", o.size, "longer side of a picture: pixels (.png) or points (.svg .pdf)")
      ->check(CLI::Range(16, 20000));
  app.add_option("--debug-var", o.debug_variables,
                 "variable that lists debug flags: read fence transform clip draw all; may be repeated")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void interpret(const RawOptions& raw, Options& o) {
  if (raw.fence.empty() == o.fence_file.empty()) wrong("expected --fence x0,y0,x1,y1 or --fence-file FILE");
  if (!raw.fence.empty()) o.fence = numbers("--fence", raw.fence, 4, 4, "four numbers x0,y0,x1,y1");
  if (!o.fence.empty() && (o.fence[0] == o.fence[2] || o.fence[1] == o.fence[3]))
    wrong("--fence: expected a rectangle with an area, found '" + raw.fence + "'");
  if (!raw.depth.empty()) {
    const auto n = numbers("--depth", raw.depth, 2, 2, "two numbers lo,hi");
    if (n[0] > n[1]) wrong("--depth: expected lo not above hi, found '" + raw.depth + "'");
    o.depth = DepthRange{n[0], n[1]};
  }
  if (!raw.grow.empty()) o.grow = numbers("--grow", raw.grow, 1, 1, "a number")[0];
  if (!raw.rotate.empty()) o.rotate = numbers("--rotate", raw.rotate, 1, 1, "a number of degrees")[0];
  if (!raw.move.empty()) {
    const auto n = numbers("--move", raw.move, 2, 2, "two numbers x,y");
    o.move_x = n[0];
    o.move_y = n[1];
  }
  if (!raw.scale.empty()) {
    const auto n = numbers("--scale", raw.scale, 1, 2, "one or two numbers s or sx,sy");
    o.scale_x = n.front();
    o.scale_y = n.back();
    for (const double s : n)
      if (!(std::abs(s) >= kSmallestScale && std::abs(s) <= kLargestScale))
        wrong("--scale: expected factors between 0.000001 and 1000000, found '" + raw.scale + "'");
  }
  for (const std::string& name : o.outputs)
    if (!is_output_format(extension_of(name)))
      wrong(name + ": expected an output name that ends in .svg, .pdf, .png, .plt or .hpgl");
}

}  // namespace

std::optional<Options> parse_options(int argc, const char* const* argv) {
  CLI::App app("Clips a drawing against a fence and writes what is kept, as pictures or as a plot file.",
               "plotclip");
  Options options;
  RawOptions raw;
  declare(app, options, raw);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
      app.exit(error, std::cout, std::cerr);
      return std::nullopt;
    }
    std::string line = error.what();
    for (char& c : line)
      if (c == '\n') c = ' ';
    wrong(line);
  }
  interpret(raw, options);
  return options;
}

}  // namespace Corvane::Print::plotclip
