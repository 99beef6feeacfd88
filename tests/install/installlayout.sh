#!/usr/bin/env bash
# Installs the build into a temporary DESTDIR and checks what lands where: every expected
# file, the menu entry, the icon sizes, the manual page and the empty catalogue; then starts
# the installed program from a folder it cannot write to and checks that its first start
# gives the user an empty catalogue in their documents.
# Usage: installlayout.sh BUILD_FOLDER
set -euo pipefail
build=$1
here=$(dirname "$0")
root=$(mktemp -d)
usr=$root/usr
trap 'chattr -i "$usr/bin" 2>/dev/null || true; rm -rf "$root"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

DESTDIR=$root cmake --install "$build" --prefix /usr >/dev/null

while read -r file; do
  [ -e "$usr/$file" ] || fail "$file is not installed"
done <"$here/expected-files.txt"
[ -x "$usr/bin/shelvane" ] && [ -x "$usr/bin/shelvane-catalog" ] || fail "the programs are not executable"

desktop-file-validate "$usr/share/applications/shelvane.desktop" || fail "desktop-file-validate"
grep -qx 'GenericName=Book Catalogue' "$usr/share/applications/shelvane.desktop" || fail "generic name"
grep -qx 'Exec=shelvane %f' "$usr/share/applications/shelvane.desktop" || fail "the menu entry does not pass the file"

# A PNG's width and height are the big-endian words at bytes 16 and 20.
for size in 16 22 24 32 48 64 128 256; do
  read -r w0 w1 w2 w3 h0 h1 h2 h3 < <(od -An -tu1 -j16 -N8 "$usr/share/icons/hicolor/${size}x${size}/apps/shelvane.png")
  [ $(((w2 << 8) + w3)) -eq "$size" ] && [ $(((h2 << 8) + h3)) -eq "$size" ] && [ $((w0 + w1 + h0 + h1)) -eq 0 ] \
    || fail "the ${size}x${size} icon has another size"
done

man_page=$usr/share/man/man1/shelvane-catalog.1
grep -q '^\.TH SHELVANE-CATALOG "1"' "$man_page" || fail "the manual page has no title"
for command in create sample generate check import export import-csv; do
  grep -q "^\.SS $command\$" "$man_page" || fail "the manual page does not explain $command"
done
grep -q 'replace an existing file' "$man_page" || fail "the manual page lacks the options"

"$usr/bin/shelvane-catalog" check "$usr/share/shelvane/EmptyCatalogue.mdb" >/dev/null \
  || fail "the installed empty catalogue is not sound"

# An installed program's folder is not the user's to write: its catalogue goes to the documents.
home=$root/home
mkdir -p "$home"
if chattr +i "$usr/bin" 2>/dev/null; then
  HOME=$home XDG_CONFIG_HOME=$home/.config QT_QPA_PLATFORM=offscreen \
    "$usr/bin/shelvane" --screenshot "$root/first-start.png" || fail "the installed program did not start"
  "$usr/bin/shelvane-catalog" check "$home/Documents/Shelvane/QuireshelfCatalog01.mdb" >/dev/null \
    || fail "the first start left no sound catalogue in the documents folder"
  chattr -i "$usr/bin"
else
  echo "SKIP: the first start (the program folder cannot be made unwritable here)"
fi
echo "install layout: every file in its place"
