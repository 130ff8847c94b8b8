#!/usr/bin/env bash
# Sets up, builds and starts Planor on the demo project.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/build.sh
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "Planor braucht eine grafische Oberfläche (DISPLAY ist nicht gesetzt)." >&2
  echo "Ohne Bildschirm: xvfb-run -a build/bin/planor, oder build/bin/planor-cli --help" >&2
  exit 1
fi

# The first run works on a copy of the demo project, so that the committed
# one stays as it is, and on the built-in simulated layout
# ("Verbindungsart: 2"); Planor opens the project last used at every start.
if [ ! -f build/bin/Planor.CFG ]; then
  mkdir -p build/demo
  cp data/demo/*.anl data/demo/*.lcv build/demo/
  printf 'Pfad:%s/\r\nFile:Demo.anl\r\nVerbindungsart: 2\r\n' "$(pwd)/build/demo" > build/bin/Planor.CFG
fi
exec build/bin/planor "$@"
