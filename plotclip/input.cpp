// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See input.h.
#include "plotclip/input.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "plotclip/files.h"
#include "plotclip/hpgl_reader.h"
#include "plotclip/log.h"
#include "plotclip/problem.h"

namespace Corvane::Print::plotclip {
namespace {

bool is_plot_file(const std::string& name) {
  static const char* const kExtensions[] = {"plt", "hpgl", "hpg", "hgl", "hp", "hp2", "hpgl2", "gl2", "plot"};
  return std::ranges::find(kExtensions, extension_of(name)) != std::end(kExtensions);
}

Drawing read_plot_file(const std::string& name) {
  const std::string content = read_file(name);
  log_line(Topic::kRead, "drawing %s: a plot file of %zu bytes", name.c_str(), content.size());
  Drawing drawing;
  const Bytes bytes(reinterpret_cast<const unsigned char*>(content.data()), content.size());
  if (const auto problem = read_hpgl(bytes, drawing))
    throw Problem(name + ": byte " + std::to_string(problem->offset) + ": " + problem->what);
  return drawing;
}

}  // namespace

Drawing read_drawing(const std::string& name) {
  if (!is_plot_file(name))
    if (auto drawing = read_with_gdal(name)) {
      log_line(Topic::kRead, "drawing %s: read by GDAL", name.c_str());
      return *std::move(drawing);
    }
  return read_plot_file(name);
}

}  // namespace Corvane::Print::plotclip
