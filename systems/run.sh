#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# "./gridio systems": makes the Debian systems that are named, each in a scratch folder, and runs "./gridio test" in
# each. What a system needs is mounted in a namespace of its own, which ends with the last process in it, so that
# nothing stays mounted whatever happens here.
#
# Under build/systems/NAME each system keeps the log of its last run, its row of the table, and what makes a second
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

# test_system SUITE: leaves its log and its row; fails if a test did.
test_system() {
    local suite=$1 own=$kept/$1 start=$SECONDS passed
    mkdir -p "$own/packages" "$own/compiled"
    rm -f "$own/row"
    scratch=$(mktemp -d "${TMPDIR:-/var/tmp}/gridio-$suite.XXXXXX") || die "cannot make a scratch folder"
    # Readable for everyone, unlike a folder of mktemp: its users are those of the system.
    chmod 755 "$scratch"
    git -c safe.directory="$root" -C "$root" bundle create -q "$scratch/tree" HEAD || die "cannot copy the tree"
    say "$suite: making the system and running every test in it; the output goes to $own/log"
    run_alone "$here/inside.sh" "$suite" "$scratch" "$own" "$(mirror)" >"$own/log" 2>&1
    passed=$?
    write_row "$suite" "$own" $(((SECONDS - start + 30) / 60))
    clean_up
    [ "$passed" -eq 0 ] || say "$suite: failed; the end of $own/log:"
    [ "$passed" -eq 0 ] || tail -n 15 "$own/log" | sed 's/^/    /' >&2
    return "$passed"
}

# write_row SUITE FOLDER MINUTES: the row of the table, from the versions that the system reported and ctest's summaries.
write_row() {
    local tests
    tests=$(sed -n -e 's/.* \([0-9]*\) tests failed out of \([0-9]*\)$/run \1 \2/p' \
        -e 's/^\t *[0-9]* - .* (Skipped)$/skipped/p' "$2/log" | awk '
        $1 == "run" { runs += 1; failed += $2; all += $3 }
        $1 == "skipped" { skipped += 1 }
        END {
            if (runs != 2) print "not run to the end"
            else printf "%d of %d%s", all - failed - skipped, all, skipped ? ", " skipped " skipped" : ""
        }')
    [ -f "$2/versions" ] || return
    printf '| %s | %s | %s | %s min |\n' "$1" "$(cat "$2/versions")" "$tests" "$3" >"$2/row"
}

# The rows of the last run of each system, oldest release first.
table() {
    local suite
    echo '| system | Octave | netCDF | HDF5 | compiler | tests passed | time |'
    echo '|---|---|---|---|---|---|---|'
    for suite in bookworm trixie sid; do
        [ ! -f "$kept/$suite/row" ] || cat "$kept/$suite/row"
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
    local name suite suites=() failed=() is_written=
    for name in "$@"; do
        if [ "$name" = --table ]; then
            is_written=yes
        else
            suite=$(suite_of "$name") || refuse "there is no system $name: name bookworm, trixie or sid"
            suites+=("$suite")
        fi
    done
    [ ${#suites[@]} -gt 0 ] || [ -n "$is_written" ] || suites=(bookworm trixie sid)
    if [ ${#suites[@]} -gt 0 ]; then
        [ "$(id -u)" -eq 0 ] || die "systems needs root, which alone can make a system: sudo ./gridio systems"
        trap clean_up EXIT
        trap 'exit 130' INT
        trap 'exit 143' TERM HUP
        for suite in "${suites[@]}"; do
            test_system "$suite" || failed+=("$suite")
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
