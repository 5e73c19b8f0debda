// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See picture.h. All lengths on the page follow its longer side, so that a picture looks the same in every
// size.
#include "plotclip/picture.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>

#include <cmath>
#include <memory>

#include "plotclip/extent.h"
#include "plotclip/files.h"
#include "plotclip/log.h"
#include "plotclip/painter.h"
#include "plotclip/problem.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr int kPngSize = 1600;
constexpr int kVectorSize = 842;  // points: the longer side of A4
constexpr double kMargin = 0.03;  // of the longer side, on every side
constexpr double kGhostStrength = 0.3;

struct DestroySurface {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, DestroySurface>;

struct DestroyContext {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Context = std::unique_ptr<cairo_t, DestroyContext>;

Extent extent_of(const Scene& scene) {
  Extent extent;
  extent.add(*scene.kept);
  if (scene.ghost != nullptr) extent.add(*scene.ghost);
  extent.add(*scene.fence);
  return extent;
}

// The extent on a page whose longer side is `size`.
PageFrame frame_of(const Extent& extent, double size) {
  PageFrame frame;
  const double margin = size * kMargin;
  const double side = extent.longer_side();
  frame.scale = side > 0.0 ? (size - 2.0 * margin) / side : 1.0;
  frame.width = std::ceil(extent.width() * frame.scale + 2.0 * margin);
  frame.height = std::ceil(extent.height() * frame.scale + 2.0 * margin);
  frame.left = margin - extent.left() * frame.scale;
  frame.top = frame.height - margin + extent.bottom() * frame.scale;
  frame.unit = size / 1600.0;
  return frame;
}

Surface surface_for(const std::string& name, const PageFrame& frame) {
  const std::string extension = extension_of(name);
  if (extension == "svg") {
    Surface surface(cairo_svg_surface_create(name.c_str(), frame.width, frame.height));
    cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PT);
    return surface;
  }
  if (extension == "pdf") return Surface(cairo_pdf_surface_create(name.c_str(), frame.width, frame.height));
  return Surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(frame.width),
                                            static_cast<int>(frame.height)));
}

void check(const std::string& name, cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS)
    throw Problem(name + ": cannot be written: " + cairo_status_to_string(status));
}

void paint(cairo_t* cr, const PageFrame& frame, const Scene& scene) {
  cairo_set_source_rgb(cr, 1.0, 1.0, 1.0);
  cairo_paint(cr);
  const Painter painter(cr, frame);
  if (scene.ghost != nullptr) painter.drawing(*scene.ghost, kGhostStrength);
  painter.drawing(*scene.kept, 1.0);
  painter.fence(*scene.fence);
}

}  // namespace

bool is_picture_format(const std::string& extension) {
  return extension == "svg" || extension == "pdf" || extension == "png";
}

void write_picture(const std::string& name, const Scene& scene) {
  const bool png = extension_of(name) == "png";
  const double size = scene.size != 0 ? scene.size : png ? kPngSize : kVectorSize;
  const Extent extent = extent_of(scene);
  const PageFrame frame = frame_of(extent, size);
  log_line(Topic::kDraw, "%s: a page of %g by %g for %g,%g to %g,%g", name.c_str(), frame.width, frame.height,
           extent.left(), extent.bottom(), extent.right(), extent.top());
  const Surface surface = surface_for(name, frame);
  check(name, cairo_surface_status(surface.get()));
  const Context context(cairo_create(surface.get()));
  paint(context.get(), frame, scene);
  check(name, cairo_status(context.get()));
  if (png) {
    check(name, cairo_surface_write_to_png(surface.get(), name.c_str()));
    return;
  }
  cairo_surface_finish(surface.get());
  check(name, cairo_surface_status(surface.get()));
}

}  // namespace Corvane::Print::plotclip
