#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, when they are missing.
# Usage: scripts/install-deps.sh [--gui | --fuzz]
set -euo pipefail

packages=(g++ cmake ninja-build pkg-config clang-format
  libgtest-dev libgmock-dev libbenchmark-dev
  libfmt-dev libcli11-dev nlohmann-json3-dev
  libfreexl-dev libzip-dev libexpat1-dev)
case "${1:-}" in
  --gui) packages+=(qt6-base-dev xvfb xauth) ;;
  --fuzz) packages+=(clang libclang-rt-14-dev) ;;
esac

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if ((${#missing[@]})); then
  echo "Installing: ${missing[*]}"
  sudo=""
  [[ $(id -u) -ne 0 ]] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
