/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * The CL family as a C host calls it; the C++ tests look at the results. */
#ifndef CORVANE_PRINT_TESTS_ABI_HOST_CALLS_H
#define CORVANE_PRINT_TESTS_ABI_HOST_CALLS_H

#ifdef __cplusplus
extern "C" {
#endif

/* Defines a 10 by 10 fence, clips the horizontal line y = 5 from x = -5 to 15 against it with memory from
 * CLreallocClpMem, and writes the ends of the kept part: x, y, x, y. Returns the status of the first call
 * that failed, else that of CLdeleteFence. */
int host_clips_a_line(int mode, double ends[4]);

/* The sizes that C sees, to be compared with those of C++. */
int host_size_of_clip_memory(void);

#ifdef __cplusplus
}
#endif

#endif
