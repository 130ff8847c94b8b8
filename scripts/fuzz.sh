#!/usr/bin/env bash
# Fuzzes the file readers (project file, module value files, element
# catalogue) with libFuzzer, ASan and UBSan for a bounded time.
#   scripts/fuzz.sh [SECONDS] [further libFuzzer options]
# SECONDS defaults to 60. Builds with clang in build-fuzz/ (the normal gcc
# build in build/ is not touched). The corpus grows in build-fuzz/corpus
# across runs; a finding is written to build-fuzz/funde/ and ends the run
# with a non-zero status. Re-run one finding:
#   build-fuzz/bin/planor-fuzz-dateien build-fuzz/funde/crash-...
set -euo pipefail
cd "$(dirname "$0")/.."

sekunden="${1:-60}"
shift || true

# clang and the compiler runtime with libFuzzer, quietly and only when missing.
./scripts/setup.sh clang libclang-rt-14-dev

# The project's code gets the sanitizers and libFuzzer's coverage hooks; the
# fuzz target alone links libFuzzer's main (tests/fuzz/CMakeLists.txt).
# Warnings are not errors here: clang warns where gcc does not, and the gcc
# build stays the one that keeps the code warning-free.
bau=build-fuzz
CC=clang CXX=clang++ cmake -S . -B "$bau" -G Ninja -DPLANOR_FUZZ=ON -DPLANOR_WERROR=OFF \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_FLAGS="-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer" \
  >/dev/null
cmake --build "$bau" --target planor-fuzz-dateien

# Seed corpus: the golden files, each behind the byte that picks its reader
# (0 and 1: module value file with 128 and 460 values, 2: project file,
# 3: catalogue). Written anew each run; what the fuzzer found stays beside them.
korpus="$bau/corpus"
funde="$bau/funde"
mkdir -p "$korpus" "$funde"
saat() {  # selector file
  local name
  name="saat-$1-$(basename "$2")"
  { printf "\\x$1"; cat "$2"; } >"$korpus/$name"
}
for f in tests/data/*.lcv tests/data/projekt/*.lcv; do
  saat 00 "$f"
  saat 01 "$f"
done
for f in tests/data/projekt/*.anl; do saat 02 "$f"; done
saat 03 data/KT_Conf/Elemente.cfg
saat 03 tests/data/Elemente_test.cfg

# Leaks are not looked for: Qt keeps some allocations to the end on purpose.
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=0}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
exec "$bau/bin/planor-fuzz-dateien" "$korpus" \
  -max_total_time="$sekunden" -timeout=10 -rss_limit_mb=2048 -max_len=16384 \
  -dict=tests/fuzz/dateien.dict -artifact_prefix="$funde/" -print_final_stats=1 "$@"
