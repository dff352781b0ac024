#!/bin/sh
# Runs a program for Windows under Wine, with a Windows of its own in the build tree. Ends with the program's status.
root=$(cd "$(dirname "$0")/.." && pwd)
WINEPREFIX=$root/build/wine
WINEDEBUG=-all
export WINEPREFIX WINEDEBUG
# Debian's own starter of 64 bits, where there is one, says nothing of programs of 32 bits.
wine=/usr/lib/wine/wine64
[ -x $wine ] || wine=wine
exec $wine "$@"
