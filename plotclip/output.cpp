// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See output.h.
#include "plotclip/output.h"

#include "plotclip/files.h"
#include "plotclip/hpgl_writer.h"
#include "plotclip/log.h"
#include "plotclip/picture.h"

namespace Corvane::Print::plotclip {
namespace {

bool is_plot_format(const std::string& extension) {
  return extension == "plt" || extension == "hpgl";
}

}  // namespace

bool is_output_format(const std::string& extension) {
  return is_plot_format(extension) || is_picture_format(extension);
}

void write_output(const std::string& name, const Drawing& original, const Drawing& kept,
                  const FencePolygons& fence, const Options& options) {
  if (is_plot_format(extension_of(name))) {
    const std::string content = write_hpgl(kept);
    log_line(Topic::kDraw, "%s: a plot file of %zu bytes", name.c_str(), content.size());
    write_file(name, content);
  } else {
    write_picture(name, {options.ghost ? &original : nullptr, &kept, &fence, options.size});
  }
  log_line(Topic::kDraw, "%s: written", name.c_str());
}

}  // namespace Corvane::Print::plotclip
