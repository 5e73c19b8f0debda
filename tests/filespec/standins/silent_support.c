/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * A support library that does not record failed late bindings. */
__declspec(dllexport) int standin_is_silent(void) {
  return 1;
}
