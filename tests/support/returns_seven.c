/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * Returns 7: proof that programs of a target really run, asked for before any test of that target counts. */
int main(void) {
  return 7;
}
