// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// libFuzzer target: defines fences, clips polygons and lines, intersects fences, extracts and grows, with
// arbitrary numbers, counts and room, sometimes without memory. Every call must
//  - answer with a status of its family and with counts that fit it,
//  - stay within its arrays (canaries, sanitizers) and leave its input alone,
//  - give the same answer when it is repeated, with enough room the same as if there had been enough at once,
//    and the same again after a call that ran out of memory.
#include "corvane/print/cl.h"
#include "platform/capi_memory.h"
#include "tests/clip/bits.h"
#include "tests/fuzz/input.h"
#include "tests/support/guarded.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string>

namespace Corvane::Print::tests {
namespace {

using platform::capi_fail_after;

constexpr int kMostPoints = 24;
constexpr int kEnoughPieces = 1200, kEnoughPoints = 6000;

// For the message: the call that is being made.
std::string g_call;

void demand(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "fuzz_clip: %s\n%s\n", what, g_call.c_str());
  std::abort();
}

void demand_status(int status, std::initializer_list<int> allowed, const char* what) {
  if (std::find(allowed.begin(), allowed.end(), status) != allowed.end()) return;
  std::fprintf(stderr, "fuzz_clip: status %d\n", status);
  demand(false, what);
}

// One call's answer, bit by bit.
struct Answer {
  int status = 0, pieces = 0, points = 0;
  std::vector<int> counts;
  std::vector<double> coordinates;

