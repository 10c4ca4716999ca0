#!/usr/bin/env bash
# Builds the fuzz targets with clang and runs each for SECONDS (default 10), starting from the
# committed seeds in fuzz/corpus/<target>. New inputs go to a scratch corpus, not the
# repository. Any crash, leak, sanitizer report or time-out fails the script; its input is
# kept under fuzz/findings/.
#
#   fuzz/run.sh [SECONDS] [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-10}
shift || true
targets=("$@")
((${#targets[@]})) || targets=(fuzz_values fuzz_readers fuzz_xls fuzz_xlsx fuzz_settings fuzz_translators)

bash scripts/install-deps.sh --fuzz
build=build-fuzz
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCORVANE_FUZZ=ON \
  -DCORVANE_TESTS=OFF -DCMAKE_CXX_COMPILER=clang++ >/dev/null
ninja -C "$build" "${targets[@]}" >/dev/null

work=$(mktemp -d /tmp/corvane-fuzz-XXXXXX)
trap 'rm -rf "$work"' EXIT
mkdir -p fuzz/findings
export ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1
status=0
for target in "${targets[@]}"; do
  mkdir -p "$work/$target" "fuzz/corpus/$target"
  touch "$work/$target.stamp"
  echo "== $target: $seconds s"
  if ! "$build/fuzz/$target" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 \
    -max_len=65536 -print_final_stats=1 -artifact_prefix="fuzz/findings/$target-" \
    "$work/$target" "fuzz/corpus/$target" >"$work/$target.log" 2>&1; then
    status=1
    tail -n 40 "$work/$target.log"
  else
    # The .xls reader runs the workbook library in a child process, which may die on a
    # damaged workbook; the fuzzer's handlers in that child write an input the reader itself
    # survived. Only a run that failed keeps its inputs.
    contained=$(find fuzz/findings -name "$target-*" -newer "$work/$target.stamp" | wc -l)
    find fuzz/findings -name "$target-*" -newer "$work/$target.stamp" -delete
    ((contained == 0)) || echo "$contained damaged workbooks ended their reading child, as designed"
    grep -E '^stat::(number_of_executed_units|new_units_added)' "$work/$target.log" | tail -n 2 || true
  fi
done
exit $status
