/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * A network provider library without the functions that are asked of it. */
__declspec(dllexport) int standin_is_old(void) {
  return 1;
}