  bool same_as(const Answer& other) const {
    return status == other.status && pieces == other.pieces && points == other.points &&
           counts == other.counts &&
           std::equal(coordinates.begin(), coordinates.end(), other.coordinates.begin(),
                      other.coordinates.end(), same_bits);
  }
};

void demand_counts(const Answer& answer, int piece_room, int point_room) {
  if (answer.status == CL_OK) {
    demand(answer.pieces >= 0 && answer.points >= 0, "a negative number of pieces or points");
    long sum = 0;
    for (const int count : answer.counts) {
      demand(count >= 0, "a negative count");
      sum += count;
    }
    demand(sum == answer.points, "counts that do not add up to the points");
  } else if (answer.status == CL_TOO_SMALL) {
    demand(answer.pieces > piece_room || answer.points > point_room || piece_room < 1 || point_room < 1,
           "asks for room that it had");
    demand(answer.pieces >= std::min(piece_room, 1) && answer.points >= std::min(point_room, 1),
           "asks for less");
  }
}

// Makes `call(pieces, counts, points, point count)` with exactly this room.
template <class Call>
Answer with_room(int dim, int piece_room, int point_room, Call call) {
  Guarded<int> counts(piece_room);
  Guarded<double> points(point_room > 0 ? point_room * dim : 0);
  Answer answer;
  answer.pieces = piece_room, answer.points = point_room;
  answer.status = call(&answer.pieces, counts.data(), points.data(), &answer.points);
  demand(counts.intact(), "wrote behind the counts");
  demand(points.intact(), "wrote behind the points");
  if (answer.status == CL_OK) {
    demand(answer.pieces <= std::max(piece_room, 0), "more pieces than room");
    demand(answer.points <= std::max(point_room, 0), "more points than room");
    answer.counts.assign(counts.data(), counts.data() + std::max(answer.pieces, 0));
    answer.coordinates.assign(points.data(), points.data() + std::max(answer.points, 0) * dim);
  }
  demand_counts(answer, piece_room, point_room);
  return answer;
}

struct Subject {
  int dim = 2;
  int count = 0;
  std::vector<double> points;
};

// The answer with plenty of room must come again whatever was asked in between.
template <class Call>
void exercise(FuzzInput& input, int dim, std::initializer_list<int> allowed, Call call, const char* what) {
  int piece_room = input.between(-1, 12), point_room = input.between(-1, 40);
  const int successes = input.between(-1, 6);

  const Answer enough = with_room(dim, kEnoughPieces, kEnoughPoints, call);
  demand_status(enough.status, allowed, what);
  demand(enough.status != CL_TOO_SMALL, "not content with plenty of room");

  const Answer first = with_room(dim, piece_room, point_room, call);
  demand_status(first.status, allowed, what);
  demand(first.same_as(with_room(dim, piece_room, point_room, call)), "another answer the second time");

  Answer last = first;
  for (int round = 0; last.status == CL_TOO_SMALL; ++round) {
    demand(round < 20, "never content with the room it asked for");
    piece_room = std::max(piece_room, last.pieces), point_room = std::max(point_room, last.points);
    last = with_room(dim, piece_room, point_room, call);
  }
  demand(last.same_as(enough), "another answer after growing");

  capi_fail_after(successes);
  const Answer starved = with_room(dim, kEnoughPieces, kEnoughPoints, call);
  capi_fail_after(-1);
  demand_status(starved.status, allowed, what);
  demand(starved.status == CL_NO_MEMORY || starved.same_as(enough), "a wrong answer without memory");
  demand(enough.same_as(with_room(dim, kEnoughPieces, kEnoughPoints, call)),
         "another answer after the failure");
}

struct FenceInput {
  int dim = 2, mode = CL_KEEP_INSIDE;
  double low = 0, high = 0;
  std::vector<int> counts;
  std::vector<double> points;
};

FenceInput fence_input(FuzzInput& input) {
  FenceInput fence;
  fence.dim = input.between(2, 3);
  fence.mode = input.between(1, 2);
  fence.low = input.number();
  fence.high = fence.low + input.byte();
  int total = 0;
  for (int k = input.between(1, 4); k > 0; --k) {
    fence.counts.push_back(input.between(0, 10));
    total += fence.counts.back();
  }
  fence.points = input.numbers(total * fence.dim);
  return fence;
}

std::string text_of(const char* name, int dim, const std::vector<int>& counts,
                    const std::vector<double>& points) {
  std::string text = std::string(name) + " dim " + std::to_string(dim) + " counts";
  for (const int count : counts) text += " " + std::to_string(count);
  text += " points";
  char number[40];
  for (const double value : points) {
    std::snprintf(number, sizeof number, " %.17g", value);
    text += number;
  }
  return text + "\n";
}

CLFenceHandle define(const FenceInput& fence, long successes = -1) {
  g_call = text_of("fence", fence.dim, fence.counts, fence.points) + "depth " + std::to_string(fence.low) +
           " to " + std::to_string(fence.high) + " mode " + std::to_string(fence.mode) + "\n";
  CLFenceHandle handle = nullptr;
  std::vector<int> counts = fence.counts;
  capi_fail_after(successes);
  const int status = CLdefFence(&handle, fence.dim, static_cast<int>(counts.size()), counts.data(),
                                fence.points.data(), fence.low, fence.high, fence.mode);
  capi_fail_after(-1);
  demand_status(status, {CL_OK, CL_BAD_ARGUMENT}, "CLdefFence");
  demand((status == CL_OK) == (handle != nullptr), "a handle without a fence or a fence without a handle");
  return handle;
}

Subject subject_input(FuzzInput& input) {
  Subject subject;
  subject.dim = input.between(2, 3);
  subject.count = input.between(1, kMostPoints);
  subject.points = input.numbers(subject.count * subject.dim);
  return subject;
}

template <class Clip>
void clip_subject(FuzzInput& input, Clip clip, CLFenceHandle fence, std::initializer_list<int> allowed,
                  const char* what) {
  const Subject subject = subject_input(input);
  const std::vector<double> before = subject.points;
  g_call += text_of(what, subject.dim, {subject.count}, subject.points);
  exercise(
      input, subject.dim, allowed,
      [&](int* pieces, int* counts, double* points, int* used) {
        return clip(fence, subject.dim, subject.count, subject.points.data(), pieces, counts, points, used);
      },
      what);
  demand(before.empty() ||
             std::memcmp(before.data(), subject.points.data(), before.size() * sizeof(double)) == 0,
         "changed its input");
}

void extract(FuzzInput& input, CLFenceHandle fence, int dim) {
  exercise(
      input, dim, {CL_OK, CL_TOO_SMALL},
      [&](int* pieces, int* counts, double* points, int* used) {
        return CLextractPolygons(fence, pieces, counts, points, used);
      },
      "CLextractPolygons");
}

int intersect(CLFenceHandle clip, CLFenceHandle subject, long successes) {
  CLFenceHandle result = nullptr;
  capi_fail_after(successes);
  const int status = CLclipFences(clip, subject, &result);
  capi_fail_after(-1);
  demand_status(status, {CL_OK, CL_BAD_ARGUMENT, CL_NO_MEMORY, CL_EMPTY, CL_INCONSISTENT}, "CLclipFences");
  demand((status == CL_OK) == (result != nullptr), "an intersection without a fence or the other way round");
  CLdeleteFence(result);
  return status;
}

void intersect_fences(FuzzInput& input, CLFenceHandle fence) {
  const FenceInput other = fence_input(input);
  const int successes = input.between(0, 8);
  const std::string clip_call = g_call;
  CLFenceHandle subject = define(other);
  g_call = clip_call + "CLclipFences, subject " + g_call;
  if (subject == nullptr) return;
  const int status = intersect(fence, subject, -1);
  demand(status == intersect(fence, subject, -1), "another intersection the second time");
  intersect(fence, subject, successes);
  demand(status == intersect(fence, subject, -1), "another intersection after a failure");
  CLdeleteFence(subject);
}

void grow(FuzzInput& input, const FenceInput& fence) {
  const double distance = input.number();
  std::vector<int> counts = fence.counts;
  std::vector<double> points = fence.points;
  const auto grown = [&](long successes) {
    Guarded<double> out(static_cast<int>(points.size()));
    capi_fail_after(successes);
    const int status = CLGrowPolygons(fence.dim, static_cast<int>(counts.size()), counts.data(),
                                      points.data(), distance, out.data());
    capi_fail_after(-1);
    demand_status(status, {CL_OK, CL_NO_MEMORY}, "CLGrowPolygons");
    demand(out.intact(), "grew behind the output");
    return std::vector<double>(out.data(), out.data() + out.size());
  };
  const std::vector<double> first = grown(-1), second = grown(-1);
  demand(first.empty() || std::memcmp(first.data(), second.data(), first.size() * sizeof(double)) == 0,
         "grew to something else the second time");
  grown(0);
}

void run(FuzzInput& input) {
  const FenceInput shape = fence_input(input);
  grow(input, shape);
  CLdeleteFence(define(shape, input.between(0, 6)));
  CLFenceHandle fence = define(shape);
  if (fence == nullptr) return;
  int words[14];
  demand(CLinqFenceInfo(fence, words) == CL_OK, "no answer about a fence");
  extract(input, fence, shape.dim);
  const int calls = input.between(1, 4);
  for (int k = 0; k < calls; ++k) {
    switch (input.between(0, 3)) {
      case 0:
        clip_subject(input, CLclipLine, fence, {CL_OK, CL_BAD_ARGUMENT, CL_TOO_SMALL, CL_NO_MEMORY},
                     "CLclipLine");
        break;
      case 1:
        intersect_fences(input, fence);
        break;
      default:
        clip_subject(input, CLclipPolygon, fence,
                     {CL_OK, CL_BAD_ARGUMENT, CL_TOO_SMALL, CL_NO_MEMORY, CL_INCONSISTENT}, "CLclipPolygon");
    }
  }
  CLdeleteFence(fence);
}

}  // namespace
}  // namespace Corvane::Print::tests

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Corvane::Print::tests::FuzzInput input(data, size);
  Corvane::Print::tests::run(input);
  return 0;
}
