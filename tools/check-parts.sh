# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The Corvane Print authors
#
# The parts of tools/check; sourced by it, never run. A part is a list of steps. Every step ends in exactly one
# row of results; a part that dies leaves no "finished" row, and that counts as failed.
build=$root/build
results=$build/check/results
logs=$build/check/logs
jobs=$(nproc)
# The test programs of every target.
everywhere="corvane_tests corvane_host_tests corvane_example_tests"

# row PART WHAT PASSED FAILED SECONDS LOG
row() {
  printf '%s\t%s\t%s\t%s\t%s\t%s\n' "$@" >>"$results/$1.rows"
  [ "$2" = finished ] || say "$1: $2: $3 passed, $4 failed ($5 s)"
}

# Runs a command whose status is the answer: one check passed or failed.
step() {
  local part=$1 what=$2 from=$SECONDS status
  local log="$logs/$part-${what// /-}.log"
  shift 2
  "$@" >"$log" 2>&1
  status=$?
  if [ $status = 0 ]; then row "$part" "$what" 1 0 $((SECONDS - from)) "$log"; return 0; fi
  printf 'status %s of: %s\n' "$status" "$*" >>"$log"
  row "$part" "$what" 0 1 $((SECONDS - from)) "$log"
  return 1
}

# Runs a test program, perhaps through others, and takes the counts from its last line "NAME: N passed, N
# failed". Without that line, or with a status that contradicts it, the run counts as one failure more.
program() {
  local part=$1 name=$2 from=$SECONDS status line passed=0 failed=0
  local log="$logs/$part-$name.log"
  shift 2
  timeout -k 10 1200 "$@" --gtest_brief=1 >"$log" 2>&1
  status=$?
  line=$(tr -d '\r' <"$log" | grep -E "^$name: [0-9]+ passed, [0-9]+ failed\$" | tail -n 1)
  if [ -n "$line" ]; then
    passed=$(echo "$line" | sed -E 's/.*: ([0-9]+) passed.*/\1/')
    failed=$(echo "$line" | sed -E 's/.* ([0-9]+) failed$/\1/')
  fi
  if [ -z "$line" ] || { [ $status != 0 ] && [ "$failed" = 0 ]; }; then
    failed=$((failed + 1))
    printf 'status %s of: %s\n' "$status" "$*" >>"$log"
  fi
  row "$part" "$name" "$passed" "$failed" $((SECONDS - from)) "$log"
}

# The programs that must be there, and whatever else the build lists.
test_programs() {
  { printf '%s\n' $2 && cat "$build/$1/test-programs.txt" 2>/dev/null; } | sed '/^$/d' | awk '!seen[$0]++'
}

# The variables, VARIABLE=VALUE, that a program of a target runs with.
environment_of() { sed -n "s/^$2 //p" "$build/$1/test-environment.txt" 2>/dev/null; }

configure_and_build() {
  cmake --preset "$1" -S "$root" -DCORVANE_PRINT_REQUIRE_ALL=ON && cmake --build "$build/$1" -j "$jobs"
}

build_headers() { cmake --build "$build/$1" -j "$jobs" --target corvane_header_tests; }

run_part() {
  case "$1" in
    linux-x64 | linux-asan | win32 | win64) part_${1//-/_} ;;
    *) part_"$1" ;;
  esac
  row "$1" finished 1 0 0 -
}

part_repository() {
  step repository layers "$root/tools/check-layers"
  step repository oddities "$root/tools/check-keep"
  step repository names "$root/tools/make-names" --check
  step repository pages "$root/tools/make-docs" --check
  step repository "benchmark report" python3 -B "$root/tests/bench/report_test.py"
  step repository run-wine "$root/tests/tools/run_wine_test"
}

# What a program with the thread sanitizer is run through: some systems spread addresses over more room than the
# sanitizer can follow.
fixed_addresses() {
  case "$1" in *_tsan_tests) setarch -R true 2>/dev/null && echo "setarch -R" ;; esac
}

