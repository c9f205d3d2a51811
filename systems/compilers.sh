#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# "./gridio compilers": on a Debian system, compiles the module, its hosts and the tests named below with every g++ from 12
# and every clang from 14 on that apt knows, and runs these tests with each; then with the flags that harden Debian's packages,
# and with libc++, where the interpreter is left out, since it is linked with libstdc++. A warning is an error.
#
# Prints "passed NAME" or "failed NAME" for each, and leaves the output in build/compilers/NAME.log.
set -u
here=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname "$here")
build=$root/build/compilers
targets=(gridio_octave unit_tests contract_in_standalone contract_in_minimal module_in_minimal)
failed=()

say() {
    printf 'gridio: %s\n' "$*" >&2
}

# install PACKAGE...: those that are missing, all at once, so that a password is asked for at the beginning if at all.
install() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "installing ${missing[*]}"
    local as_root=(env DEBIAN_FRONTEND=noninteractive)
    [ "$(id -u)" -eq 0 ] || as_root=(sudo "${as_root[@]}")
    "${as_root[@]}" apt-get -q -y --no-install-recommends install "${missing[@]}" </dev/null >"$build/install.log" 2>&1 &&
        return
    grep -E '^(E|W): ' "$build/install.log" | tail -n 5 | sed 's/^/    /' >&2
    say "the compilers cannot be installed (is the network up?)"
    exit 1
}

# known PATTERN: the packages whose names match, by their releases.
known() {
    apt-cache search --names-only "$1" | cut -d ' ' -f 1 | sort -V
}

# not_older PATTERN LEAST: of packages such as clang-14, those of a release that is not older.
not_older() {
    local package
    for package in $(known "$1"); do
        [ "${package##*-}" -lt "$2" ] || echo "$package"
    done
}

# try_build FOLDER OPTION...: configures, compiles the targets and runs their tests. GoogleTest is compiled as well: an older
# compiler links with a C++ library of its own, which lacks what the system's GoogleTest needs.
try_build() {
    local folder=$1
    shift
    (cd "$root" && cmake --preset release -B "$folder" -DGRIDIO_WERROR=ON -DGRIDIO_GOOGLETEST=/usr/src/googletest "$@") &&
        cmake --build "$folder" --target "${targets[@]}" &&
        ctest --test-dir "$folder" -j2 --output-on-failure --no-tests=error \
            -R '^unit\.|^Contract\.(holds_in_(standalone|minimal)$|module_in)' &&
        find_tests "$folder"
}

# A build that ctest finds few tests in has not been tested.
find_tests() {
    [ "$(ctest --test-dir "$1" -N -R '^unit\.' | sed -n 's/^Total Tests: //p')" -gt 300 ]
}

# check NAME OPTION...
check() {
    local name=$1
    shift
    say "$name"
    if try_build "$build/$name" "$@" </dev/null >"$build/$name.log" 2>&1; then
        echo "passed $name"
    else
        echo "failed $name"
        grep -E 'error|Error|\*\*\*Failed|^E: ' "$build/$name.log" | head -n 20 | sed 's/^/    /' >&2
        failed+=("$name")
    fi
    rm -rf "${build:?}/$name"
}

# Debian's flags. A header warns that it checks no buffers in the tests, which are not optimised: that is no error.
harden() {
    eval "$(DEB_BUILD_MAINT_OPTIONS=hardening=+all dpkg-buildflags --export=sh)"
    export CXXFLAGS="$CXXFLAGS ${CPPFLAGS-} -Wno-cpp"
}

main() {
    local gnu clang name
    mkdir -p "$build" || exit
    gnu=$(not_older '^g\+\+-[0-9]+$' 12)
    clang=$(not_older '^clang-[0-9]+$' 14)
    # shellcheck disable=SC2086
    install $gnu $clang clang libc++-dev libc++abi-dev googletest
    for name in $gnu ${clang//clang-/clang++-}; do
        check "$name" -DCMAKE_CXX_COMPILER="$name"
    done
    harden
    check hardened -DCMAKE_CXX_COMPILER=g++
    unset CFLAGS CXXFLAGS CPPFLAGS LDFLAGS
    targets=("${targets[@]/gridio_octave/gridio_standalone}")
    check libc++ -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_CXX_FLAGS=-stdlib=libc++ -DGRIDIO_OCTAVE=OFF
    [ ${#failed[@]} -eq 0 ] || say "failed: ${failed[*]} (see $build)"
    [ ${#failed[@]} -eq 0 ]
}

# In one block, so that editing this file cannot affect a run that has started.
{
    main
    exit
}
