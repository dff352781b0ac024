#!/usr/bin/env bash
# The data-set editor against sed and cp on files of about 1 GB, in one run on one disk.
#   bench/data_set.sh [QORGEN] [MEGABYTES]
# Prints wall seconds of a replacement by qorgen, of one plain replacement by sed, and of cp, and the peak memory of qorgen.
set -euo pipefail
cd "$(dirname "$0")/.."
qorgen=$(realpath "${1:-build/release/qorgen}")
megabytes=${2:-1024}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# One transaction of ten records; the file is this, over and over.
session_block() {
    printf '%40s0000TMM01\r\n' ''
    for i in 1 2 3 4 5 6 7 8 9; do
        printf '%40s0000 %-132s%-60s\r\n' '' "RMMG1-FIELD$i" "value of field $i"
    done
}
table_block() {
    for i in 1 2 3 4 5 6 7 8 9 10; do
        printf '   00000000010000000007%010d%23s001   %-10s%-200s\r\n' "$i" '' "MAT$i" "text of record $i"
    done
}
make_file() { # file, head, block
    local block="$work/block"
    "$3" > "$block"
    while [ "$(stat -c %s "$block")" -lt $((8 << 20)) ]; do
        cat "$block" "$block" > "$block.2"
        mv "$block.2" "$block"
    done
    "$2" > "$1"
    while [ "$(stat -c %s "$1")" -lt $((megabytes << 20)) ]; do cat "$block" >> "$1"; done
    rm "$block"
}
session_head() { printf '%40s0000MQOR_BENCH\r\n' ''; }
table_head() {
    printf '   00000000010000000000%010d%29s%05d MATNR\r\n' 1 '' 10
    printf '   00000000010000000000%010d%29s%05d MAKTX\r\n' 1 '' 200
}
seconds() { # name, command...
    local name=$1 start end
    shift
    start=$(date +%s.%N)
    "$@" > /dev/null 2>&1
    end=$(date +%s.%N)
    printf '%-28s %6.2f s\n' "$name" "$(echo "$end - $start" | bc)"
}
peak() { /usr/bin/time -f '%M kB' "$@" 2>&1 > /dev/null | tail -1; }

run() { # kind, field, old, new
    local file="$work/$1.txt"
    echo "$1: $(stat -c %s "$file") bytes"
    cat "$file" > /dev/null
    seconds "  cp" cp "$file" "$work/copy"
    rm "$work/copy"
    seconds "  sed, one replacement" sed "s/$3/$4/" "$file"
    seconds "  sed, into a file" sh -c "sed 's/$3/$4/' '$file' > '$work/sed.out' && sync '$work/sed.out'"
    rm -f "$work/sed.out"
    seconds "  qorgen, listing" "$qorgen" dataset "$file"
    if [ -x /usr/bin/time ]; then echo "  qorgen, peak memory          $(peak "$qorgen" dataset "$file" --field "$2" --new "$4" --part "$3")"; fi
    seconds "  qorgen, one replacement" "$qorgen" dataset "$file" --field "$2" --new "$4" --part "$3" --yes
}

make_file "$work/session.txt" session_head session_block
run session RMMG1-FIELD5 "field 5" "FIELD FIVE"
rm "$work/session.txt"
make_file "$work/table.txt" table_head table_block
run table MAKTX "record 7" "RECORD SEVEN"
