#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# inside.sh SUITE SCRATCH KEPT [MIRROR]: makes a Debian system in SCRATCH/system, clones the tree SCRATCH/tree (a git
# bundle) into it, and runs "./gridio test" there as an ordinary user who may use sudo. run.sh calls it as root in
# namespaces of its own, which undo the mounts. KEPT/versions gets what the table says of the system.
set -eu
suite=$1
system=$2/system
tree=$2/tree
kept=$3
mirror=${4-}
user=ada

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
    in_system "cd gridio && ./gridio run systems/versions.m && g++ -dumpfullversion" |
        paste -sd ' ' | sed 's/\([^ ]*\) \([^ ]*\) \([^ ]*\) \([^ ]*\)/\1 | \2 | \3 | g++ \4/' >"$kept/versions"
}

rm -f "$kept/versions"
make_system
add_user
status=0
in_system "export CCACHE_DIR=/compiled CMAKE_CXX_COMPILER_LAUNCHER=ccache; cd gridio && ./gridio test" || status=$?
report_versions || echo "inside.sh: gridio does not run"
exit "$status"
