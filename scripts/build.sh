#!/usr/bin/env bash
# Installs what is missing, configures and builds Planor into build/.
# Warnings are errors when CI is set (as CI runs do).
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/setup.sh
werror=OFF
[ -n "${CI:-}" ] && werror=ON
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE="${PLANOR_BUILD_TYPE:-RelWithDebInfo}" -DPLANOR_WERROR="$werror" >/dev/null
cmake --build build
