#!/usr/bin/env bash
# The check of input files of about 1 GB against wc -l and awk splitting the same columns, in one run on one disk.
#   bench/input_check.sh [QORGEN] [MEGABYTES]
# Prints wall seconds and peak memory of each. Ends with status 1 where the check of a file without keys takes more than three times
# as long as the slower one of wc and awk, or 64 MB; or where it does not find the faults that the files have.
set -euo pipefail
cd "$(dirname "$0")/.."
qorgen=$(realpath "${1:-build/release/qorgen}")
megabytes=${2:-1024}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

cp examples/mm01/materials.qor examples/va01/orders.qor "$work"
export LC_ALL=C

# Materials as those of the example: clean ones, a few letters outside ASCII among them, over and over.
make_materials() { # file, line end
    awk -v end="$2" 'BEGIN {
        for (i = 0; i < 40000; ++i) {
            text = i % 50 == 7 ? "Geh\344use aus Messing" : "Centrifugal pump " i
            printf "%-18s%s%-4s%-40s%-3s%-9s%-17s%-3s%s", "M-" i, "M", "HAWA", text, "ST", "PUMPS", (i % 900) ",500", "KG", end
        }
    }' > "$work/block"
    : > "$1"
    while [ "$(stat -c %s "$1")" -lt $((megabytes << 20)) ]; do cat "$work/block" >> "$1"; done
    printf '%-18s%s%-4s%-40s%-3s%-9s%-17s%-3s too much%b' LAST M HAWA text ST PUMPS 1,000 KG "$2" >> "$1"
    rm "$work/block"
}

# Sets `seconds` and `kilobytes`, which stays 0 where the program `time` is missing.
measure() { # name, command...
    local name=$1 best=999999 i
    shift
    kilobytes=0
    for i in 1 2 3; do
        local start end
        start=$(date +%s.%N)
        if [ -x /usr/bin/time ]; then
            /usr/bin/time -o "$work/took" -f %M "$@" > "$work/out" 2> "$work/err" || true
            kilobytes=$(tail -n 1 "$work/took")
        else
            "$@" > "$work/out" 2> "$work/err" || true
        fi
        end=$(date +%s.%N)
        best=$(echo "$end - $start" | bc | awk -v best="$best" '{ print $1 < best ? $1 : best }')
    done
    seconds=$best
    printf '  %-34s %7.2f s %7.0f MB\n' "$name" "$seconds" "$(echo "$kilobytes / 1024" | bc)"
}
check() { # name, limit in seconds or "", expected errors, arguments of qorgen data check
    local name=$1 limit=$2 errors=$3
    shift 3
    measure "$name" "$qorgen" data check "$@"
    grep -q " $errors errors\?, " "$work/err" || { echo "$name: not $errors errors: $(tail -n 1 "$work/err")" >&2; failed=1; }
    [ -n "$limit" ] || return 0
    if [ "$(echo "$seconds > $limit" | bc)" = 1 ]; then echo "$name: slower than $limit s" >&2; failed=1; fi
    if [ "$kilobytes" -gt 65536 ]; then echo "$name: $kilobytes kB of memory" >&2; failed=1; fi
}

for end in '\n' '\r\n'; do
    file=$work/materials.txt
    make_materials "$file" "$end"
    echo "materials, fixed width, lines end with $end: $(stat -c %s "$file") bytes"
    cat "$file" > /dev/null
    measure "wc -l" wc -l "$file"
    slower=$seconds
    measure "awk, the same columns" awk '{
        a = substr($0, 1, 18); b = substr($0, 19, 1); c = substr($0, 20, 4); d = substr($0, 24, 40); e = substr($0, 64, 3)
        f = substr($0, 67, 9); g = substr($0, 76, 17); h = substr($0, 93, 3); n += length(a b c d e f g h)
    } END { print n }' "$file"
    [ "$(echo "$seconds > $slower" | bc)" = 0 ] || slower=$seconds
    limit=$(echo "3 * $slower" | bc)
    rm -f "$work/materials.checks"
    check "qorgen, no kinds" "$limit" 1 "$work/materials.qor" "$file"
    printf '%s\n' 'MATNR required' 'MATNR pattern [A-Z0-9-]+' 'BRGEW number ,' 'MTART list MTART.txt' > "$work/materials.checks"
    printf 'HAWA\nROH\n' > "$work/MTART.txt"
    check "qorgen, four kinds" "$limit" 1 "$work/materials.qor" "$file"
    rm "$file"
done

# A main record with three items each, joined by their keys: as much as fits into half the size.
orders=$((megabytes * 1024 * 1024 / 2 / 260))
awk -v n="$orders" -v to="$work" 'BEGIN {
    for (i = 0; i < n; ++i) {
        printf "PO-%-17dTA  1000100000000010%02d\n", i, i % 90 > (to "/orders.txt")
        for (k = 1; k < 4; ++k) printf "PO-%-17dPUMP-%-13d%-13dPC\n", i, k, k > (to "/items.txt")
    }
}'
echo "$orders orders and their items by keys: $(cat "$work"/{orders,items}.txt | wc -c) bytes"
check "qorgen, keys" "" 0 "$work/orders.qor" "$work/orders.txt" "$work/items.txt"
measure "qorgen data split" "$qorgen" data split "$work/orders.qor" "$work/orders.txt" "$work/items.txt" --good "$work/g1" --good \
    "$work/g2" --bad "$work/b1" --bad "$work/b2" --reasons "$work/r1" --reasons "$work/r2"
cmp "$work/orders.txt" "$work/g1" && cmp "$work/items.txt" "$work/g2" || failed=1
exit $failed
