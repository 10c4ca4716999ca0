#!/usr/bin/env bash
# Fails when a C++ source differs from what clang-format makes of it.
set -euo pipefail
cd "$(dirname "$0")/.."
files=$(git ls-files '*.cpp' '*.hpp' 2>/dev/null || find . -name '*.[ch]pp' -not -path './build*')
[[ -z "$files" ]] && exit 0
bad=0
for f in $files; do
  if ! clang-format --style=file "$f" | cmp -s - "$f"; then
    echo "not clang-format clean: $f"
    bad=1
  fi
done
exit $bad
