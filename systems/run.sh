#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# "./gridio systems": makes the Debian systems that are named, each in a scratch folder, runs every test in each, builds
# the Debian package and tries the compilers. What a system needs is mounted in a namespace of its own, which ends with
# the last process in it, so that nothing stays mounted whatever happens here.
#
# Under build/systems/NAME each system keeps the logs of its last run, its cells of the table, and what makes a second
# run faster: Debian's packages, and the compiler's results (ccache).
set -u
here=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname "$here")
kept=$root/build/systems
readme=$root/README.md
system=   # the process in which a system is made and tested, while there is one
scratch=  # its folder

say() {
    printf 'gridio: %s\n' "$*" >&2
}

die() {
    say "$*"
    exit 1
}

refuse() {
    say "$* (see ./gridio help)"
    exit 2
}

# suite_of NAME: the name of the release in Debian's archive.
suite_of() {
    case $1 in
    bookworm | debian12 | 12) echo bookworm ;;
    trixie | debian13 | 13) echo trixie ;;
    sid | unstable) echo sid ;;
    *) return 1 ;;
    esac
}

# The archive that this machine installs from, if it is Debian's; else debootstrap has a default.
mirror() {
    # shellcheck disable=SC2016
    apt-get indextargets --format '$(LABEL) $(REPO_URI)' 'Created-By: Packages' 2>/dev/null |
        sed -n '/^Debian /{s/^Debian //p;q;}'
}

clean_up() {
    [ -z "$system" ] || kill -KILL "$system" 2>/dev/null
    [ -z "$system" ] || wait "$system" 2>/dev/null
    [ -z "$scratch" ] || rm -rf --one-file-system "$scratch"
    system=
    scratch=
}

# run_alone COMMAND...: in a namespace that ends with this process, with all processes and mounts in it. It is waited for in
# the background, where a signal to this script is obeyed at once.
run_alone() {
    setpriv --pdeathsig KILL unshare --mount --pid --fork --kill-child --mount-proc "$@" </dev/null &
    system=$!
    wait "$system"
    local status=$?
    system=
    return "$status"
}

# test_system SUITE PARTS: leaves its logs and its cells; fails if a part did.
test_system() {
    local suite=$1 parts=$2 own=$kept/$1 part passed
    mkdir -p "$own/packages" "$own/compiled"
    for part in $parts; do rm -f "$own/$part" "$own/$part.log"; done
    scratch=$(mktemp -d "${TMPDIR:-/var/tmp}/gridio-$suite.XXXXXX") || die "cannot make a scratch folder"
    # Readable for everyone, unlike a folder of mktemp: its users are those of the system.
    chmod 755 "$scratch"
    git -c safe.directory="$root" -C "$root" bundle create -q "$scratch/tree" HEAD || die "cannot copy the tree"
    say "$suite: making the system, then in it: $parts; the output goes to $own/log"
    run_alone "$here/inside.sh" "$suite" "$scratch" "$own" "$parts" "$(mirror)" >"$own/log" 2>&1
    passed=$?
    [[ " $parts " != *" tests "* ]] || count_tests "$own/log" >"$own/tests"
    clean_up
    [ "$passed" -eq 0 ] || say "$suite: failed; the end of $own/log:"
    [ "$passed" -eq 0 ] || tail -n 15 "$own/log" | sed 's/^/    /' >&2
    return "$passed"
}

# count_tests LOG: how many passed, by ctest's summaries of the two builds.
count_tests() {
    sed -n -e 's/.* \([0-9]*\) tests failed out of \([0-9]*\)$/run \1 \2/p' \
        -e 's/^\t *[0-9]* - .* (Skipped)$/skipped/p' "$1" | awk '
        $1 == "run" { runs += 1; failed += $2; all += $3 }
        $1 == "skipped" { skipped += 1 }
        END {
            if (runs != 2) print "not run to the end"
            else printf "%d of %d%s\n", all - failed - skipped, all, skipped ? ", " skipped " skipped" : ""
        }'
}

# row SUITE: nothing for a system that was never made.
row() {
    local own=$kept/$1 cell
    [ -f "$own/versions" ] || return 0
    printf '| %s | %s |' "$1" "$(cat "$own/versions")"
    for cell in tests time package compilers; do
        printf ' %s |' "$(cat "$own/$cell" 2>/dev/null || echo 'not run')"
    done
    echo
}

# The rows of the last run of each system, oldest release first.
table() {
    local suite
    echo '| system | Octave | netCDF | HDF5 | compiler | tests passed | time | Debian package | also compiled and tested with |'
    echo '|---|---|---|---|---|---|---|---|---|'
    for suite in bookworm trixie sid; do
        row "$suite"
    done
}

# Replaces what stands between the two markers in the README.
write_table() {
    local marker text
    for marker in '<!-- systems: begin -->' '<!-- systems: end -->'; do
        grep -qxF -e "$marker" "$readme" || die "$readme has no line $marker"
    done
    text=$(table | awk -v readme="$readme" '
        { rows = rows $0 "\n" }
        END {
            while ((getline line < readme) > 0) {
                if (line == "<!-- systems: end -->") inside = 0
                if (!inside) print line
                if (line == "<!-- systems: begin -->") { inside = 1; printf "%s", rows }
            }
        }') || die "cannot read $readme"
    printf '%s\n' "$text" >"$readme"
}

main() {
    local suite suites=() failed=() is_written='' parts="tests package compilers"
    while [ $# -gt 0 ]; do
        case $1 in
        --table) is_written=yes ;;
        --only)
            [[ ${2-} == @(tests|package|compilers) ]] || refuse "--only needs one of tests, package and compilers"
            parts=$2
            shift
            ;;
        *)
            suite=$(suite_of "$1") || refuse "there is no system $1: name bookworm, trixie or sid"
            suites+=("$suite")
            ;;
        esac
        shift
    done
    [ ${#suites[@]} -gt 0 ] || [ -n "$is_written" ] || suites=(bookworm trixie sid)
    if [ ${#suites[@]} -gt 0 ]; then
        [ "$(id -u)" -eq 0 ] || die "systems needs root, which alone can make a system: sudo ./gridio systems"
        trap clean_up EXIT
        trap 'exit 130' INT
        trap 'exit 143' TERM HUP
        for suite in "${suites[@]}"; do
            test_system "$suite" "$parts" || failed+=("$suite")
        done
    fi
    table
    [ -z "$is_written" ] || write_table
    [ ${#failed[@]} -eq 0 ] || die "failed on ${failed[*]}"
}

# In one block, so that editing this file cannot affect a run that has started.
{
    main "$@"
    exit
}
