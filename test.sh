#!/bin/bash
# Builds everything with warnings as errors and runs all tests: ./test.sh
set -euo pipefail
cd "$(dirname "$0")"

tools/install-packages programs python tests

cmake --preset dev
cmake --build --preset dev -j "$(nproc)"
ctest --preset dev -j "$(nproc)"

# Each with its reason in the line behind it.
grep -h -A1 ': Skipped$' build/dev/Testing/Temporary/LastTest.log || true
