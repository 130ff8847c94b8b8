#!/usr/bin/env bash
# Line coverage of planor_core over the whole test suite.
# Usage (from the repo root): scripts/abdeckung.sh [BUILD_DIR]   (default build-abdeckung)
# Uses its own instrumented Debug build so that the normal build/ stays fast and
# every line is counted where it was written (no inlining, no folded branches).
set -euo pipefail
cd "$(git rev-parse --show-toplevel)"
bau=${1:-build-abdeckung}

# Instrumented objects carry their tree's absolute paths (.gcno, .gcda); a cache
# hit from another checkout would count lines there, so hash the full paths.
unset CCACHE_BASEDIR CCACHE_NOHASHDIR
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S . -B "$bau" -G Ninja -DCMAKE_BUILD_TYPE=Debug "${launcher[@]}" \
  -DCMAKE_CXX_FLAGS="--coverage -O0" -DCMAKE_EXE_LINKER_FLAGS="--coverage" >/dev/null
cmake --build "$bau" -j2

# Counters from an earlier run would add up with this one.
find "$bau" -name '*.gcda' -delete
# Benchmarks only measure time; everything else runs, GUI tests offscreen.
(cd "$bau" && QT_QPA_PLATFORM=offscreen ctest -j2 --timeout 300 -E '^bench_' --output-on-failure \
   >ctest-abdeckung.log 2>&1) || echo "Achtung: nicht alle Tests grün, siehe $bau/ctest-abdeckung.log"
tail -n 3 "$bau/ctest-abdeckung.log"

# planor_core's own sources: the folders its compile commands come from, without
# ui/ (that is planor_gui) and without generated files in the build dir.
python3 - "$bau" <<'PY'
import json, os, re, subprocess, sys
bau = sys.argv[1]
root = os.getcwd()
bau_rel = os.path.relpath(os.path.abspath(bau), root)
ordner = set()
for e in json.load(open(os.path.join(bau, "compile_commands.json"))):
    if "/planor_core.dir/" not in e.get("output", "") + e["command"]:
        continue
    rel = os.path.relpath(e["file"], root)
    if rel.startswith("..") or rel.startswith(bau_rel + "/") or "/ui/" in rel:
        continue
    ordner.add(os.path.dirname(rel))
muster = re.escape(root) + "/(" + "|".join(sorted(map(re.escape, ordner))) + r")/[^/]+\.(cpp|h)$"
summary = os.path.join(bau, "abdeckung.json")
# CMake's compiler probe leaves a .gcno without sources; skip it.
subprocess.run(["gcovr", "-r", root, "--object-directory", bau, "-j", "2",
                "--exclude-directories", re.escape(os.path.join(root, bau)) + "/CMakeFiles/[0-9.]+",
                "--filter", muster, "--json-summary", summary],
               check=True, stdout=subprocess.DEVNULL)
je = {}
for f in json.load(open(summary))["files"]:
    d = f["filename"].split("/")[0]
    c, t = je.get(d, (0, 0))
    je[d] = (c + f["line_covered"], t + f["line_total"])
cov = sum(c for c, _ in je.values()); tot = sum(t for _, t in je.values())
print(f"\n{'Ordner':<12}{'Zeilen':>8}{'gedeckt':>9}{'%':>8}")
for d in sorted(je):
    c, t = je[d]
    print(f"{d:<12}{t:>8}{c:>9}{100*c/t:>7.1f} %")
print(f"\nplanor_core Zeilenabdeckung: {100*cov/tot:.1f} % ({cov}/{tot})")
PY
