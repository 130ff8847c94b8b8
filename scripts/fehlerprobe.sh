#!/usr/bin/env bash
# Plants known faults into the program one at a time, rebuilds, runs the test
# suite and reports whether it turned red. A suite that stays green on one of
# them has lost a test that mattered.
# Usage (from the repo root): scripts/fehlerprobe.sh [BUILD_DIR]   (default build)
# Exit 0: every fault caught; 1: at least one went unnoticed; 2: a fault could not be planted.
set -uo pipefail
cd "$(git rev-parse --show-toplevel)"
bau=${1:-build}

namen=(); dateien=(); alt=(); neu=()
fehler() { namen+=("$1"); dateien+=("$2"); alt+=("$3"); neu+=("$4"); }

# Each fault is one exact substitution in code (never in a comment), so the
# patterns survive reworded comments and fail loudly when the code moved.
fehler "a  PXCT-Bit im LNCV-Schreibbefehl gekippt" loconet/nachricht.cpp \
  'return LNCV_Nachricht(OPC_IMM_PACKET, LNCV_SCHREIBEN, artikel, lncv, Int_to_Unsig(wert), 0);' \
  'QByteArray p = LNCV_Nachricht(OPC_IMM_PACKET, LNCV_SCHREIBEN, artikel, lncv, Int_to_Unsig(wert), 0); p[6] = char(p[6] ^ 0x10); return p;'
fehler "b  Prog_On ein Versuch weniger" loconet/lncv_austausch.cpp \
  'if (versuch == Prog_On_Versuche) {' \
  'if (versuch == Prog_On_Versuche - 1) {'
fehler "c  47230 endet bei LNCV 119" programmierung/programmierung.cpp \
  $'    case 47230:\n        return 127;\n' \
  $'        return 127;\n    case 47230:\n'
fehler "d  .lcv mit LF statt CR LF" core/lncv_datei.cpp \
  'return datei.bytes();' \
  'return QByteArray(datei.bytes()).replace("\r\n", "\n");'
fehler "e  Save_plt ohne erste Seitendatei" core/project_file_schreiben.cpp \
  'schreibeDatei(anlage.Pfad + seite.name, seite.bytes);' \
  'if (&seite != &projekt.seitendateien.front()) schreibeDatei(anlage.Pfad + seite.name, seite.bytes);'
fehler "f1 Monitor: Weiche rot/grün vertauscht" loconet/monitor_text.cpp \
  '(bit(b[2], 5) ? QStringLiteral(" - grün ") : QStringLiteral(" - rot "))' \
  '(bit(b[2], 5) ? QStringLiteral(" - rot ") : QStringLiteral(" - grün "))'
fehler "f2 Monitor: Antwort rot/grün vertauscht" loconet/monitor_text.cpp \
  'return bit(b, 5) ? QStringLiteral("grün") : QStringLiteral("rot");' \
  'return bit(b, 5) ? QStringLiteral("rot") : QStringLiteral("grün");'

# ersetze FILE OLD NEW [--nur-pruefen]: exactly one hit, or nothing is touched.
ersetze() {
  python3 - "$@" <<'PY'
import sys
datei, alt, neu = sys.argv[1:4]
text = open(datei, encoding="utf-8").read()
n = text.count(alt)
if n != 1:
    sys.exit(f"Muster {n}-mal statt genau einmal in {datei}: {alt!r}")
if "--nur-pruefen" not in sys.argv:
    open(datei, "w", encoding="utf-8").write(text.replace(alt, neu))
PY
}

betroffen=($(printf '%s\n' "${dateien[@]}" | sort -u))
# The files are restored from our own copy; uncommitted work in them would be
# mixed into the results, so refuse instead of guessing.
if ! git diff --quiet HEAD -- "${betroffen[@]}"; then
  echo "Abbruch: nicht eingecheckte Änderungen in: $(git diff --name-only HEAD -- "${betroffen[@]}" | tr '\n' ' ')" >&2
  exit 2
