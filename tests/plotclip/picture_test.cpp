// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Pictures: their formats, and what lies where on a PNG.
#include "plotclip/picture.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "plotclip/problem.h"
#include "plotclip_support.h"

namespace Corvane::Print::plotclip {
namespace {

using test::content_of;
using test::read_text;

const FencePolygons kFence = {{{0, 0}, {1000, 500}}};

class Png {
public:
  explicit Png(const std::string& name) : surface_(cairo_image_surface_create_from_png(name.c_str())) {
    EXPECT_EQ(cairo_surface_status(surface_), CAIRO_STATUS_SUCCESS);
  }
  ~Png() { cairo_surface_destroy(surface_); }
  Png(const Png&) = delete;
  Png& operator=(const Png&) = delete;
  int width() const { return cairo_image_surface_get_width(surface_); }
  int height() const { return cairo_image_surface_get_height(surface_); }
  std::uint32_t pixel(int x, int y) const {
    const unsigned char* row =
        cairo_image_surface_get_data(surface_) + y * cairo_image_surface_get_stride(surface_);
    return reinterpret_cast<const std::uint32_t*>(row)[x] & 0xffffffU;
  }

private:
  cairo_surface_t* surface_;
};

TEST(PlotclipPicture, ThePngShowsFillsAtTheirPlaceOnWhite) {
  const test::TempFolder folder;
  const std::string name = folder.file("p.png");
  const Drawing kept = read_text("PC1,255,0,0;PU0,0;RA500,500;");
  write_picture(name, {nullptr, &kept, &kFence, 1000});
  const Png png(name);
  EXPECT_EQ(png.width(), 1000);
  EXPECT_EQ(png.height(), 530);
  EXPECT_EQ(png.pixel(250, 265), 0xff0000U);
  EXPECT_EQ(png.pixel(750, 265), 0xffffffU);
  EXPECT_EQ(png.pixel(2, 2), 0xffffffU);
}

TEST(PlotclipPicture, UpIsUp) {
  const test::TempFolder folder;
  const Drawing kept = read_text("PC1,0,0,255;PU0,250;RA1000,500;");
  write_picture(folder.file("p.png"), {nullptr, &kept, &kFence, 400});
  const Png png(folder.file("p.png"));
  EXPECT_EQ(png.pixel(200, 60), 0x0000ffU);
  EXPECT_EQ(png.pixel(200, 150), 0xffffffU);
}

TEST(PlotclipPicture, TheGhostIsPale) {
  const test::TempFolder folder;
  const Drawing ghost = read_text("PC1,255,0,0;PU0,0;RA1000,500;");
  const Drawing kept = read_text("PC1,255,0,0;PU0,0;RA500,500;");
  write_picture(folder.file("p.png"), {&ghost, &kept, &kFence, 1000});
  const Png png(folder.file("p.png"));
  EXPECT_EQ(png.pixel(250, 265), 0xff0000U);
  const std::uint32_t behind = png.pixel(750, 265);
  EXPECT_EQ(behind >> 16, 0xffU);
  EXPECT_GT(behind & 0xffU, 0x90U);
  EXPECT_LT(behind & 0xffU, 0xffU);
}

TEST(PlotclipPicture, HolesAreNotFilled) {
  const test::TempFolder folder;
  const Drawing kept = read_text(
      "PC1,0,0,0;PU0,0;PM0;PD1000,0,1000,500,0,500;PM1;PU400,200;PD600,200,600,300,400,300;PM2;FP;");
  write_picture(folder.file("p.png"), {nullptr, &kept, &kFence, 1000});
  const Png png(folder.file("p.png"));
  EXPECT_EQ(png.pixel(500, 265), 0xffffffU);
  EXPECT_EQ(png.pixel(150, 265), 0x000000U);
}

TEST(PlotclipPicture, TheFenceIsADashedLine) {
  const test::TempFolder folder;
  const Drawing nothing;
  write_picture(folder.file("p.png"), {nullptr, &nothing, &kFence, 1600});
  const Png png(folder.file("p.png"));
  int changes = 0;
  bool dark = false;
  for (int x = 60; x < 1540; ++x) {
    const bool now = (png.pixel(x, 48) & 0xff00U) < 0x8000U;
    changes += now != dark ? 1 : 0;
    dark = now;
  }
  EXPECT_GT(changes, 100);
}

TEST(PlotclipPicture, VectorFormatsAreWritten) {
  const test::TempFolder folder;
  const Drawing kept = read_text("FT3,20,45;PU0,0;RA500,500;EA500,500;CI100;PU700,100;PD;PU;");
  write_picture(folder.file("p.svg"), {nullptr, &kept, &kFence, 0});
  write_picture(folder.file("p.pdf"), {nullptr, &kept, &kFence, 0});
  const std::string svg = content_of(folder.file("p.svg"));
  EXPECT_NE(svg.find("<svg"), std::string::npos);
  EXPECT_NE(svg.find("</svg>"), std::string::npos);
  const std::string pdf = content_of(folder.file("p.pdf"));
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_NE(pdf.find("%%EOF"), std::string::npos);
}

TEST(PlotclipPicture, AFolderThatIsNotThereIsAProblem) {
  const test::TempFolder folder;
  const Drawing nothing;
  for (const char* name : {"none/p.png", "none/p.svg", "none/p.pdf"})
    EXPECT_THROW(write_picture(folder.file(name), {nullptr, &nothing, &kFence, 0}), Problem) << name;
}

}  // namespace
}  // namespace Corvane::Print::plotclip
