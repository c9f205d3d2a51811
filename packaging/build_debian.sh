#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# build_debian.sh FOLDER: makes the Debian source package octave-gridio and its binary package in FOLDER, from the package
# for the interpreter's package manager that this tree makes. Needs build-essential, python3 and the build dependencies of
# debian/control; further arguments go to dpkg-buildpackage. The maintainer is who makes it, by the
# variables of Debian's tools: DEBFULLNAME and DEBEMAIL.
set -eu
maintainer="${DEBFULLNAME:-gridio developers} <${DEBEMAIL:-developers@gridio.invalid}>"
here=$(cd -P "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(dirname "$here")
mkdir -p "$1"
folder=$(cd "$1" && pwd)
shift

tarball=$("$root/hosts/octave/package/assemble.sh" "$folder")
version=$(head -n 1 "$root/VERSION")
tree=$folder/gridio-$version
mv "$tarball" "$folder/octave-gridio_$version.orig.tar.gz"
rm -rf "$tree"
tar -C "$folder" -xf "$folder/octave-gridio_$version.orig.tar.gz"
cp -R "$here/debian" "$tree/debian"
control=$(<"$here/debian/control")
printf '%s\n' "${control/@MAINTAINER@/"$maintainer"}" >"$tree/debian/control"

# The licence as a field of debian/copyright: indented, with dots for empty lines.
sed -e 's/^$/./' -e 's/^/ /' "$root/LICENSE" >"$folder/licence"
sed -i -e "/@LICENSE@/{r $folder/licence" -e 'd}' "$tree/debian/copyright"
rm "$folder/licence"

date=$(sed -n 's/^Date: *//p' "$tree/DESCRIPTION")
{
    printf 'octave-gridio (%s-1) UNRELEASED; urgency=medium\n\n  * The release %s of gridio.\n\n' "$version" "$version"
    printf ' -- %s  %s\n' "$maintainer" "$(LC_ALL=C date -u -R -d "$date")"
} >"$tree/debian/changelog"
cd "$tree"
dpkg-buildpackage -us -uc "$@"
