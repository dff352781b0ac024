#!/usr/bin/env bash
# Builds, for Windows, the libraries that Debian has for no other system than its own, from Debian's own sources: SQLite, libzip, pugixml,
# libxlsxwriter and GoogleTest. They go into build/windows-libraries and are made once; the header-only libraries get their place there too.
#   cmake/windows_libraries.sh
# The sources come from where this machine's packages come from.
set -euo pipefail
cd "$(dirname "$0")/.."

tree=$PWD
place=$tree/build/windows-libraries
work=$place/work
triple=x86_64-w64-mingw32
stamp=$place/complete
if [ -e "$stamp" ] && [ ! cmake/windows_libraries.sh -nt "$stamp" ]; then exit 0; fi

rm -rf "$work"
mkdir -p "$work/lists/partial" "$place/include" "$place/lib/pkgconfig"

# ---- The sources ----

# The machine's sources of packages, told to be sources of sources.
list_sources() {
    local found=no
    local file
    for file in /etc/apt/sources.list.d/debian.sources /etc/apt/sources.list.d/*.sources; do
        if [ $found = yes ] || ! grep -q '^Types:.*\bdeb\b' "$file" 2>/dev/null; then continue; fi
        sed 's/^Types:.*/Types: deb-src/' "$file" >"$work/from.sources"
        found=yes
    done
    if [ $found = no ]; then
        sed -n 's/^deb\(-src\)\? /deb-src /p' /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null | sort -u >"$work/from.list"
    fi
}

from_apt() {
    local list
    list=$(ls "$work"/from.*)
    apt-get -q -o Dir::Etc::sourcelist="$list" -o Dir::Etc::sourceparts=/dev/null -o Dir::State::lists="$work/lists" \
        -o APT::Sandbox::User= -o pkgCacheFile= -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= "$@"
}

list_sources
cd "$work"
from_apt update
from_apt source sqlite3 libzip pugixml libxlsxwriter

# ---- The libraries ----

build_with_cmake() {
    local name=$1 source=$2
    shift 2
    cmake -S "$source" -B "$work/$name" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$tree/cmake/mingw-w64.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX="$place" -DCMAKE_INSTALL_LIBDIR=lib -DBUILD_SHARED_LIBS=OFF -DCMAKE_POLICY_DEFAULT_CMP0063=NEW \
        -DCMAKE_FIND_PACKAGE_PREFER_CONFIG=OFF "$@"
    cmake --build "$work/$name"
    cmake --install "$work/$name"
}

build_sqlite() {
    cd "$work"/sqlite3-*/
    # One file of everything, made by the tools of this machine.
    ./configure --disable-tcl >/dev/null
    make sqlite3.c >/dev/null
    # The features that Debian's own build of it has, as far as this system meets them.
    $triple-gcc-posix -O2 -DSQLITE_THREADSAFE=1 -DSQLITE_ENABLE_COLUMN_METADATA -c sqlite3.c -o "$work/sqlite3.o"
    rm -f "$place/lib/libsqlite3.a"
    $triple-ar rcs "$place/lib/libsqlite3.a" "$work/sqlite3.o"
    cp sqlite3.h "$place/include"
}

# Libraries of headers alone: those of this machine, without the rest of its headers.
take_headers() {
    local name
    for name in CLI nlohmann; do
        rm -rf "$place/include/$name"
        cp -r "/usr/include/$name" "$place/include/$name"
    done
    mkdir -p "$place/share/cmake"
    for name in CLI11 nlohmann_json; do
        rm -rf "$place/share/cmake/$name"
        cp -r "/usr/share/cmake/$name" "$place/share/cmake/$name"
    done
}

(build_sqlite)
# Linked in, where the cross package would have its library beside the program.
cp /usr/$triple/lib/libz.a "$place/lib"
build_with_cmake libzip "$(echo "$work"/libzip-*/)" -DBUILD_TOOLS=OFF -DBUILD_REGRESS=OFF -DBUILD_EXAMPLES=OFF -DBUILD_DOC=OFF \
    -DENABLE_BZIP2=OFF -DENABLE_LZMA=OFF -DENABLE_ZSTD=OFF -DENABLE_OPENSSL=OFF -DENABLE_GNUTLS=OFF -DENABLE_MBEDTLS=OFF \
    -DENABLE_WINDOWS_CRYPTO=OFF -DENABLE_COMMONCRYPTO=OFF
build_with_cmake pugixml "$(echo "$work"/pugixml-*/)"
build_with_cmake libxlsxwriter "$(echo "$work"/libxlsxwriter-*/)"
build_with_cmake googletest /usr/src/googletest
take_headers

cd "$tree"
rm -rf "$work"
touch "$stamp"
