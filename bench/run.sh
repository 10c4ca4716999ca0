#!/usr/bin/env bash
# Times the translation of large exports and prints one figure a line as name=value, also
# written to bench/results.txt.
#
#   bench/run.sh [RECORDS]        (default 1000000)
#
# Figures, each the best of three runs unless said otherwise:
#   <fmt>_seconds           corvane run on RECORDS records of the format
#   <fmt>_floor_seconds     reading the same export with cat and writing as many bytes as the
#                           run wrote
#   <fmt>_floor_ratio       floor / corvane: the share of the I/O floor's speed reached
#   <fmt>_peak_rss_kb       the run's peak resident memory
#   access_mlr_ratio        Miller's time / corvane's on the same reshape of the Access export
#   access_gawk_ratio       gawk's time / corvane's on the same reshape
#   access_500_ms           a 500-employee Access export end to end (median of 30 runs)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
records=${1:-1000000}

packages=(miller gawk time)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if ((${#missing[@]})); then
  sudo=""
  [[ $(id -u) -ne 0 ]] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
bash scripts/install-deps.sh

build=build-release
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCORVANE_TESTS=OFF \
  -DCORVANE_BENCH=ON >/dev/null
ninja -C "$build" corvane corvane_bench_gen >/dev/null

work=$(mktemp -d /tmp/corvane-bench-XXXXXX)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/settings" "$work/out"
results=()

figure() {
  results+=("$1=$2")
  echo "$1=$2"
}

# The shell's own clock, in microseconds: reading it starts no process.
# best of three wall-clock runs of a command, in seconds
best_of_three() {
  local best="" start end took
  for _ in 1 2 3; do
    rm -rf "$work/out" && mkdir -p "$work/out"
    start=${EPOCHREALTIME/./}
    "$@" >/dev/null 2>&1
    end=${EPOCHREALTIME/./}
    took=$((end - start))
    if [[ -z $best || $took -lt $best ]]; then best=$took; fi
  done
  awk -v us="$best" 'BEGIN { printf "%.3f", us / 1e6 }'
}

corvane_run() {
  local format=$1 input=$2
  "$build/corvane" run --settings-dir "$work/settings" --today 2026-11-22 --format "$format" \
    --company 123 --end-date 11/20/2026 --input "$input" --output "$work/out"
}

floor_run() {
  local input=$1 bytes=$2
  cat "$input" >/dev/null
  head -c "$bytes" /dev/zero >"$work/floor.out"
}

ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

for spec in "access:Access:csv" "adp_extpaydt:ADP (extpaydt):txt" "aloha_v6542:Aloha v6.5.42:csv" \
  "adp_csv:ADP.csv:csv" "timeclock_plus:Timeclock Plus:csv"; do
  IFS=: read -r name format ext <<<"$spec"
  input="$work/$name.$ext"
  "$build/corvane_bench_gen" "$format" "$records" 42 >"$input"
  seconds=$(best_of_three corvane_run "$format" "$input")
  written=$(cat "$work/out"/* | wc -c)  # what the last timed run wrote
  floor=$(best_of_three floor_run "$input" "$written")
  figure "${name}_seconds" "$seconds"
  figure "${name}_floor_seconds" "$floor"
  figure "${name}_floor_ratio" "$(ratio "$floor" "$seconds")"
  rm -rf "$work/out" && mkdir -p "$work/out"
  rss=$(/usr/bin/time -f '%M' "$build/corvane" run --settings-dir "$work/settings" \
    --today 2026-11-22 --format "$format" --company 123 --end-date 11/20/2026 \
    --input "$input" --output "$work/out" 2>&1 >/dev/null | tail -n 1)
  figure "${name}_peak_rss_kb" "$rss"
done

# The same reshape of the Access export by general tools: one line per category above zero,
# the 29 fields of the import line, in the translator's order of categories.
access="$work/access.csv"
cat >"$work/reshape.awk" <<'EOF'
BEGIN { FS = ","; n = split("6:2:h 7:3:h 4:4:d 8:5:h 9:10:h 10:6:d 13:7:d 14:8:d 15:7:d", cat, " ") }
NR == 1 { next }
{
  emp = $3; gsub(/^ +| +$/, "", emp)
  if (emp == "") next
  for (i = 1; i <= n; i++) {
    split(cat[i], c, ":")
    v = $(c[1]); gsub(/\$/, "", v)
    if (v ~ /^ *-?[0-9]*\.?[0-9]+ *$/ && v + 0 > 0) {
      if (c[3] == "h") printf "\"%s\",\"\",,,,E,%s,,%s,,,,,,,1,,,,,,,,,,,,,\r\n", emp, c[2], v + 0
      else printf "\"%s\",\"\",,,,E,%s,,,,,,,,%s,1,,,,,,,,,,,,,\r\n", emp, c[2], v
    }
  }
}
EOF
gawk_reshape() { gawk -f "$work/reshape.awk" "$access" >"$work/gawk.out"; }
mlr_reshape() {
  mlr --icsv --implicit-csv-header --allow-ragged-csv-input --onidx put -q '
    if (NR > 1 && strip(string($[[[3]]])) != "") {
      emp = strip(string($[[[3]]]));
      for (spec in ["6:2:h", "7:3:h", "4:4:d", "8:5:h", "9:10:h", "10:6:d", "13:7:d", "14:8:d", "15:7:d"]) {
        c = splitax(spec, ":");
        v = gssub(string($[[[int(c[1])]]]), "$", "");
        n = float(v);
        if (is_numeric(n) && n > 0) {
          if (c[3] == "h") {
            print "\"" . emp . "\",\"\",,,,E," . c[2] . ",," . n . ",,,,,,,1,,,,,,,,,,,,,";
          } else {
            print "\"" . emp . "\",\"\",,,,E," . c[2] . ",,,,,,,," . v . ",1,,,,,,,,,,,,,";
          }
        }
      }
    }' "$access" >"$work/mlr.out"
}
access_seconds=$(best_of_three corvane_run Access "$access")
access_lines=$(wc -l <"$work/out/123_ta.txt")
gawk_seconds=$(best_of_three gawk_reshape)
mlr_seconds=$(best_of_three mlr_reshape)
figure access_gawk_seconds "$gawk_seconds"
figure access_mlr_seconds "$mlr_seconds"
figure access_gawk_ratio "$(ratio "$gawk_seconds" "$access_seconds")"
figure access_mlr_ratio "$(ratio "$mlr_seconds" "$access_seconds")"
figure access_reshape_lines "$(wc -l <"$work/gawk.out")/$(wc -l <"$work/mlr.out")/$access_lines"

# A bureau's ordinary export: 500 employees, process start to report.
small="$work/access500.csv"
"$build/corvane_bench_gen" Access 500 7 >"$small"
times=()
for _ in $(seq 30); do
  rm -rf "$work/out" && mkdir -p "$work/out"
  start=${EPOCHREALTIME/./}
  corvane_run Access "$small" >/dev/null 2>&1
  end=${EPOCHREALTIME/./}
  times+=($((end - start)))
done
median=$(printf '%s\n' "${times[@]}" | sort -n | sed -n 15p)
figure access_500_ms "$(awk -v us="$median" 'BEGIN { printf "%.1f", us / 1e3 }')"

{
  echo "# $(date -u +%Y-%m-%dT%H:%MZ) $(nproc) cores, $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2 | sed 's/^ //')"
  echo "records=$records"
  printf '%s\n' "${results[@]}"
} >"$root/bench/results.txt"
