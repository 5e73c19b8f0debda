# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# What the scripts of this folder share: where things are, and messages. Sourced, never run.
#
# CORVANE_PRINT_CACHE may name another folder for what is downloaded or made once (the 32-bit Wine and the
# Wine prefixes); it is .cache in the repository otherwise.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cache=${CORVANE_PRINT_CACHE:-$root/.cache}
wine_packages=$cache/wine32

say() { printf '%s\n' "$*"; }
fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}
