#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# find_missing.sh PURPOSE...: on a system that is not Debian's, looks for what these purposes need. Prints a line for what is
# missing, with the command that installs it there, and fails; succeeds without a word if all is there.
# GRIDIO_OS_RELEASE may name another file than /etc/os-release.
set -u
here=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)

# The column of the table that has this system's names.
column() {
    local ids
    [ "$(uname -s)" != Darwin ] || { echo 4 && return; }
    ids=$(sed -n 's/^ID\(_LIKE\)\{0,1\}=//p' "${GRIDIO_OS_RELEASE:-/etc/os-release}" 2>/dev/null | tr -d '"' | tr '\n' ' ')
    case " $ids" in
    *" fedora "* | *" rhel "*) echo 2 ;;
    *" arch "*) echo 3 ;;
    *" suse "* | *" opensuse "*) echo 5 ;;
    *) echo 1 ;;
    esac
}

# The command before the names.
installer() {
    case $1 in
    2) echo 'sudo dnf install' ;;
    3) echo 'sudo pacman -S' ;;
    4) echo 'brew install' ;;
    5) echo 'sudo zypper install' ;;
    *) echo 'by the names of Debian:' ;;
    esac
}

# is_found KIND:NAMES, where any of the names that "|" separates will do.
is_found() {
    local kind=${1%%:*} name names
    IFS='|' read -ra names <<<"${1#*:}"
    for name in "${names[@]}"; do
        case $kind in
        command) command -v "$name" >/dev/null && return ;;
        library) pkg-config --exists "$name" 2>/dev/null && return ;;
        header) echo "#include <$name>" | c++ -E -x c++ - >/dev/null 2>&1 && return ;;
        python) python3 -c "import $name" 2>/dev/null && return ;;
        esac
    done
    return 1
}

main() {
    local place packages=() unknown=() purpose search names package
    place=$(column)
    while read -r purpose search names; do
        [[ " $* " == *" $purpose "* ]] || continue
        is_found "$search" && continue
        read -ra names <<<"$names"
        package=${names[place - 1]}
        if [ "$package" = - ]; then
            unknown+=("${search#*:}")
        elif [[ " ${packages[*]-} " != *" $package "* ]]; then
            packages+=("$package")
        fi
    done < <(grep -v '^#' "$here/packages_elsewhere.txt")
    [ ${#packages[@]} -eq 0 ] || echo "gridio: packages are missing: $(installer "$place") ${packages[*]}" >&2
    [ ${#unknown[@]} -eq 0 ] || echo "gridio: missing, and in no package that we know of: ${unknown[*]}" >&2
    [ $((${#packages[@]} + ${#unknown[@]})) -eq 0 ]
}

main "$@"
