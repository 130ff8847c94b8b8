#!/usr/bin/env bash
# Sets up, builds and runs every test; ends with ctest's summary.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/build.sh
cd build
ctest --output-on-failure --timeout 300 "$@"
