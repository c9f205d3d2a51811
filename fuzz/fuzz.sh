#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# fuzz.sh FOLDER TARGET SECONDS [OPTION...] : runs the fuzzer of that target in the build folder,
# starting with the corpus and the inputs of earlier runs. New inputs and failing ones are kept
# under FOLDER.
set -eu
folder=$1 target=$2 seconds=$3
shift 3
corpus=$(dirname "$0")/corpus/$target
mkdir -p "$folder/found/$target"
# A chunk and its decoder need little memory, whatever its bytes declare.
[ "$target" != chunks ] || set -- -malloc_limit_mb=16 "$@"
# Leaks are checked by replay, not here. Allocations are bounded by the address sanitizer.
exec "$folder/fuzz_$target" -max_total_time="$seconds" -max_len=1024 -timeout=300 -detect_leaks=0 \
    -rss_limit_mb=4000 -malloc_limit_mb=1000000 -print_final_stats=1 -verbosity=0 -print_funcs=0 \
    -artifact_prefix="$folder/$target-" "$@" "$folder/found/$target" "$corpus"
