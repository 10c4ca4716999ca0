#!/usr/bin/env bash
# Installs what is missing, builds the corvane command and translates the bundled "Access"
# example into out/demo, then shows the import file and the audit trail. Also builds the
# desktop window, corvane-desktop, and says how to open it over the demo's settings.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh --gui
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCORVANE_GUI=ON >/dev/null
ninja -C build corvane corvane-desktop

rm -rf out/demo
mkdir -p out/demo
today=$(date +%Y-%m-%d)
build/corvane run --settings-dir out/demo/settings --today "$today" --format "Access" \
  --company 123 --end-date "$(date +%m/%d/%Y)" --input examples/access.csv --output out/demo \
  --transcript out/demo/run.jsonl --save-screen
echo
echo "== out/demo/123_ta.txt"
cat out/demo/123_ta.txt
echo "== out/demo/Corvane_Audit_123.txt"
cat out/demo/Corvane_Audit_123.txt
echo
echo "== the window over the same settings (needs a display):"
echo "   build/gui/corvane-desktop --settings-dir out/demo/settings"
