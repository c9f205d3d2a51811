#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# assemble.sh FOLDER: makes FOLDER/gridio-VERSION.tar.gz, the package for the interpreter's package manager, from this
# tree, and prints its path. The same tree gives the same bytes. Needs makeinfo and python3 for the manual.
set -eu
here=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../../.." && pwd)
umask 022

mkdir -p "$1"
folder=$(cd "$1" && pwd)
version=$(head -n 1 "$root/VERSION")
name=gridio-$version
date=$(sed -n 's/^Date: *//p' "$here/DESCRIPTION.in")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
top=$scratch/$name

# copy_sources FROM TO: the sources of a folder of the tree, with its sub-folders.
copy_sources() {
    (cd "$root/$1" && find . -type f \( -name '*.h' -o -name '*.cpp' \) -print0) |
        while IFS= read -r -d '' file; do
            install -D -m 644 "$root/$1/$file" "$top/$2/$file"
        done
}

mkdir -p "$top/src/selftest" "$top/inst/private" "$top/inst/examples/shared" "$top/doc"
sed "s/@VERSION@/$version/" "$here/DESCRIPTION.in" >"$top/DESCRIPTION"
cp "$here/INDEX" "$root/NEWS" "$top"
cp "$root/LICENSE" "$top/COPYING"
cp "$here/configure" "$here/Makefile" "$top/src"
cp "$root"/hosts/octave/*.cpp "$root"/hosts/octave/*.h "$root/hosts/octave/exports.map" "$top/src"
install -d "$top/src/mpi"
cp "$root"/hosts/octave/mpi/*.cpp "$root"/hosts/octave/mpi/*.h "$root/hosts/octave/mpi/exports.map" "$top/src/mpi"
cp "$root"/hosts/octave/selftest/*.tst "$top/src/selftest"
copy_sources src src/module
copy_sources include src/include
copy_sources hosts/memory src/hosts/memory
copy_sources hosts/messages src/hosts/messages
cp "$root"/hosts/octave/inst/*.m "$root"/hosts/octave/inst/*.txt "$top/inst"
cp "$root"/hosts/octave/inst/private/*.m "$top/inst/private"
cp "$root"/examples/*.m "$top/inst/examples"
cp "$root"/examples/shared/* "$top/inst/examples/shared"

python3 -B "$root/docs/make_manual.py" "$scratch/manual" >/dev/null
cp -R "$scratch/manual/html" "$scratch/manual/gridio.info" "$top/doc"

find "$top" -type d -exec chmod 755 {} +
find "$top" -type f -exec chmod 644 {} +
chmod 755 "$top/src/configure"
tar -C "$scratch" --format=ustar --sort=name --owner=root:0 --group=root:0 --numeric-owner --mtime="$date 00:00 UTC" \
    -cf - "$name" | gzip -9 -n >"$scratch/$name.tar.gz"
mv "$scratch/$name.tar.gz" "$folder"
echo "$folder/$name.tar.gz"
