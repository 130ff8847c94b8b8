#!/bin/sh
# The layer order of the sources: a file may include files of its own layer
# and of the layers below it, never of one above. Run by CTest; prints each
# upward include and exits 1 when there is one.
#   1 base    numbers, bounded arrays, run-time errors, error report, clock
#   2 model   project records and files, settings, catalogue
#   3 loconet framing, messages, exchanges, transports
#   4 sim     the simulator
#   5 logic   editor, configuration, programming, stations, routes, universal controller
#   6 gui     windows and dialogs (every ui/ folder)
#   7 app     the programs
# Usage: scripts/schichten.sh [SOURCE_DIR]
cd "${1:-$(dirname "$0")/..}" || exit 2

schicht() {
  case "$1" in
    */ui/*) echo 6 ;;
    app/*) echo 7 ;;
    core/vb_zahlen.* | core/feld.h | core/laufzeitfehler.* | core/fehlerbehandlung.* | core/ansi_text.* | \
    core/check_wert.* | core/programmordner.* | core/version.* | platform/uhr.*) echo 1 ;;
    core/*) echo 2 ;;
    platform/sim* | platform/simulator*) echo 4 ;;
    loconet/* | platform/*) echo 3 ;;
    editor/* | config/* | programmierung/* | station/* | universal/* | routes/*) echo 5 ;;
    *) echo 0 ;;
  esac
}

fehler=0
for datei in $(find core config editor loconet platform programmierung station universal routes app \
                 \( -name '*.cpp' -o -name '*.h' \) 2>/dev/null | sort); do
  eigene=$(schicht "$datei")
  for inc in $(sed -n 's/^#include "\([^"]*\)".*/\1/p' "$datei"); do
    andere=$(schicht "$inc")
    [ "$andere" -le "$eigene" ] && continue
    echo "Schicht $eigene bindet Schicht $andere ein: $datei -> $inc"
    fehler=1
  done
done
exit $fehler
