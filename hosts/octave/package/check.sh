#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# check.sh TARBALL: makes the package again and compares, then runs check.m on it with its own home
# folder, without the network if the machine allows that.
set -u
here=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)
tarball=$(readlink -f "$1")
own=$(mktemp -d) || exit 1
trap 'rm -rf "$own"' EXIT

again=$("$here/assemble.sh" "$own") || exit 1
cmp "$tarball" "$again" || exit 1

alone=()
for way in "unshare -n" "unshare -rn"; do
    if $way true 2>/dev/null; then
        read -ra alone <<<"$way"
        break
    fi
done
mkdir "$own/home" && cd "$own/home" || exit 1
HOME=$own/home TMPDIR=$own/home OCTAVE_HISTFILE=/dev/null \
    ${alone[@]+"${alone[@]}"} octave-cli --norc --no-history --quiet "$here/check.m" "$tarball"
