#!/usr/bin/env bash
# Makes the Debian packages of a build, has lintian look at them, and installs, starts and removes them in a clean system. Needs root and
# the network; asks for the packages debootstrap and lintian.
#   tests/package/clean_root.sh BUILD
# MIRROR is where Debian's packages are fetched from, SUITE the release; by default those of this machine.
set -euo pipefail
cd "$(dirname "$0")/../.."
build=$1
packages=$PWD/$build/packages
suite=${SUITE:-$(. /etc/os-release && echo "$VERSION_CODENAME")}
mirror=${MIRROR:-http://deb.debian.org/debian}

[ "$(id -u)" -eq 0 ] || {
    echo "only root can make a clean system" >&2
    exit 1
}

fail() {
    echo "$*" >&2
    exit 1
}

rm -rf "$packages"
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$packages" >"$build/cpack.log" || { cat "$build/cpack.log" && exit 1; }
rm -rf "$packages/_CPack_Packages"
lintian --fail-on error --tag-display-limit 0 "$packages"/*.deb

# The system without the packages is kept beside the build, and a copy of it is used.
root=$(mktemp -d /var/tmp/clean_root.XXXXXX)
trap 'umount "$root/proc" 2>/dev/null || true; rm -rf --one-file-system "$root"' EXIT
base=$PWD/$build/clean_root_$suite.tar
if [ ! -e "$base" ]; then
    debootstrap --variant=minbase --include=ca-certificates "$suite" "$root" "$mirror"
    tar -C "$root" -cf "$base.part" . && mv "$base.part" "$base"
else
    tar -C "$root" -xf "$base"
fi
chmod 755 "$root"
mount -t proc proc "$root/proc"
[ ! -e /etc/resolv.conf ] || cp /etc/resolv.conf "$root/etc/resolv.conf"
mkdir "$root/packages"
cp "$packages"/*.deb "$root/packages/"

inside() { chroot "$root" env -u DISPLAY -u WAYLAND_DISPLAY LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
as_user() { inside setpriv --reuid=1000 --regid=1000 --clear-groups env HOME=/home/user "$@"; }
install() { inside apt-get install -y -qq --no-install-recommends "$@" >"$build/apt.log" 2>&1 || { cat "$build/apt.log" && exit 1; }; }

inside apt-get update -qq
mkdir -p "$root/home/user"
chown 1000:1000 "$root/home/user"
before=$(inside find /etc /usr /var/lib -name '*qor*' | sort)

echo "== the command line alone"
install $(cd "$root" && ls packages/qorgen_*.deb packages/qor-generator-data_*.deb | sed 's,^,/,')
! inside dpkg-query -W -f='${Package}\n' | grep -i -E 'qt[56]|^libx11' || fail "qorgen brings libraries of the desktop"
as_user qorgen check --all /usr/share/doc/qor-generator/examples/mm01/materials.qor
as_user qorgen generate /usr/share/doc/qor-generator/examples/mm01/materials.qor -o /home/user/report.abap
[ -s "$root/home/user/report.abap" ] || fail "there is no report"
as_user qorgen run /usr/share/doc/qor-generator/examples/mm01/materials.qor --file FILE=/usr/share/doc/qor-generator/examples/mm01/materials.txt |
    grep '4 records, 4 posted, 0 failed'

echo "== the desktop program"
install $(cd "$root" && ls packages/qor-generator_*.deb | sed 's,^,/,')
# What the check itself needs: a screen, and eyes for its windows.
install xvfb xauth x11-utils
cat >"$root/packages/start" <<'START'
#!/bin/sh
# Starts a program on the screen, waits for a window whose title begins with $1, and ends the program.
title=$1
shift
"$@" &
program=$!
seconds=0
until xwininfo -root -tree | grep -q "\"$title"; do
    seconds=$((seconds + 1))
    if [ $seconds -gt 30 ] || ! kill -0 $program 2>/dev/null; then
        echo "no window \"$title\"; there are:" >&2
        xwininfo -root -tree >&2
        kill $program 2>/dev/null
        exit 1
    fi
    sleep 1
done
echo "a window \"$title\" came"
kill $program
START
chmod +x "$root/packages/start"
mkdir -p "$root/tmp/.X11-unix"
chmod 1777 "$root/tmp" "$root/tmp/.X11-unix"
mkdir -p "$root/home/user/.config/qor-generator"
printf 'Language=English\r\n' >"$root/home/user/.config/qor-generator/Tessaline.ini"
chown -R 1000:1000 "$root/home/user"
as_user xvfb-run -a /packages/start 'Qor Generator - ' qor /usr/share/doc/qor-generator/examples/mm01/materials.qor
as_user xvfb-run -a /packages/start 'QOR End-User' qor --data-set-editor /usr/share/doc/qor-generator/examples/data-sets/session.txt
[ ! -e "$root/home/user/.local/share/applications" ] || fail "the installed program registers itself once more"

echo "== removed"
inside apt-get purge -y -qq qor-generator qorgen qor-generator-data >"$build/apt.log" 2>&1 || { cat "$build/apt.log" && exit 1; }
after=$(inside find /etc /usr /var/lib -name '*qor*' | sort)
[ "$before" = "$after" ] || fail "left behind: $after"
echo "== the packages install, start and go"