# The library with all its plain forms, under the tests of the exports.
plain_form() {
  cmake -S "$root" -B "$build/plain" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCORVANE_PRINT_PLAIN=ON \
    -DCORVANE_PRINT_BUILD_TESTS=OFF -DCORVANE_PRINT_BUILD_TOOLS=OFF -DCORVANE_PRINT_BUILD_MANAGED=OFF &&
    cmake --build "$build/plain" -j "$jobs" --target corvane_print &&
    LD_LIBRARY_PATH=$build/plain ldd "$build/linux-x64/corvane_host_tests" | grep -q "$build/plain/" &&
    LD_LIBRARY_PATH=$build/plain "$build/linux-x64/corvane_host_tests" --gtest_brief=1
}

part_linux_x64() {
  step linux-x64 build configure_and_build linux-x64 || return
  step linux-x64 headers build_headers linux-x64
  step linux-x64 exports "$root/tools/check-exports" linux-x64 "$build/linux-x64/libcorvane_print.so"
  step linux-x64 interface "$root/tools/check-abi" "$build/linux-x64/libcorvane_print.so"
  step linux-x64 python "$root/tests/plain/python" "$build/linux-x64"
  step linux-x64 reference cmake --build "$build/linux-x64" --target corvane_print_docs
  step linux-x64 installation "$root/tests/install/run" linux-x64 "$build/linux-x64"
  step linux-x64 packages "$root/tests/install/packages" linux-x64 "$build/linux-x64"
  step linux-x64 "plain form" plain_form
  step linux-x64 pictures "$root/tools/make-pictures" --check "$build/linux-x64"
  step linux-x64 benchmarks "$root/tools/bench" --quick
  local name
  for name in $(test_programs linux-x64 "$everywhere corvane_geos_tests plotclip_tests"); do
    program linux-x64 "$name" $(fixed_addresses "$name") "$build/linux-x64/$name"
  done
}

part_linux_asan() {
  step linux-asan build configure_and_build linux-asan || return
  # A small quarantine of released blocks and short histories of blocks: the tests release at once what they
  # take, and with the defaults the comparisons run twice as long.
  export ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1:quarantine_size_mb=16:malloc_context_size=8
  export LSAN_OPTIONS=suppressions=$root/tests/lsan.supp:print_suppressions=0
  export UBSAN_OPTIONS=print_stacktrace=1
  local name
  for name in $(test_programs linux-asan "$everywhere corvane_geos_tests plotclip_tests"); do
    program linux-asan "$name" "$build/linux-asan/$name"
  done
}

returns_seven() {
  local status
  timeout -k 10 300 "$root/tools/run-$1" --raw "$build/$1/corvane_returns_seven.exe"
  status=$?
  echo "the program that returns 7 returned $status"
  [ $status = 7 ]
}

