#!/bin/sh
# SPDX-License-Identifier: BSD-3-Clause
# exported_symbols_test.sh FOLDER: FOLDER/gridio.oct exports its installers only, and nothing that would keep it mapped.
set -u
symbols=$(readelf --dyn-syms --wide "$1/gridio.oct") || exit 1
failed=0
exported=$(printf '%s\n' "$symbols" | awk '($5 == "GLOBAL" || $5 == "WEAK" || $5 == "UNIQUE") && $7 != "UND" {print $8}' | sort | xargs)
if [ "$exported" != "G__gridio_session__ Ggridio Ggridio_any Ggridio_native" ]; then
    printf 'FAILED: exported: %s\n' "$exported"
    failed=1
fi
if printf '%s\n' "$symbols" | grep -q ' UNIQUE '; then
    echo 'FAILED: unique symbols'
    failed=$((failed + 1))
fi
if readelf --dynamic --wide "$1/gridio.oct" | grep -E 'NEEDED.*liboct'; then
    echo 'FAILED: linked with a library of the interpreter'
    failed=$((failed + 1))
fi
echo "$((3 - failed)) passed, $failed failed"
[ "$failed" -eq 0 ]
