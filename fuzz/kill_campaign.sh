#!/usr/bin/env bash
# Kills the commands of qorgen that replace a file, at random moments, and looks what is left: the old file or the new one must be
# there, whole, and no other file be touched.
#   fuzz/kill_campaign.sh [QORGEN] [KILLS] [FILE...]
# With FILEs only the commands that write one of these: out.txt, a.qor, b.qor, narrow.qor, session.txt.
# A work file is left only where a kill falls between its naming and the rename; such files are counted. Status 1 when a file is
# damaged.
set -uo pipefail
cd "$(dirname "$0")/.."
qorgen=$(realpath "${1:-build/release/qorgen}")
kills=${2:-1000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export SOURCE_DATE_EPOCH=1100000000
inputs="$work/inputs"
new="$work/new"
place="$work/place"
mkdir "$inputs" "$new" "$place"

# Each command with the file that it writes.
commands=(
    "out.txt generate a.qor -o out.txt"
    "out.txt print a.qor -o out.txt"
    "out.txt widths a.qor --export out.txt"
    "b.qor convert a.qor -o b.qor"
    "a.qor source a.qor --model open-sql"
    "a.qor import a.qor recording.txt --replace --close-gaps"
    "narrow.qor widths narrow.qor --import widths.txt"
    "a.qor bapi --catalogue catalogue insert a.qor BAPI_X"
    "session.txt dataset session.txt --field RMMG1-MBRSH --new X --once"
)

make_inputs() {
    cp examples/mm01/materials.qor "$inputs/a.qor"
    sed 's/^1,"MATNR","[0-9]*"/1,"MATNR",""/' examples/mm01/materials.qor > "$inputs/narrow.qor"
    printf '%-30s%-30s%-30s%06d\r\n' MARA MATNR MATNR 18 > "$inputs/widths.txt"
    cp examples/fb01/postings.qor "$inputs/b.qor"
    cp examples/recording/zmmrec.txt "$inputs/recording.txt"
    printf 'BAPIDEFS\r\n0 46C\r\n1 Material\r\n2 BAPI_X\r\n3 text\r\n' > "$inputs/catalogue"
    head -c 3000000 /dev/zero | tr '\0' 'x' > "$inputs/out.txt"
    for _ in $(seq 400); do cat examples/data-sets/session.txt; done > "$inputs/session.txt"
    chmod 640 "$inputs"/*
}

refresh() { # directory
    rm -rf "$1"
    cp -rp "$inputs" "$1"
}

# Runs a command in a directory; answers its pid.
start() { # directory, words of the command...
    cd "$1" || exit 1
    shift
    exec "$qorgen" --yes --settings . "$@" > /dev/null 2>&1
}

# A pause that starts no process of its own.
mkfifo "$work/pause"
exec 9<> "$work/pause"
pause() { # microseconds
    read -rt "$(printf '%d.%06d' $(($1 / 1000000)) $(($1 % 1000000)))" -u 9
}

make_inputs
only=("${@:3}")
if [ ${#only[@]} -gt 0 ]; then
    chosen=()
    for entry in "${commands[@]}"; do
        for file in "${only[@]}"; do [ "${entry%% *}" = "$file" ] && chosen+=("$entry"); done
    done
    commands=("${chosen[@]}")
fi
damaged=0
left=0
per_command=$(((kills + ${#commands[@]} - 1) / ${#commands[@]}))
for entry in "${commands[@]}"; do
    read -ra words <<< "$entry"
    target=${words[0]}
    micros=1000000
    for _ in 1 2 3; do
        refresh "$new"
        begin=${EPOCHREALTIME/./}
        (start "$new" "${words[@]:1}") || { echo "$entry: fails"; damaged=$((damaged + 1)); continue 2; }
        took=$((${EPOCHREALTIME/./} - begin))
        [ $took -lt $micros ] && micros=$took
    done
    cmp -s "$inputs/$target" "$new/$target" && { echo "$entry: changes nothing"; damaged=$((damaged + 1)); continue; }
    old_files=0
    new_files=0
    work_files=0
    for _ in $(seq "$per_command"); do
        refresh "$place"
        (start "$place" "${words[@]:1}") &
        pid=$!
        pause $((RANDOM * RANDOM % (micros + micros / 4)))
        kill -9 $pid 2> /dev/null
        wait $pid 2> /dev/null
        if cmp -s "$inputs/$target" "$place/$target"; then
            old_files=$((old_files + 1))
        elif cmp -s "$new/$target" "$place/$target"; then
            new_files=$((new_files + 1))
        else
            echo "$entry: $target is damaged"
            damaged=$((damaged + 1))
        fi
        [ "$(stat -c %a "$place/$target")" = 640 ] || { echo "$entry: other permissions"; damaged=$((damaged + 1)); }
        for file in "$place"/*; do
            name=$(basename "$file")
            if [ ! -e "$inputs/$name" ]; then
                work_files=$((work_files + 1))
            elif [ "$name" != "$target" ] && ! cmp -s "$inputs/$name" "$file"; then
                echo "$entry: $name is damaged"
                damaged=$((damaged + 1))
            fi
        done
    done
    left=$((left + work_files))
    printf '%-70s %4d old, %4d new, %d work files left\n' "$entry" "$old_files" "$new_files" "$work_files"
done
echo "$damaged damaged files, $left work files left"
[ "$damaged" = 0 ]
