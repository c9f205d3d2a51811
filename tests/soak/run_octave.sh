#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# run_octave.sh SOAK_CALLS FOLDER CALLS: the soak in one session of the interpreter with FOLDER/gridio.oct, in
# a folder and with a home of its own.
set -u
here=$(cd "$(dirname "$0")" && pwd)
own=$(mktemp -d) || exit 1
trap 'rm -rf "$own"' EXIT
figures=$("$1" "$3" "$own/recorded_programs.m") || exit 1
cd "$own" || exit 1
# The two figures are two arguments.
# shellcheck disable=SC2086
HOME=$own TMPDIR=$own OCTAVE_HISTFILE=$own/history \
    octave-cli --norc --quiet --path "$2" "$here/soak_calls.m" $figures
