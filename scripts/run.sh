#!/usr/bin/env bash
# Sets up, builds and starts Planor.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/build.sh
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "Planor braucht eine grafische Oberfläche (DISPLAY ist nicht gesetzt)." >&2
  echo "Ohne Bildschirm: xvfb-run -a build/bin/planor, oder build/bin/planor-cli --help" >&2
  exit 1
fi
exec build/bin/planor "$@"
