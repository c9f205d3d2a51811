#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# fuzz.sh FOLDER TARGET SECONDS [OPTION...] : runs the fuzzer of that target in the build folder, beginning with the
# corpus and with what earlier runs found. New inputs are kept under FOLDER, and what it fails on.
set -eu
folder=$1 target=$2 seconds=$3
shift 3
corpus=$(dirname "$0")/corpus/$target
mkdir -p "$folder/found/$target"
# A chunk and what unpacks it is small, whatever its bytes announce.
[ "$target" != chunks ] || set -- -malloc_limit_mb=16 "$@"
# The libraries' own leaks are not looked for here: replay does that. Allocations are
# bounded by the address sanitizer.
exec "$folder/fuzz_$target" -max_total_time="$seconds" -max_len=1024 -timeout=300 -detect_leaks=0 \
    -rss_limit_mb=4000 -malloc_limit_mb=1000000 -print_final_stats=1 -verbosity=0 -print_funcs=0 \
    -artifact_prefix="$folder/$target-" "$@" "$folder/found/$target" "$corpus"
