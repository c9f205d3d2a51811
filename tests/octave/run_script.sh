#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# run_script.sh FOLDER SUPPORT SCRIPT: runs a script in the interpreter with FOLDER/gridio.oct and the compiled functions of
# SUPPORT, with its own working folder and home. Returns the script's status.
set -u
folder=$1
support=$2
here=$(cd "$(dirname "$0")" && pwd)
own=$(mktemp -d) || exit 1
trap 'rm -rf "$own"' EXIT
cd "$own" || exit 1
HOME=$own TMPDIR=$own OCTAVE_HISTFILE=$own/history \
    octave-cli --norc --quiet --path "$here/support" --path "$support" --path "$folder" "$here/$3"
