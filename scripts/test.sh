#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: once in a plain build and once under
# AddressSanitizer + UndefinedBehaviorSanitizer, then runs each fuzz target briefly. Also
# checks the code's formatting. The plain build includes the desktop window, whose tests
# run on Qt's offscreen platform, with no display.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh --gui
bash scripts/check-format.sh

jobs=$(nproc)
for variant in build build-asan; do
  sanitize=OFF gui=ON
  # Qt's own libraries are not built for the sanitizers: the window is tested plainly
  [[ $variant == build-asan ]] && sanitize=ON gui=OFF
  cmake -S . -B "$variant" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCORVANE_SANITIZE=$sanitize \
    -DCORVANE_GUI=$gui >/dev/null
  ninja -C "$variant" -j"$jobs"
done

export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export QT_QPA_PLATFORM=offscreen
status=0
for variant in build build-asan; do
  echo "== tests: $variant"
  ctest --test-dir "$variant" -j"$jobs" --output-on-failure || status=1
done

# The fuzz targets, a few seconds each, so that they keep building and running.
echo "== fuzz targets"
bash fuzz/run.sh "${CORVANE_FUZZ_SECONDS:-5}" || status=1
exit $status
