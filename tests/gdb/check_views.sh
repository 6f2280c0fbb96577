#!/bin/bash
# Compares what gdb shows of the library's objects with what it should: check_views.sh PROGRAM SOURCE-FOLDER
# With IPC2581_UPDATE_GOLDEN in the environment it writes what gdb shows. Ends with 77 where gdb cannot be used.
set -euo pipefail
program=$1
source=$2
expected=$source/tests/gdb/views.txt

if ! command -v gdb >/dev/null; then
    echo "gdb is missing (Debian package gdb)"
    exit 77
fi

commands=()
for expression in empty inside longest onHeap withZero texts noTexts points component layers shapes \
    'nets.m_pData[0]->Name' '*nets.m_pData[1]' 'items.m_pData[4]->description'; do
    commands+=(-ex "echo $expression:\\040" -ex "output $expression" -ex 'echo \n')
done
shown=$(gdb -batch -nx -iex 'set debuginfod enabled off' -ex 'set confirm off' -ex 'set width 0' \
    -ex "source $source/tools/gdb/ipc2581.py" -ex 'break Stop' -ex run -ex up \
    -ex 'echo \n--\n' "${commands[@]}" -ex 'kill' "$program" 2>&1 </dev/null || true)

if [[ $shown == *"Could not trace the inferior"* || $shown == *"ptrace: Operation not permitted"* ]]; then
    echo "no process may be traced here"
    exit 77
fi
views=$(sed -n '/^--$/,$p' <<<"$shown" | sed -e 1d -e '/^\[Inferior .* killed\]$/d')
if [[ -z $views ]]; then
    echo "$shown"
    exit 1
fi
if [[ -n ${IPC2581_UPDATE_GOLDEN:-} ]]; then
    echo "$views" >"$expected"
fi
diff -u "$expected" - <<<"$views"
