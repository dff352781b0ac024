#!/usr/bin/env bash
# Tells the tests that are left out on Windows, and how many there are. Ends with status 1 where the list names a test that is not
# there, or a test is left out that the list doesn't name.
set -euo pipefail
cd "$(dirname "$0")/.."

list=support/left_out_on_windows.h
diff <(sed -n 's/^#define LEFT_OUT_//p' $list | sort) \
    <(sed -n 's/^#ifndef LEFT_OUT_//p' ./*_test.cpp | sort -u) >&2 || {
    echo "tests/$list and the tests themselves differ" >&2
    exit 1
}
sed -n 's/^#define LEFT_OUT_/left out: /p; s|^// |  |p' $list
echo "$(grep -c '^#define LEFT_OUT_' $list) tests are left out on Windows"
