#!/bin/sh
# Compares reading and writing with loading by pugixml, each step in a process of its own.
set -eu

usage() {
    echo "usage: bench/run.sh [-n rounds] [-s size_mb] [-b build_folder] [board]" >&2
    exit 2
}

source=$(cd "$(dirname "$0")/.." && pwd)
build=$source/build-bench
rounds=5
size=50
while getopts n:s:b: option; do
    case $option in
    n) rounds=$OPTARG ;;
    s) size=$OPTARG ;;
    b) build=$OPTARG ;;
    *) usage ;;
    esac
done
shift $((OPTIND - 1))
[ $# -le 1 ] || usage

cmake -S "$source" -B "$build" -DCMAKE_BUILD_TYPE=Release -DIPC2581_BUILD_BENCH=ON >/dev/null
cmake --build "$build" --parallel 2 >/dev/null
peer=$build/bin/pugixml_load
if [ ! -x "$peer" ]; then
    peer=
    echo "pugixml was not found: no comparison" >&2
fi

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
board=$folder/board.xml
if [ $# -eq 1 ]; then
    # A copy, since the library opens what it reads for writing too.
    case $1 in
    *.zst) zstd -dqc "$1" >"$board" ;;
    *) cp "$1" "$board" && chmod u+w "$board" ;;
    esac
else
    "$build/bin/ipc2581_generate" "$size" 1 "$board"
fi

round=0
while [ "$round" -lt "$rounds" ]; do
    [ -z "$peer" ] || "$peer" "$board"
    "$build/bin/library_read" "$board" "$folder/written.xml"
    round=$((round + 1))
done >"$folder/results"

read_bytes=$(wc -c <"$board")
written_bytes=$(wc -c <"$folder/written.xml")
echo "$rounds rounds, $read_bytes bytes read, $written_bytes bytes written; medians"

# Prints the median of a column of the lines of one step.
median() {
    awk -v step="$1" -v column="$2" '$1 == step { print $column }' "$folder/results" | sort -n |
        awk '{ value[NR] = $1 } END { print (value[int((NR + 1) / 2)] + value[int(NR / 2) + 1]) / 2 }'
}

printf '%-14s %10s %10s %10s %12s %12s\n' step cpu_ms MB/s peak_MB time_ratio peak_ratio
if [ -n "$peer" ]; then
    peer_time=$(median load 2)
    peer_peak=$(median load 4)
    steps="load read write"
else
    peer_time=0
    peer_peak=0
    steps="read write"
fi
for step in $steps; do
    case $step in
    load) name=pugixml_load bytes=$read_bytes ;;
    read) name=library_read bytes=$read_bytes ;;
    write) name=library_write bytes=$written_bytes ;;
    esac
    awk -v name="$name" -v time="$(median "$step" 2)" -v peak="$(median "$step" 4)" -v bytes="$bytes" \
        -v peer_time="$peer_time" -v peer_peak="$peer_peak" '
        function ratio(value, peer) { return peer > 0 ? sprintf("%.2f", value / peer) : "-" }
        BEGIN {
            rate = time > 0 ? sprintf("%.1f", bytes / 1000 / time) : "-"
            printf "%-14s %10.1f %10s %10.1f %12s %12s\n", name, time, rate, peak,
                ratio(time, peer_time), ratio(peak, peer_peak)
        }'
done
