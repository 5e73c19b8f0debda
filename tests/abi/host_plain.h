/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * What a C host does with the plain names of the families that live in a C++ namespace. Each function calls a
 * family's once, and returns 0, or the line of the first answer that is not as expected. */
#ifndef CORVANE_PRINT_TESTS_ABI_HOST_PLAIN_H
#define CORVANE_PRINT_TESTS_ABI_HOST_PLAIN_H

#ifdef __cplusplus
extern "C" {
#endif

int host_plain_config(void);
int host_plain_geometry(void);
int host_plain_matrices(void);
int host_plain_list(void);
int host_plain_strings(void);
int host_plain_wide_strings(void);
int host_plain_debug(void);

#ifdef __cplusplus
}
#endif

#endif
