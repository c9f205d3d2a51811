#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# run_script.sh SCRIPT: runs a script of this folder in the interpreter with gridio and its classes, in a folder and with a
# home of its own. The script's status is the result.
set -u
here=$(cd "$(dirname "$0")" && pwd)
own=$(mktemp -d) || exit 1
trap 'rm -rf "$own"' EXIT
cd "$own" || exit 1
HOME=$own TMPDIR=$own OCTAVE_HISTFILE=$own/history \
    "$OCTAVE_CLI" --norc --quiet --path "$here/../octave/support" --path "$here/support" --path "$GRIDIO_INST_DIR" \
    --path "$GRIDIO_OCT_DIR" "$here/$1"
