#!/bin/bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs the package for everyone who uses the Octave of $PREFIX. $SRC_DIR is the unpacked package.
set -eu
tarball=$(mktemp -d)/gridio.tar.gz
tar -C "$(dirname "$SRC_DIR")" -czf "$tarball" "$(basename "$SRC_DIR")"
octave-cli --norc --no-history --eval "
    folder = fullfile ('$PREFIX', 'share', 'octave', 'packages');
    binaries = fullfile ('$PREFIX', 'lib', 'octave', 'packages');
    pkg ('prefix', folder, binaries);
    pkg ('global_list', fullfile ('$PREFIX', 'share', 'octave', 'octave_packages'));
    pkg ('install', '-global', '-verbose', '$tarball');"
