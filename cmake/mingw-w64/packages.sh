#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Makes what the build for Windows needs from elsewhere, once, and prints the directory that holds it, which is for
# CMAKE_FIND_ROOT_PATH. It is kept in the user's cache:
#
#   FreeType, static, and GoogleTest   compiled for Windows from Debian's sources
#   CLI11 and nlohmann-json            copied, as they are nothing but headers
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
toolchain=$here/toolchain.cmake
compiler=x86_64-w64-mingw32-g++-posix

# Anything that these name may change what is built.
key() {
    {
        cat "$0" "$toolchain"
        "$compiler" --version
        dpkg-query --show googletest libcli11-dev libfreetype-dev mingw-w64-x86-64-dev nlohmann-json3-dev
    } | sha256sum | cut -c -16
}

say() { echo "$*" >&2; }

# This machine's archives, with their source packages where it lists the binary ones. An archive may be listed in either
# of two formats.
list_source_archives() {
    local to=$1 file list parts
    eval "$(apt-config shell list Dir::Etc::SourceList/f parts Dir::Etc::SourceParts/d)"
    mkdir -p "$to"
    for file in "$list" "$parts"/*.list "$parts"/*.sources; do
        [ -f "$file" ] || continue
        case $file in
            *.list) sed -nE 's/^[[:space:]]*deb([[:space:]])/deb-src\1/p' "$file" >"$to/${file##*/}" ;;
            *.sources) sed -E 's/^Types:.*/Types: deb-src/' "$file" >"$to/${file##*/}" ;;
        esac
    done
}

# Fetches and unpacks a source package, and leaves the machine's own lists as they are.
fetch_source() {
    local package=$1 work=$2
    local options=(-qq -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$work/archives"
        -o Dir::State::Lists="$work/lists" -o Dir::Cache="$work/cache" -o APT::Sandbox::User=root)
    mkdir -p "$work"/{lists,cache/archives}/partial
    list_source_archives "$work/archives"
    # An archive without source packages counts as a failure, but only until the package is found in another one.
    apt-get "${options[@]}" update || say "Looking for $package in the archives that could be read."
    (cd "$work" && apt-get "${options[@]}" --download-only --only-source source "$package")
    dpkg-source --extract "$work/$package"_*.dsc "$work/source"
}

build() {
    local source=$1 work=$2 prefix=$3
    shift 3
    cmake -S "$source" -B "$work" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
        -DBUILD_SHARED_LIBS=OFF -DCMAKE_INSTALL_PREFIX="$prefix" "$@"
    cmake --build "$work"
    cmake --install "$work"
}

# The same bytes from the same source, wherever and whenever it is built; and nothing that is not in that source.
build_freetype() {
    local work=$1 prefix=$2
    fetch_source freetype "$work"
    SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l "$work/source/debian/changelog" -S Timestamp) \
        build "$work/source" "$work/build" "$prefix" \
        -DCMAKE_C_FLAGS="-ffile-prefix-map=$work=." \
        -DFT_DISABLE_{ZLIB,BZIP2,PNG,HARFBUZZ,BROTLI}=ON
}

copy_headers() {
    local prefix=$1 name
    mkdir -p "$prefix"/{include,share/cmake}
    for name in CLI nlohmann; do cp -r "/usr/include/$name" "$prefix/include"; done
    for name in CLI11 nlohmann_json; do cp -r "/usr/share/cmake/$name" "$prefix/share/cmake"; done
}

# The pkg-config modules name the prefix that they were installed to, and it is moved afterwards.
# shellcheck disable=SC2016
make_relocatable() { sed -i 's#^prefix=.*#prefix=${pcfiledir}/../..#' "$1"/lib/pkgconfig/*.pc; }

make_packages() {
    local work=$1
    build_freetype "$work/freetype" "$work/prefix"
    build /usr/src/googletest "$work/googletest" "$work/prefix"
    copy_headers "$work/prefix"
    make_relocatable "$work/prefix"
}

cache=${XDG_CACHE_HOME:-$HOME/.cache}/vellum/mingw-w64
packages=$cache/$(key)

clean_up() {
    local status=$?
    [ $status -eq 0 ] || tail -n 40 "$work/log" >&2
    rm -rf "$work"
    exit $status
}

if [ ! -d "$packages" ]; then
    mkdir -p "$cache"
    work=$(mktemp -d "$cache/work.XXXXXX")
    trap clean_up EXIT
    say "Making the packages for Windows, once: $packages"
    make_packages "$work" >"$work/log" 2>&1
    # Another run may have been faster.
    mv -T "$work/prefix" "$packages" 2>/dev/null || [ -d "$packages" ]
fi
echo "$packages"
