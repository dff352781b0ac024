#!/usr/bin/env bash
# Every #include of the rooms leads to the left:
#     base < model < generator < editor, sap, bapi, dataset, print, findings, input < app
#     base < abap < findings
#     abap, model, sap, bapi < practice < app
# Between the rooms of one column there are only the arrows that are listed here; docs/architecture.md gives the reason of each.
# Ends with status 1, and names file and line, where an include runs back.
#   tests/check_includes.sh [TREE]
set -euo pipefail
cd "${1:-$(dirname "$0")/..}"

declared="bapi>sap"

mapfile -t files < <(find base model abap generator editor sap bapi dataset print findings input practice app -name '*.h' -o -name '*.cpp' | sort)
awk -v declared="$declared" '
BEGIN {
    split("base:1 model:2 abap:2 generator:3 editor:4 sap:4 bapi:4 dataset:4 print:4 findings:4 input:4 practice:5 app:6", columns, " ")
    for (i in columns) {
        split(columns[i], part, ":")
        column[part[1]] = part[2]
    }
    split(declared, arrows, " ")
    for (i in arrows) unused[arrows[i]] = allowed[arrows[i]] = 1
}
/^[ \t]*#[ \t]*include[ \t]*"/ {
    split(FILENAME, from, "/")
    split($0, quoted, "\"")
    split(quoted[2], to, "/")
    here = from[1]
    there = to[1]
    includes++
    if (here == "practice" && there !~ /^(base|abap|model|sap|bapi|practice)$/) {
        problem("practice knows base, abap, model, sap and bapi alone")
    } else if (!(there in column)) {
        problem("no room of that name")
    } else if (here != there && column[there] >= column[here]) {
        arrow = here ">" there
        delete unused[arrow]
        if (!(arrow in allowed)) problem("an arrow from " here " back to " there)
    }
}
function problem(what) {
    printf "%s:%d: %s: %s\n", FILENAME, FNR, $0, what
    bad = 1
}
END {
    for (arrow in unused) {
        print "tests/check_includes.sh: no include needs the arrow " arrow " any more"
        bad = 1
    }
    if (includes == 0) {
        print "tests/check_includes.sh: no include was found"
        bad = 1
    }
    exit bad
}' "${files[@]}"
