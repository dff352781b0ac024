#!/usr/bin/env bash
# Installs a build into a directory of its own and looks at what has come: no file tells where it was built, entries and pages are in
# form, links between documents lead somewhere, and the program works from there.
#   tests/package/installed.sh BUILD
set -uo pipefail
cd "$(dirname "$0")/../.."
tree=$PWD
build=$1
place=$build/installed
rm -rf "$place"
failed=0
fail() {
    echo "$*" >&2
    failed=1
}

cmake --install "$build" --prefix "$place" >/dev/null || exit 1
share=$place/share

while read -r file; do fail "$file holds the path of the tree"; done < <(grep -rlaF "$tree" "$place")
if command -v readelf >/dev/null; then
    for program in "$place"/bin/*; do readelf -d "$program" | grep -E 'R(UN)?PATH' && fail "$program has a path of libraries"; done
fi

desktop-file-validate "$share"/applications/*.desktop || fail "a desktop entry is not in form"
appstreamcli validate --no-net "$share"/metainfo/*.xml || fail "the description of the program is not in form"
for page in "$share"/man/man1/*.1; do
    remarks=$(groff -man -Tutf8 -ww -z "$page" 2>&1)
    [ -z "$remarks" ] || fail "$page: $remarks"
done
for name in $(sed -n 's/^Icon=//p' "$share"/applications/*.desktop); do
    for icon in scalable/apps/$name.svg {16x16,22x22,24x24,32x32,48x48,64x64,128x128,256x256}/apps/$name.png; do
        [ -s "$share/icons/hicolor/$icon" ] || fail "the icon $icon is missing"
    done
done

# Links to files, in the documents and in those of the examples.
while IFS=: read -r document link; do
    [ -e "$(dirname "$document")/${link%%#*}" ] || fail "$document leads to $link, which is not there"
done < <(grep -roE --include='*.md' '\]\([^)#:]+[^):]*\)' "$share/doc/qor-generator" "$share/doc/qor-generator/examples/" |
    sed -E 's/\]\(//; s/\)$//')

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
env -i PATH="$PATH" HOME="$home" SOURCE_DATE_EPOCH=0 "$place/bin/qorgen" generate \
    "$share/doc/qor-generator/examples/mm01/materials.qor" -o "$home/report.abap" || fail "the installed qorgen generates nothing"
[ -s "$home/report.abap" ] || fail "there is no report"
exit $failed
