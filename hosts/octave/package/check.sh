#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# check.sh TARBALL: makes the package again and compares, then runs check.m on it as an ordinary user with a home folder of
# their own, without the network if the machine allows that.
set -u
here=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)
own=$(mktemp -d) || exit 1
trap 'rm -rf "$own"' EXIT

again=$("$here/assemble.sh" "$own") || exit 1
cmp "$1" "$again" || exit 1

alone=()
for way in "unshare -n" "unshare -cn" "unshare -rn"; do
    if $way true 2>/dev/null; then
        read -ra alone <<<"$way"
        break
    fi
done
mkdir "$own/home" && cp "$here/check.m" "$own" && chmod 755 "$own" && cd "$own/home" || exit 1
nobody=65534
if [ "$(id -u)" -eq 0 ] && chown $nobody:$nobody "$own/home"; then
    alone+=(setpriv "--reuid=$nobody" "--regid=$nobody" --clear-groups)
fi
env HOME="$own/home" TMPDIR="$own/home" USER=nobody OCTAVE_HISTFILE=/dev/null \
    ${alone[@]+"${alone[@]}"} octave-cli --norc --no-history --quiet "$own/check.m" "$again"