part_windows() {
  local target=$1 name
  step "$target" build configure_and_build "$target" || return
  step "$target" headers build_headers "$target"
  step "$target" exports "$root/tools/check-exports" "$target" "$build/$target/corvane_print.dll"
  step "$target" imports "$root/tools/check-imports" "$build/$target/corvane_print.dll" "$build/$target"/*.exe
  if ! step "$target" "programs run" returns_seven "$target"; then
    for name in $(test_programs "$target" "$everywhere"); do
      row "$target" "$name" 0 1 0 "$logs/$target-programs-run.log"
    done
    return
  fi
  step "$target" installation "$root/tests/install/run" "$target" "$build/$target"
  step "$target" packages "$root/tests/install/packages" "$target" "$build/$target"
  for name in $(test_programs "$target" "$everywhere"); do
    program "$target" "$name" env $(environment_of "$target" "$name") \
      "$root/tools/run-$target" "$build/$target/$name.exe"
  done
}
part_win32() { part_windows win32; }
part_win64() { part_windows win64; }

# New inputs go to a scratch folder, so that a run does not change the kept corpus.
run_fuzzer() {
  local name=$1 scratch=$build/check/fuzz/$1
  local corpus=$root/tests/fuzz/corpus/$1
  [ -d "$corpus" ] || { echo "there is no corpus $corpus" && return 1; }
  rm -rf "$scratch" && mkdir -p "$scratch" || return 1
  timeout -k 10 $((fuzz_seconds + 600)) "$build/linux-fuzz/$name" -max_total_time="$fuzz_seconds" -timeout=20 \
    -rss_limit_mb=4096 -artifact_prefix="$logs/$name-" "$scratch" "$corpus"
}

ran_to_its_end() { grep -Eq '^Done [1-9][0-9]* runs in' "$1"; }

fuzz_one() {
  if [ ! -x "$build/linux-fuzz/$1" ]; then
    row fuzz "$1" 0 1 0 -
    return
  fi
  step fuzz "$1" run_fuzzer "$1"
  step fuzz "$1 end" ran_to_its_end "$logs/fuzz-$1.log"
}

part_fuzz() {
  step fuzz build configure_and_build linux-fuzz || return
  export ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1
  export LSAN_OPTIONS=suppressions=$root/tests/lsan.supp:print_suppressions=0
  # Two at a time.
  local name running=0
  for name in $({ printf '%s\n' fuzz_clip fuzz_hpgl && cd "$root/tests/fuzz" && ls fuzz_*.cpp; } |
    sed 's/\.cpp$//' | sort -u); do
    if [ $running -ge 2 ]; then
      wait -n
      running=$((running - 1))
    fi
    fuzz_one "$name" &
    running=$((running + 1))
  done
  wait
}

# wait_for_builds PART TARGET...: what the parts TARGET build, which come before PART; built here when they are
# not among the chosen ones.
wait_for_builds() {
  local part=$1 target
  shift
  for target in "$@"; do
    case " $chosen " in
      *" $target "*) until [ -f "$results/$target.done" ]; do sleep 1; done ;;
      *) step "$part" "build $target" configure_and_build "$target" || return 1 ;;
    esac
  done
}

part_managed() {
  wait_for_builds managed linux-x64 win32 win64 || return
  program managed corvane_managed_tests "$root/tools/run-managed-tests" "$build/linux-x64" \
    "$build/win32/corvane_print.dll"
  step managed package "$root/tests/managed/package" "$build/linux-x64" "$build/win32" "$build/win64"
}

part_valgrind() {
  wait_for_builds valgrind linux-x64 || return
  export CORVANE_TEST_SCALE=0.01
  local name
  # A program with a sanitizer of its own runs by itself alone, in part linux-x64.
  for name in $(test_programs linux-x64 "$everywhere corvane_geos_tests plotclip_tests" |
    grep -v '_tsan_tests$'); do
    program valgrind "$name" valgrind --quiet --error-exitcode=9 --leak-check=full \
      --show-leak-kinds=definite,possible --errors-for-leak-kinds=definite,possible \
      --suppressions="$root/tests/valgrind.supp" "$build/linux-x64/$name"
  done
}

# The table, then the tail of the log of everything that failed, then the line with the sums.
print_table() {
  local passed=0 failed=0 part what p f s log
  say
  printf '%-12s %-24s %8s %8s %8s\n' target what passed failed seconds
  for part in $chosen; do
    grep -q "	finished	" "$results/$part.rows" 2>/dev/null || row "$part" "part did not finish" 0 1 0 -
    while IFS='	' read -r part what p f s log; do
      [ "$what" = finished ] && continue
      printf '%-12s %-24s %8d %8d %8d\n' "$part" "$what" "$p" "$f" "$s"
      passed=$((passed + p))
      failed=$((failed + f))
    done <"$results/$part.rows"
  done
  say
  for part in $chosen; do
    while IFS='	' read -r part what p f s log; do
      [ "$f" = 0 ] && continue
      say "FAILED: $part, $what; log: $log"
      [ -f "$log" ] && grep -v '^$' "$log" | tail -n 15 | sed 's/^/    /'
    done <"$results/$part.rows"
  done
  say "took $(($1 / 60)) min $(($1 % 60)) s"
  say "$passed passed, $failed failed"
  [ "$failed" = 0 ]
}
