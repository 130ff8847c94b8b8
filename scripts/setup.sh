#!/usr/bin/env bash
# Installs what Planor needs to build, test and run on Debian 12, and any
# further packages named as arguments (scripts/fuzz.sh asks for clang).
# Idempotent: quiet when everything is already there.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  qt6-base-dev qt6-serialport-dev libqt6serialport6
  libgtest-dev
  xvfb xauth
  fonts-dejavu-core fonts-liberation2
  "$@"
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q '^install ok installed$'; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Planor: installiere ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Planor: root oder sudo nötig, um Pakete zu installieren" >&2; exit 1; }
  sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
