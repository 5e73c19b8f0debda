# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# What the scripts of this folder share: building and running the example against an installed tree, for Linux or,
# cross-compiled, for Windows, and looking at the files of such a tree. Sourced, never run.
set -eu -o pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)

broken() { echo "$*" && exit 1; }

# arguments TARGET BUILD: sets target and build, and what the target's programs are made by and run through.
arguments() {
  [ $# = 2 ] && [ -f "$2/CMakeCache.txt" ] || broken "usage: $0 linux-x64|win32|win64 BUILD"
  target=$1
  build=$(cd "$2" && pwd)
  exe=.exe run=("$root/tools/run-$target" --raw)
  case "$target" in
    linux-x64) exe='' prefix='' cc=cc cxx=c++ run=() ;;
    win32) prefix=i686-w64-mingw32- ;;
    win64) prefix=x86_64-w64-mingw32- ;;
    *) broken "no such target: $target" ;;
  esac
  [ "$target" = linux-x64 ] || cc=${prefix}gcc-posix cxx=${prefix}g++-posix
  version=$(sed -n 's/^#define CORVANE_PRINT_VERSION "\(.*\)"$/\1/p' "$root/include/corvane/print/version.h")
}

# one_file TREE NAME: the path of the one file of that name.
one_file() {
  local found
  found=$(find "$1" -name "$2" -print)
  [ -f "$found" ] || broken "there is not one $2 in $1: $found" >&2
  printf '%s\n' "$found"
}

# says_pieces PROGRAM C|C++ VARIABLE=VALUE...: the program prints what the example is to print.
says_pieces() {
  local program=$1 language=$2 said wanted
  shift 2
  wanted=$(sed -n "s/^    \($language: piece.*\)/\1/p" "$root/examples/consumer/README.md")
  [ "$(printf '%s\n' "$wanted" | wc -l)" = 2 ] || broken "the example's README does not tell its output"
  said=$(env "$@" "${run[@]}" "$program" | tr -d '\r') || broken "$program failed: $said"
  [ "$said" = "$wanted" ] || broken "$program printed: $said"
  printf '%s\n' "$said"
}

# consume_by_cmake TREE WORK: the example as it was installed in TREE, by find_package, made in WORK.
consume_by_cmake() {
  local tree=$1 work=$2 config where
  config=$(dirname "$(one_file "$tree" CorvanePrintConfig.cmake)")
  mkdir -p "$work"
  cp -R "$(dirname "$(one_file "$tree" clip.cpp)")" "$work/source"
  where=("-DCMAKE_PREFIX_PATH=${config%/lib/*}")
  [ "$target" = linux-x64 ] ||
    where=("-DCMAKE_TOOLCHAIN_FILE=$root/cmake/toolchains/$target.cmake" "-DCorvanePrint_DIR=$config")
  cmake -S "$work/source" -B "$work/build" -G Ninja -DCMAKE_BUILD_TYPE=Release "${where[@]}"
  grep -q "^CorvanePrint_DIR:.*=$config\$" "$work/build/CMakeCache.txt" || broken "another package was found"
  cmake --build "$work/build"
  says_pieces "$work/build/clip_c$exe" C
  says_pieces "$work/build/clip_cpp$exe" C++
  cmake -S "$here/versions" -B "$work/versions" -G Ninja -DVERSION="$version" "-DCorvanePrint_DIR=$config"
}

# consume_by_pkg_config TREE WORK: the same by pkg-config and make, with warnings as errors.
consume_by_pkg_config() {
  local tree=$1 work=$2 pc library
  pc=$(dirname "$(one_file "$tree" corvane-print.pc)")
  mkdir -p "$work"
  cp -R "$(dirname "$(one_file "$tree" clip.cpp)")" "$work/source"
  [ "$(PKG_CONFIG_LIBDIR=$pc pkg-config --modversion corvane-print)" = "$version" ] || broken "another version"
  PKG_CONFIG_LIBDIR=$pc make -C "$work/source" EXE="$exe" CC="$cc" CXX="$cxx" \
    CFLAGS="-O2 -Wall -Wextra -Werror" CXXFLAGS="-O2 -Wall -Wextra -Werror"
  library=$(dirname "$pc")
  if [ "$target" != linux-x64 ]; then cp "$library/../bin/corvane_print.dll" "$work/source"; fi
  says_pieces "$work/source/clip_c$exe" C LD_LIBRARY_PATH="$library"
  says_pieces "$work/source/clip_cpp$exe" C++ LD_LIBRARY_PATH="$library"
}

# has_section FILE NAME: whether a library or program has a section of that name.
has_section() { "${prefix}objdump" -h "$1" | grep " $2 " >/dev/null; }

# is_split LIBRARY DEBUG: the debug information has gone from the one to the other, which the one tells by its name
# and checksum.
is_split() {
  local library=$1 debug=$2
  if has_section "$library" .debug_info; then broken "$library has debug information"; fi
  has_section "$debug" .debug_info || broken "$debug has no debug information"
  "${prefix}objcopy" --dump-section .gnu_debuglink="$work/link" "$library" "$work/copy"
  python3 - "$debug" "$work/link" <<'END' || broken "$library does not belong to $debug"
import os, sys, zlib
debug, link = (open(name, "rb").read() for name in sys.argv[1:])
name = os.path.basename(sys.argv[1]).encode()
checksum = zlib.crc32(debug).to_bytes(4, "little")
padded = (len(name) // 4 + 1) * 4
sys.exit(0 if link == name.ljust(padded, b"\0") + checksum else 1)
END
}

# A debugger's way on Linux from a library to its debug information in the same tree.
debug_file_of() {
  local id
  id=$(readelf --notes "$1" | sed -n 's/.*Build ID: //p')
  printf '%s/lib/debug/.build-id/%s/%s.debug\n' "$2" "${id:0:2}" "${id:2}"
}
