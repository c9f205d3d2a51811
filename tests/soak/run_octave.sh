#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# run_octave.sh SOAK_CALLS FOLDER CALLS: the soak in one session of the interpreter with FOLDER/gridio.oct.
set -u
here=$(cd "$(dirname "$0")" && pwd)
own=$(mktemp -d) || exit 1
trap 'rm -rf "$own"' EXIT
figures=$("$1" "$3" "$own/recorded_programs.m") || exit 1
# The two figures are two arguments.
# shellcheck disable=SC2086
python3 -B "$here/../support/interpreter.py" --path "$2" --path "$own" "$here/soak_calls.m" $figures
