#!/usr/bin/env bash
# Asks the completions of bash, zsh and fish what stands behind some beginnings, in an empty directory with a file and a folder.
#   tests/package/completions.sh [SHELL...]    by default those of the three that are installed; bash is
set -uo pipefail
cd "$(dirname "$0")/../../packaging/completions"
completions=$PWD
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
touch "$place/load.qor"
mkdir "$place/folder"
cd "$place"

ask_bash() {
    bash --norc -c '
        source "$1/qorgen.bash"
        read -ra COMP_WORDS <<<"$2"
        [[ $2 == *" " ]] && COMP_WORDS+=("")
        COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
        _qorgen
        printf "%s\n" "${COMPREPLY[@]}"' - "$completions" "$1"
}

ask_fish() {
    fish --no-config -c 'source $argv[1]/qorgen.fish; complete -C $argv[2]' "$completions" "$1" | cut -f 1 | sed 's,/$,,'
}

# zsh completes on a terminal only, so one is made for it; what it would offer is asked of its builtin compadd.
ask_zsh() {
    zsh -f -c '
        zmodload zsh/zpty
        zpty shell zsh -f -i
        zpty -w shell "PS1= PROMPT_EOL_MARK= ; fpath=(${(q)1} \$fpath); autoload -Uz compinit; compinit -u -D; stty -echo columns 400"
        zpty -w shell "compadd() { [[ \${@[1,(i)(-|--)]} == *-(O|A|D)\ * ]] && { builtin compadd \"\$@\"; return }
            local -a offered; builtin compadd -A offered \"\$@\"; print -rl -- OFFER:\$^offered; builtin compadd \"\$@\" }"
        zpty -w shell "print READY"
        zpty -r -m shell ignored "*READY*READY*" || exit 1
        zpty -n -w shell "$2"$'"'"'\t'"'"'
        sleep 1
        while zpty -r -t shell line; do print -r -- "$line"; done' - "$completions" "$1" | tr -d '\r' | sed -n 's/^.*OFFER://p'
}

failed=0
# What has to be offered, and what must not be.
expect() {
    local shell=$1 line=$2 wanted=$3 unwanted=$4 offered word
    offered=" $("ask_$shell" "$line" | tr '\n' ' ')"
    for word in $wanted; do
        [[ $offered == *" $word "* ]] || { echo "$shell: \"$line\" does not offer $word, but$offered" >&2 && failed=1; }
    done
    for word in $unwanted; do
        [[ $offered != *" $word "* ]] || { echo "$shell: \"$line\" offers $word" >&2 && failed=1; }
    done
}

shells=("$@")
[ ${#shells[@]} -gt 0 ] || for shell in bash zsh fish; do
    if command -v $shell >/dev/null; then shells+=($shell); fi
done
for shell in "${shells[@]}"; do
    expect $shell "qorgen " "generate check run system" "load.qor insert"
    expect $shell "qorgen da" "data dataset" "check"
    expect $shell "qorgen --settings folder ge" "generate" "folder"
    expect $shell "qorgen bapi " "list insert update" "generate"
    expect $shell "qorgen bapi insert --m" "--mandatory" "--words"
    expect $shell "qorgen bapi insert --ca" "--catalogue" ""
    expect $shell "qorgen data convert --from " "csv layout tab xlsx" "load.qor"
    expect $shell "qorgen data convert --y" "--yes" "--all"
    expect $shell "qorgen check --format " "github json sarif text" "load.qor"
    expect $shell "qorgen check l" "load.qor" "folder list"
    expect $shell "qorgen --data " "folder" "load.qor generate"
    expect $shell "qorgen run --journal " "load.qor" ""
done
exit $failed