fi
for i in "${!namen[@]}"; do
  ersetze "${dateien[$i]}" "${alt[$i]}" "${neu[$i]}" --nur-pruefen || exit 2
done

kopie=$(mktemp -d)
for f in "${betroffen[@]}"; do mkdir -p "$kopie/$(dirname "$f")"; cp "$f" "$kopie/$f"; done
wiederherstellen() {
  # Plain cp (new mtime) so the next build recompiles the restored file.
  for f in "${betroffen[@]}"; do cmp -s "$kopie/$f" "$f" || cp "$kopie/$f" "$f"; done
  if git diff --quiet HEAD -- "${betroffen[@]}"; then rm -rf "$kopie"
  else echo "WARNUNG: Baum nicht sauber, Originale liegen in $kopie" >&2; fi
}
trap wiederherstellen EXIT
trap 'exit 130' INT TERM

if [ ! -f "$bau/CMakeCache.txt" ]; then
  launcher=(); command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  cmake -S . -B "$bau" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${launcher[@]}" -DPLANOR_WERROR=ON >/dev/null || exit 2
fi

# lauf LOG: builds and runs the suite (benchmarks only measure time); failed test names into LOG.rot.
lauf() {
  cmake --build "$bau" -j2 >"$1.bau" 2>&1 || return 3
  (cd "$bau" && QT_QPA_PLATFORM=offscreen ctest -j2 --timeout 300 -E '^bench_' >"$1" 2>&1)
  # Only ctest's FAILED list: its "did not run" list names skipped tests the same way.
  awk '/tests FAILED:/ {f = 1; next}
       f && sub(/^[[:space:]]*[0-9]+ - /, "") {sub(/ \([^)]*\)$/, ""); sub(/[[:space:]]+# GetParam.*/, ""); print; next}
       {f = 0}' "$1" | sort -u >"$1.rot"
}

logs=$(mktemp -d)
echo "Ohne Fehler: Bau und Suite ..."
lauf "$logs/basis" || { echo "Der saubere Baum baut nicht, siehe $logs/basis.bau" >&2; exit 2; }
if [ -s "$logs/basis.rot" ]; then
  # Tests already red (flaky under load) say nothing about a planted fault.
  echo "Achtung: ohne Fehler schon rot, diese zählen nicht: $(tr '\n' ' ' <"$logs/basis.rot")"
fi

ergebnis=0; zeilen=()
for i in "${!namen[@]}"; do
  start=$SECONDS
  echo "Pflanze ${namen[$i]} ..."
  ersetze "${dateien[$i]}" "${alt[$i]}" "${neu[$i]}" || exit 2
  lauf "$logs/$i"; rc=$?
  cp "$kopie/${dateien[$i]}" "${dateien[$i]}"
  if [ $rc -eq 3 ]; then
    zeilen+=("${namen[$i]}|BAU KAPUTT — Fehler nicht gepflanzt ($logs/$i.bau)"); ergebnis=2; continue
  fi
  neu_rot=$(comm -23 "$logs/$i.rot" "$logs/basis.rot")
  n=$(printf '%s' "$neu_rot" | grep -c .)
  if [ "$n" -gt 0 ]; then
    zeilen+=("${namen[$i]}|rot ($n Tests): $(printf '%s\n' "$neu_rot" | head -3 | paste -sd, | sed 's/,/, /g')")
  else
    zeilen+=("${namen[$i]}|GRÜN — nicht erkannt"); [ $ergebnis -eq 0 ] && ergebnis=1
  fi
  echo "  fertig in $((SECONDS - start)) s"
done

# Leave the build dir matching the clean sources again.
cmake --build "$bau" -j2 >/dev/null 2>&1
[ $ergebnis -ne 2 ] && rm -rf "$logs"
printf '\n%-42s | %s\n' "Fehler" "Suite"
printf '%s\n' "${zeilen[@]}" | while IFS='|' read -r name wert; do printf '%-42s | %s\n' "$name" "$wert"; done
exit $ergebnis
