#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# link_test.sh NINJA BUILD OUTPUT: this build links gridio.oct with optimisation and through link_silently.sh, which kept what
# was printed in OUTPUT: nothing.
set -eu
command=$("$1" -C "$2" -t commands octave/gridio.oct | tail -n 1)
case $command in
*"/link_silently.sh"*" -flto"*" -o octave/gridio.oct "*) ;;
*)
    echo "not such a link: $command"
    exit 1
    ;;
esac
cat "$3"
[ -s "$2/octave/gridio.oct" ] && [ ! -s "$3" ]
