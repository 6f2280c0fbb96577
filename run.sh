#!/bin/bash
# Builds the program and shows it at work on a board: ./run.sh [BOARD]
# BOARD is an IPC-2581 file, packed or not; without one it is the example board.
set -euo pipefail

root=$(cd "$(dirname "$0")" && pwd)
board=$(realpath "${1:-$root/examples/board.cvg}")
if [[ ! -r $board ]]; then
    echo "No such board: $board" >&2
    exit 1
fi
cd "$root"

tools/install-packages programs
cmake --preset release
cmake --build --preset release --target ipc2581_host -j "$(nproc)"
program=build/release/bin/ipc2581

name=$(basename "$board")
name=${name%.gz}
name=${name%.zst}
name=${name%.xz}
name=${name%.bz2}
output=out/${name%.*}-written.cvg
report=out/${name%.*}.txt
mkdir -p out

echo
echo "\$ $program info $board"
"$program" info "$board"
echo
echo "\$ $program convert --force $board $output"
"$program" convert --force "$board" "$output"
echo
echo "\$ $program report --force $board -o $report"
"$program" report --force "$board" -o "$report"
echo
echo "Read $board ($(wc -c <"$board") bytes), wrote it again to $root/$output ($(wc -c <"$output") bytes)," \
    "and its report to $root/$report ($(wc -l <"$report") lines)."
