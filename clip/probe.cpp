// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Shared state: the list of free records. A record outlives the fence that used it, because hosts keep
// looking at the probe of a fence they have just released; it is handed out again for a later polygon.
#include "clip/probe.h"

#include "clip/tolerances.h"
#include "platform/capi_memory.h"

#include <cmath>
#include <cstdlib>

namespace Corvane::Print::clip {
namespace {

ProbeRecord* g_free_probes;  // linked through `next`

ProbeRecord* allocate() {
  if (g_free_probes == nullptr) {
    return static_cast<ProbeRecord*>(platform::capi_alloc_array(1, sizeof(ProbeRecord)));
  }
  ProbeRecord* probe = g_free_probes;
  g_free_probes = probe->next;
  return probe;
}

void set_default_ray(ProbeRecord& probe, double reach) {
  probe.dx = reach * kRayX;
  probe.dy = reach * kRayY;
}

void set_ray(ProbeRecord& probe, double reach) {
  const char* text = std::getenv("VX_CLIP_RAY_SLOPE");
  if (text == nullptr) return set_default_ray(probe, reach);
  const double slope = std::strtod(text, nullptr);
  const double root = std::sqrt(slope * slope + 1.0);
  // A slope that is no finite number, or so large that its square is not, has no direction.
  if (!std::isfinite(root)) return set_default_ray(probe, reach);
  probe.dx = reach * slope / root;
  probe.dy = reach / root;
}

}  // namespace

ProbeRecord* take_probe(const ClipExtent& extent) {
  ProbeRecord* probe = allocate();
  if (probe == nullptr) return nullptr;
  *probe = ProbeRecord{};
  const double width = extent.xmax - extent.xmin;
  const double height = extent.ymax - extent.ymin;
  const double reach = kRayReach * (width > height ? width : height);
  set_ray(*probe, reach);
  probe->tolerance = 1.0 / (reach * kRayToleranceDivisor);
  return probe;
}

// KEEP(probes-stay): the memory of a record is never returned to the heap.
// Looks wrong; hosts look at the probe of a fence that they have just released.
// Pinned by Probe.ARecordGivenBackIsTheNextOneTaken.
void give_probe(ProbeRecord* probe) {
  if (probe == nullptr) return;
  probe->next = g_free_probes;
  g_free_probes = probe;
}

}  // namespace Corvane::Print::clip
