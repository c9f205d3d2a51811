#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# inside.sh SUITE SCRATCH KEPT PARTS [MIRROR]: makes a Debian system in SCRATCH/system, clones the tree SCRATCH/tree (a git
# bundle) into it, and works there as an ordinary user who may use sudo. run.sh calls it as root in namespaces of its own,
# which undo the mounts. PARTS are some of:
#
#   tests      runs "./gridio test"; KEPT/time gets how long that took, with the making of the system
#   package    builds, checks, installs and uses the Debian package; KEPT/package gets how that went
#   compilers  runs "./gridio compilers"; KEPT/compilers gets the names of those that passed
#
# KEPT/versions gets what the table says of the system. The files of the folder GRIDIO_DATA are tested with, if it is set.
set -eu
suite=$1
system=$2/system
tree=$2/tree
kept=$3
parts=$4
mirror=${5-}
user=ada
setting="export CCACHE_DIR=/compiled CMAKE_CXX_COMPILER_LAUNCHER=ccache;"

# Everything that a program expects of the kernel, and nothing of this machine's own.
mount_kernel() {
    mount -t proc proc "$system/proc"
    mount -t sysfs -o ro sysfs "$system/sys"
    mount -t tmpfs -o mode=755 tmpfs "$system/dev"
    local name major minor
    while read -r name major minor; do
        mknod -m 666 "$system/dev/$name" c "$major" "$minor"
    done <<<$'null 1 3\nzero 1 5\nfull 1 7\nrandom 1 8\nurandom 1 9\ntty 5 0'
    mkdir "$system/dev/pts" "$system/dev/shm"
    # Pseudo-terminals of its own: the tests open some as an ordinary user.
    mount -t devpts -o newinstance,ptmxmode=0666,mode=620,gid=5 devpts "$system/dev/pts"
    mount -t tmpfs -o mode=1777 tmpfs "$system/dev/shm"
    ln -s pts/ptmx "$system/dev/ptmx"
    ln -s /proc/self/fd "$system/dev/fd"
    ln -s /proc/self/fd/0 "$system/dev/stdin"
    ln -s /proc/self/fd/1 "$system/dev/stdout"
    ln -s /proc/self/fd/2 "$system/dev/stderr"
}

make_system() {
    debootstrap --variant=minbase --include=ca-certificates,ccache,git,sudo --cache-dir="$kept/packages" \
        "$suite" "$system" ${mirror:+"$mirror"}
    # Nothing of the system outlives the run, so that no package need be safe on the disk.
    echo force-unsafe-io >"$system/etc/dpkg/dpkg.cfg.d/unsafe-io"
    mount_kernel
    mount --bind "$kept/packages" "$system/var/cache/apt/archives"
    mkdir "$system/compiled"
    mount --bind "$kept/compiled" "$system/compiled"
    cp /etc/resolv.conf "$system/etc/resolv.conf"
    if [ -n "${GRIDIO_DATA-}" ]; then
        mkdir "$system/data"
        mount --bind -o ro "$GRIDIO_DATA" "$system/data"
        setting+=" export GRIDIO_DATA=/data;"
    fi
}

# in_system COMMAND: run by the user, in a fresh session.
in_system() {
    chroot "$system" su - "$user" -c "$1"
}

add_user() {
    chroot "$system" useradd --create-home --shell /bin/bash "$user"
    echo "$user ALL=(ALL) NOPASSWD: ALL" >"$system/etc/sudoers.d/$user"
    chroot "$system" chown "$user" /compiled
    cp "$tree" "$system/home/$user/tree"
    in_system "git clone -q tree gridio"
}

# The columns of the table: interpreter, netCDF, HDF5, compiler.
report_versions() {
    in_system "$setting cd gridio && ./gridio run systems/versions.m && g++ -dumpfullversion" |
        paste -sd ' ' | sed 's/\([^ ]*\) \([^ ]*\) \([^ ]*\) \([^ ]*\)/\1 | \2 | \3 | g++ \4/' >"$kept/versions"
}

# The Debian package is built from its source package, is without an error or a warning for lintian, and works once it is
# installed.
check_package() {
    in_system "sudo apt-get -q -y --no-install-recommends install build-essential lintian python3 &&
        sudo apt-get -q -y --no-install-recommends build-dep ./gridio/packaging &&
        gridio/packaging/build_debian.sh debian &&
        lintian --display-info --pedantic --fail-on error,warning debian/*.changes &&
        sudo apt-get -q -y --no-install-recommends install ./debian/octave-gridio_*.deb &&
        octave-cli --norc --no-history debian_package.m"
}

# part NAME COMMAND...: its output goes to KEPT/NAME.log, and the end of that to the output if it fails.
part() {
    local name=$1
    shift
    if "$@" >"$kept/$name.log" 2>&1; then
        return 0
    fi
    status=1
    echo "inside.sh: failed in $name; the end of $kept/$name.log:"
    tail -n 15 "$kept/$name.log"
    return 1
}

is_asked() {
    [[ " $parts " == *" $1 "* ]]
}

rm -f "$kept/versions"
! is_asked tests || rm -f "$kept/time"
make_system
add_user
status=0
if is_asked tests; then
    in_system "$setting cd gridio && ./gridio test" || status=$?
    echo "$(((SECONDS + 30) / 60)) min" >"$kept/time"
fi
report_versions || echo "inside.sh: gridio does not run"
if is_asked package; then
    cp "$(dirname "${BASH_SOURCE[0]}")/debian_package.m" "$system/home/$user/"
    outcome=failed
    ! part package check_package || outcome="builds, no warning"
    echo "$outcome" >"$kept/package"
fi
if is_asked compilers; then
    part compilers in_system "$setting cd gridio && ./gridio compilers" || true
    awk '/^(passed|failed) / { names[$1] = names[$1] (names[$1] ? ", " : "") $2 }
        END { print names["passed"] (names["failed"] ? "; failed: " names["failed"] : "") }' "$kept/compilers.log" |
        sed 's/++-/++ /g; s/-/ /g' >"$kept/compilers"
fi
exit "$status"
