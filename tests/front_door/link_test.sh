#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# link_test.sh NINJA BUILD: links gridio.oct of this build once more, elsewhere and as on a machine
# without "make", which the linker would use to compile several partitions at once. There must be no
# output.
set -eu
linked=$(mktemp)
trap 'rm -f "$linked"' EXIT
command=$("$1" -C "$2" -t commands octave/gridio.oct | tail -n 1)
case $command in
*" -flto"*" -o octave/gridio.oct "*) ;;
*)
    echo "not a link with optimisation: $command"
    exit 1
    ;;
esac
cd "$2"
said=$(MAKE=/no/make sh -c "${command/ -o octave\/gridio.oct / -o $linked }" 2>&1)
echo "$said"
[ -s "$linked" ] && [ -z "$said" ]
