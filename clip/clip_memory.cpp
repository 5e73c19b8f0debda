// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Grows the arrays of a clip memory, and holds the two records that are shared by the whole process.
//
// Invariant: an array has room for its capacity and one spare entry more, or it is null with capacity 0.
#include "clip/clip_memory.h"

#include "platform/capi_memory.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Corvane::Print::clip {

CLclpMemType clipMem1 = {3, 25, 0, nullptr, 150, 0, nullptr};
CLclpMemType clipMem2 = {3, 25, 0, nullptr, 150, 0, nullptr};

namespace {

constexpr std::size_t kPointBytes = 3 * sizeof(double);  // z has its place also in a 2-D record

// Null when the size does not fit the address space or memory ran out; the old block then still stands.
void* resize(void* block, int entries, std::size_t entry_bytes) {
  const std::uint64_t bytes = (std::uint64_t{static_cast<unsigned>(entries)} + 1) * entry_bytes;
  if (bytes > std::numeric_limits<std::size_t>::max()) return nullptr;
  return platform::capi_realloc(block, static_cast<std::size_t>(bytes));
}

// KEEP(request-raised): a request below the capacity is raised to it.
// Looks wrong; callers hand the request on as the clip's room and so use all there is.
// Pinned by ClipMemory.SmallerRequestIsRaisedToTheCapacity.
template <class T>
int fit(int* request, int* capacity, T** array, std::size_t entry_bytes) {
  *capacity = std::max(*capacity, 0);
  if (*request <= *capacity) {
    *request = *capacity;
    return CL_OK;
  }
  void* grown = resize(*array, *request, entry_bytes);
  if (grown == nullptr) platform::capi_free(*array);
  *array = static_cast<T*>(grown);
  *capacity = grown != nullptr ? *request : 0;
  return grown != nullptr ? CL_OK : CL_NO_MEMORY;
}

}  // namespace
}  // namespace Corvane::Print::clip

int CORVANE_PRINT_CALL CLreallocClpMem(CLclpMemType* mem) {
  using namespace Corvane::Print::clip;
  if (mem == nullptr) return CL_BAD_ARGUMENT;
  const int status = fit(&mem->polyRequest, &mem->polyCapacity, &mem->counts, sizeof(int));
  if (status != CL_OK) return status;
  return fit(&mem->pointRequest, &mem->pointCapacity, &mem->points, kPointBytes);
}
