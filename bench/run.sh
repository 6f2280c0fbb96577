#!/bin/sh
# Builds for release and measures the library against its goals: bench/run.sh [--quick] [--rounds N]
set -eu

source=$(cd "$(dirname "$0")/.." && pwd)
build=${IPC2581_BENCH_BUILD:-$source/build-bench}

"$source/tools/install-packages" programs bench
cmake -S "$source" -B "$build" -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF \
    -DIPC2581_BUILD_BENCH=ON -DIPC2581_BUILD_IMPORT=ON >/dev/null
cmake --build "$build" --parallel 2 \
    --target ipc2581_generate library_read import_read typed_walk pugixml_load fprintf_write \
    >/dev/null
exec python3 "$source/bench/goals.py" "$@" "$build"
