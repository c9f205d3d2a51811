#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# link_silently.sh OUTPUT COMMAND...: links as on a machine without "make", which the linker would use to compile several
# partitions at once, and keeps what is printed in the file OUTPUT, for a test: FrontDoor.LinksWithoutARemark.
set -u
output=$1
shift
MAKE=/no/make "$@" >"$output" 2>&1
status=$?
cat "$output"
exit $status
