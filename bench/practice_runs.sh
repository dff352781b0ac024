#!/usr/bin/env bash
# Reports of the examples on the practice system with many records, and the same reports transpiled to JavaScript on Node.
#   bench/practice_runs.sh [QORGEN] [THOUSANDS]
# THOUSANDS is the number of records of mm01 in thousands, 1000 without; the others have a tenth of it. Prints wall seconds, those of the
# processor, records per second and peak memory: of the whole process for qorgen, journal off; of the report alone, without its
# compilation, for Node. Ends with status 1 where a record costs the processor more than twice as much as one of a tenth of the records.
# Needs `npm ci` in tests/abap and tests/practice/transpiled; without it only qorgen runs.
set -euo pipefail
cd "$(dirname "$0")/.."
qorgen=$(realpath "${1:-build/release/qorgen}")
thousands=${2:-1000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

# Records like those of the examples, with numbers of their own.
make_inputs() { # directory, materials, orders
    mkdir -p "$1"
    LC_ALL=C awk -v n="$2" '{ sub(/\r$/, ""); line[NR - 1] = substr($0, 19) }
        END { for (i = 0; i < n; ++i) printf "M%-17d%s\n", i, line[i % NR] }' examples/mm01/materials.txt > "$1/materials"
    awk -v n="$3" -v to="$1" 'BEGIN {
        for (i = 0; i < n; ++i) {
            printf "PO-%-17dTA  10001000%010d\n", i, i % 5000 > (to "/orders")
            printf "PO-%-17dTA  1000100020041201\n", i > (to "/headers")
            for (k = 1; k < 4; ++k) printf "PO-%-17dM%-17d%-13dPC\n", i, k, k > (to "/items")
            for (k = 1; k < 4; ++k) printf "PO-%-17dM%-17d%-13d1000\n", i, k, k > (to "/lines")
            printf "PO-%-17dSP%010d\n", i, i % 5000 > (to "/partners")
        }
    }'
}

line() { # name, engine, records, wall seconds, seconds of the processor, kilobytes
    awk -v name="$1" -v engine="$2" -v n="$3" -v s="$4" -v cpu="$5" -v kb="$6" \
        'BEGIN { printf "%-6s%-8s%9d records %8.2f s %8.2f s CPU %9.0f records/s %7.0f MB\n", name, engine, n, s, cpu, n / s, kb / 1024 }'
}

# Sets `seconds`, `processor` and `kilobytes`, which stays 0 where the program `time` is missing.
measure() {
    if [ -x /usr/bin/time ]; then
        /usr/bin/time -o "$work/took" -f '%e %U %S %M' "$@" > "$work/out" 2> "$work/err"
    else
        local TIMEFORMAT='%R %U %S 0'
        { time "$@" > "$work/out" 2> "$work/err"; } 2> "$work/took"
    fi || { tail -n 3 "$work/out" "$work/err" >&2; return 1; }
    local user system
    read -r seconds user system kilobytes < "$work/took"
    processor=$(echo "$user + $system" | bc)
}

practise() { # name, document, records, what to run it with: parameter and kind of file, ...
    local name=$1 document=$2 records=$3 part
    shift 3
    local -A took
    for part in tenth whole; do
        local files=()
        for pair in "$@"; do files+=(--file "${pair%%=*}=$work/$part/${pair#*=}"); done
        measure "$qorgen" run "$document" "${files[@]}"
        local n=$records
        [ $part = whole ] || n=$((records / 10))
        grep -q "^$n records, $n posted, 0 failed" "$work/out" || { echo "$name: not $n records" >&2; failed=1; }
        line "$name" qorgen "$n" "$seconds" "$processor" "$kilobytes"
        took[$part]=$processor
    done
    if [ "$(echo "${took[whole]} > 20 * ${took[tenth]} && ${took[whole]} > 0.5" | bc)" = 1 ]; then
        echo "$name: the time of a record grows with their number" >&2
        failed=1
    fi
}

transpiled() { # name, document, records, what to run it with ...
    [ -d tests/practice/transpiled/node_modules ] && [ -d tests/abap/node_modules ] || return 0
    local name=$1 document=$2 records=$3 files=() pair
    shift 3
    "$qorgen" --yes generate "$document" -o "$work/$name.abap" > /dev/null 2>&1
    for pair in "$@"; do
        # As many orders as it can take, and their lines.
        local kind=${pair#*=} lines=$records
        case $kind in items | lines) lines=$((3 * records)) ;; esac
        head -n "$lines" "$work/whole/$kind" > "$work/$kind.part"
        files+=(--file "${pair%%=*}=$work/$kind.part")
    done
    local count took cpu
    read -r count took cpu kilobytes < <(node --max-old-space-size=8000 tests/practice/transpiled/run.mjs "$work/$name.abap" --measure "${files[@]}")
    line "$name" Node "$count" "$took" "$cpu" "$kilobytes"
}

materials=$((thousands * 1000))
orders=$((thousands * 100))
few=$((orders < 2000 ? orders : 2000))
make_inputs "$work/whole" $materials $orders
make_inputs "$work/tenth" $((materials / 10)) $((orders / 10))

run_both() { # name, document, records, records on Node, files ...
    practise "$1" "$2" "$3" "${@:5}"
    transpiled "$1" "$2" "$4" "${@:5}"
}
run_both mm01 examples/mm01/materials.qor $materials $materials FILE=materials
echo "Node compares each order with all lines, so it gets $few orders:"
run_both va01 examples/va01/orders.qor $orders $few FILE=orders SLOOP_1=items
run_both bapi examples/bapi-sales-order/orders.qor $orders $few FILE=headers SLOOP_1=lines SLOOP_2=partners
exit $failed
