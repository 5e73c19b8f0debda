// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Line by line through the fence file; see fence_file.h.
#include "plotclip/fence_file.h"

#include <charconv>
#include <cmath>
#include <string>

namespace Corvane::Print::plotclip {
namespace {

bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

class FenceParser {
public:
  FenceParser(std::string_view text, std::vector<PointRun>& polygons) : text_(text), polygons_(polygons) {}

  void parse() {
    while (at_ < text_.size()) line();
    end_polygon(text_.size());
    if (polygons_.empty()) fail(text_.size(), "a polygon of at least two points");
  }

private:
  [[noreturn]] void fail(std::size_t offset, const std::string& expected) const {
    throw ReadProblem{offset, "expected " + expected};
  }

  bool at_line_end() const { return at_ >= text_.size() || text_[at_] == '\n' || text_[at_] == '#'; }

  void skip_blanks() {
    while (at_ < text_.size() && is_blank(text_[at_])) ++at_;
  }

  void line() {
    const std::size_t start = at_;
    skip_blanks();
    constexpr std::string_view kWord = "polygon";
    if (text_.substr(at_, kWord.size()) == kWord) {
      end_polygon(start);
      at_ += kWord.size();
    } else if (at_line_end()) {
      // A line with nothing but a comment separates nothing.
      if (at_ >= text_.size() || text_[at_] == '\n') end_polygon(start);
    } else {
      point();
    }
    skip_blanks();
    if (!at_line_end()) fail(at_, "the end of the line");
    while (at_ < text_.size() && text_[at_] != '\n') ++at_;
    ++at_;
  }

  void point() {
    if (ring_.empty()) ring_offset_ = at_;
    const double x = number("a number or the word polygon");
    skip_blanks();
    if (at_ < text_.size() && text_[at_] == ',') ++at_;
    skip_blanks();
    ring_.push_back({x, number("a second number")});
  }

  double number(const char* expected) {
    const std::size_t start = at_;
    if (at_ < text_.size() && text_[at_] == '+') ++at_;
    double value = 0.0;
    const auto [end, error] = std::from_chars(text_.data() + at_, text_.data() + text_.size(), value);
    if (error != std::errc{} || !std::isfinite(value) || std::abs(value) > kLargestNumber)
      fail(start, expected);
    at_ = static_cast<std::size_t>(end - text_.data());
    return value;
  }

  void end_polygon(std::size_t offset) {
    if (ring_.empty()) return;
    if (ring_.size() > 3 && ring_.front() == ring_.back()) ring_.pop_back();
    if (ring_.size() < 2)
      fail(offset, "a second point of the polygon at byte " + std::to_string(ring_offset_));
    polygons_.push_back(std::move(ring_));
    ring_.clear();
  }

  std::string_view text_;
  std::vector<PointRun>& polygons_;
  std::size_t at_ = 0;
  PointRun ring_;
  std::size_t ring_offset_ = 0;
};

}  // namespace

std::optional<ReadProblem> parse_fence_file(std::string_view text, std::vector<PointRun>& polygons) {
  try {
    FenceParser(text, polygons).parse();
    return std::nullopt;
  } catch (const ReadProblem& problem) {
    return problem;
  }
}

}  // namespace Corvane::Print::plotclip
