#!/usr/bin/env bash
# Builds the Debian package from the build with CPack and checks what it holds and what it
# depends on.
# Usage: package.sh BUILD_FOLDER
set -euo pipefail
build=$1
here=$(dirname "$0")
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

(cd "$build" && cpack -G DEB -B "$out" >"$out/cpack.log") || { cat "$out/cpack.log"; fail "cpack"; }
package=$(ls "$out"/*.deb)

contents=$(dpkg-deb --contents "$package" | awk '{print $6}')
while read -r file; do
  grep -qx "./usr/$file" <<<"$contents" || fail "the package lacks /usr/$file"
done <"$here/expected-files.txt"

depends=$(dpkg-deb --field "$package" Depends)
for library in libqt6widgets6 libqt6help6 libqt6sql6-sqlite qt6-qpa-plugins libmdb3; do
  grep -q "$library" <<<"$depends" || fail "the package does not depend on $library: $depends"
done
echo "package: $(basename "$package") holds every file; depends on $depends"
