#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The steps of the package tests; tests/package/CMakeLists.txt says which are taken with what.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
readme=$here/../../README.md

fail() {
    echo "$*" >&2
    exit 1
}

# The README's first block of a language.
readme_block() { awk -v fence='```'"$1" '$0 == fence { inside = 1; next } inside && $0 == "```" { exit } inside' "$readme"; }

fresh_directory() {
    rm -rf "$1"
    mkdir -p "$1"
}

# The packages are moved once installed: nothing in them may hold the prefix they were installed to.
install_and_move() {
    local build=$1 prefix=$2
    rm -rf "$prefix" "$prefix.installed"
    cmake --install "$build" --prefix "$prefix.installed"
    mv "$prefix.installed" "$prefix"
    ! grep -rlF "$prefix" "$prefix" --include='*.cmake' --include='*.pc' || fail "These files hold the prefix."
}

build_and_install() {
    local source=$1 build=$2 prefix=$3
    shift 3
    cmake -S "$source" -B "$build" "$@"
    cmake --build "$build"
    install_and_move "$build" "$prefix"
}

# Where Windows finds the library and the compiler's own DLLs, which the hosts need.
dll_path() {
    local path=$1/bin name
    for name in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
        path+=";$(dirname "$($CXX -print-file-name=$name)")"
    done
    echo "$path"
}

# Runs a host of the installed library and expects a text from it.
expect_output() {
    local prefix=$1 program=$2 expected=$3
    # The runner is a list of words.
    # shellcheck disable=SC2086
    LD_LIBRARY_PATH=$(dirname "$(find "$prefix" -iname 'libvellum.*' -print -quit)") WINEPATH=$(dll_path "$prefix") \
        $RUNNER "$program$PROGRAM_SUFFIX" >"$program.out"
    # A text of Windows ends its lines in its own way.
    diff -u --strip-trailing-cr --label expected "$expected" "$program.out" || fail "$program printed something else."
}

# Compiles a source with what the pkg-config module says.
compile_with_pkg_config() {
    local prefix=$1 source=$2 program=$3
    local modules
    modules=$(dirname "$(find "$prefix" -name vellum.pc)")
    # The flags are lists of words.
    # shellcheck disable=SC2046,SC2086
    $CXX $CXXFLAGS -std=c++17 "$source" -o "$program" $(PKG_CONFIG_PATH=$modules pkg-config --cflags --libs vellum)
}

# The README's program, built with the README's CMakeLists.txt.
find_package() {
    local prefix=$1 work=$2
    shift 2
    fresh_directory "$work"
    readme_block cpp >"$work/main.cpp"
    readme_block cmake >"$work/CMakeLists.txt"
    readme_block text >"$work/expected"
    printf 'add_compile_options(%s)\nadd_link_options(%s)\n' "$CXXFLAGS" "$CXXFLAGS" >"$work/options.cmake"
    cmake -S "$work" -B "$work/build" "$@" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_FIND_ROOT_PATH="$prefix;${DEPENDENCIES:-}" \
        -DCMAKE_PROJECT_INCLUDE="$work/options.cmake"
    cmake --build "$work/build"
    expect_output "$prefix" "$work/build/host" "$work/expected"
}

# The same program, built with pkg-config alone.
pkg_config() {
    local prefix=$1 work=$2
    fresh_directory "$work"
    readme_block cpp >"$work/main.cpp"
    readme_block text >"$work/expected"
    compile_with_pkg_config "$prefix" "$work/main.cpp" "$work/host"
    expect_output "$prefix" "$work/host" "$work/expected"
}

# A host that defines VellumDebugOutput receives the library's debug texts.
debug_output() {
    local prefix=$1 work=$2
    fresh_directory "$work"
    echo "received: 6 x 7 = 42" >"$work/expected"
    compile_with_pkg_config "$prefix" "$here/debug_output_host.cpp" "$work/host"
    expect_output "$prefix" "$work/host" "$work/expected"
}

# A host that needs what the library is linked with. Windows has one folder of fonts, elsewhere the environment names it.
fonts() {
    local prefix=$1 work=$2 folder=${3:-$2/fonts}
    fresh_directory "$work"
    mkdir -p "$folder"
    rm -f "$folder"/*.tt?
    cp "$here/../fonts/data/plain.ttf" "$folder"
    printf '%s\n' Hershey HersheyBold HersheyItalic HersheyMonospace Iges1001 Iges1002 Iges1003 "Vellum Plain" \
        >"$work/expected"
    compile_with_pkg_config "$prefix" "$here/fonts_host.cpp" "$work/host"
    echo '<fontconfig></fontconfig>' >"$work/fonts.conf"
    export XDG_DATA_DIRS=$work FONTCONFIG_FILE=$work/fonts.conf
    expect_output "$prefix" "$work/host" "$work/expected"
    rm "$folder/plain.ttf"
}

case $1 in
    install) install_and_move "${@:2}" ;;
    build_and_install | find_package | pkg_config | debug_output | fonts) "$@" ;;
    *) fail "unknown step $1" ;;
esac
