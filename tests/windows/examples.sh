#!/usr/bin/env bash
# The commands of the examples, with the program of this machine and with the one for Windows: status, what is printed, and every file
# that is written have to be the same, byte for byte. Workbooks hold the time they were made, so they are compared by what is read
# back from them.
#   tests/windows/examples.sh QORGEN QORGEN.EXE PLACE
set -euo pipefail
cd "$(dirname "$0")/../.."

declare -A program=([here]=$(realpath "$1") [windows]=$(realpath "$2"))
wine=$PWD/cmake/wine.sh
rm -rf "$3"
mkdir -p "$3"
place=$(realpath "$3")

export SOURCE_DATE_EPOCH=1100000000
export XDG_CONFIG_HOME=$place/none

# Runs a command line of an example, and writes what came of it into `said`.
run_line() {
    local side=$1 words
    eval "words=($2)"
    local status=0
    echo "\$ $2" >>said
    case $side in
        here) "${program[here]}" --yes "${words[@]:1}" >out 2>err </dev/null || status=$? ;;
        windows) "$wine" "${program[windows]}" --yes "${words[@]:1}" >out 2>err </dev/null || status=$? ;;
    esac
    cat out err >>said
    rm out err
    echo "status $status" >>said
    commands=$((commands + 1))
}

# What each example is told to do, and what its input files, as its first run names them, are put through besides.
lines_of() {
    sed -n 's/^    qorgen /qorgen /p' "$1/README.md"
    local document inputs back parts rows input
    inputs=$(grep -m 1 '^    qorgen .*run ' "$1/README.md" | grep -o -E -e '--file [^ =]+=[^ ]+' | cut -d = -f 2 | tr '\n' ' ')
    for document in "$1"/*.qor; do
        [ -e "$document" ] || continue
        document=$(basename "$document")
        echo "qorgen check --all $document"
        echo "qorgen print $document -o print.txt"
        echo "qorgen data template $document -o template.xlsx"
        [ -n "$inputs" ] || continue
        back= parts= rows=
        for input in $inputs; do
            back+=" -o back_$input"
            parts+=" --good good_$input --bad bad_$input --reasons reasons_$input"
            rows+=" -o rows_$input.csv"
        done
        echo "qorgen data check $document $inputs"
        echo "qorgen data split $document $inputs $parts"
        echo "qorgen data convert $document $inputs -o book.xlsx"
        echo "qorgen data convert $document book.xlsx $back"
        echo "qorgen data convert $document $inputs $rows"
    done
}

for side in here windows; do
    commands=0
    mkdir "$place/$side"
    for example in examples/*/; do
        name=$(basename "$example")
        cp -r "$example" "$place/$side/$name"
        lines=$(lines_of "$example")
        cd "$place/$side/$name"
        while IFS= read -r line; do run_line $side "$line"; done <<<"$lines"
        cd "$OLDPWD"
    done
done

# The head of some reports tells the path of the document, as each system has it.
diff -r -u -I '^\*   Qor-format file   : ' -x '*.xlsx' -x '*.sqlite*' "$place/here" "$place/windows"
files=$(find "$place/windows" -type f | wc -l)
[ "$commands" -ge 80 ] || { echo "only $commands commands ran" >&2; exit 1; }
echo "$commands commands, $files files: the same"
