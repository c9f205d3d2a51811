#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# Passes the model's cases to a driver, in a scratch folder, on its standard input or as tables in that folder,
# which is its last argument then:
# run_cases.sh [--tables] PYTHON DRIVER [ARGS...]
set -u
tables=
if [ "$1" = --tables ]; then
    tables=--tables
    shift
fi
here=$(cd "$(dirname "$0")" && pwd)
python=$1
shift
scratch=$(mktemp -d) || exit 1
trap 'rm -rf "$scratch"' EXIT
cd "$scratch" || exit 1
# Sizes are among the arguments: no file may fill the disk.
trap '' XFSZ
ulimit -f 200000
if [ -n "$tables" ]; then
    "$python" -B "$here/argument_rules.py" --tables || exit 1
    "$@" "$scratch"
else
    "$python" -B "$here/argument_rules.py" >cases || exit 1
    "$@" <cases
fi
