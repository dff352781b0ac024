#!/usr/bin/env bash
# Whole runs of qorgen on a document of 1001 file rows, 1000 program rows and 1000 conditions: check, generate, convert.
#   bench/whole_process.sh [QORGEN] [RUNS]
# Prints the mean wall milliseconds of one process.
set -euo pipefail
cd "$(dirname "$0")/.."
qorgen=$(realpath "${1:-build/release/qorgen}")
runs=${2:-50}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

{
    for i in $(seq 0 1000); do printf '1,"FIELD%d","10","","","","","","",""\r\n' "$i"; done
    printf '2,"TRANS","VA01","","","","","","",""\r\n'
    for i in $(seq 1 999); do
        if [ $((i % 10)) -eq 1 ]; then
            printf '2,"SAPMV45A","%d","","","","","","",""\r\n' "$i"
        else
            printf '2,"","","VBAK-F%d;COND%d","FIELD%d","","","","",""\r\n' "$i" "$i" "$i"
        fi
    done
    printf '3,1,#FALSE#,0,1,0,"A","large.abap","in.txt",#TRUE#\r\n'
    for i in $(seq 0 999); do printf '6,"COND%d","IF #FIELD%d = SPACE.\r\nRESULT = YES.\r\nENDIF.","","","","","","",""\r\n' "$i" "$i"; done
} > "$work/large.qor"

mean() { # name, command...
    local name=$1 start end
    shift
    start=$(date +%s%N)
    for _ in $(seq "$runs"); do "$@" > /dev/null 2>&1; done
    end=$(date +%s%N)
    printf '%-10s %7.2f ms\n' "$name" "$(echo "($end - $start) / 1000000 / $runs" | bc -l)"
}

mean help "$qorgen" --help
mean check "$qorgen" check "$work/large.qor"
mean generate "$qorgen" generate "$work/large.qor" -o "$work/large.abap" --yes
mean convert "$qorgen" convert "$work/large.qor" -o "$work/copy.qor"
