#!/usr/bin/env bash
# Installs the Debian packages Shelvane needs to build, test and run.
# Used by ./run and ./test; does nothing when everything is already there.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite
  qt6-tools-dev qt6-tools-dev-tools qt6-documentation-tools libqt6help6
  libgl-dev libxkbcommon-dev
  sqlite3 libsqlite3-dev libicu-dev
  mdbtools-dev
  fonts-liberation
  # currency signs and dates of other scripts that Liberation has no glyph for (the yen ￥)
  fonts-droid-fallback
  poppler-utils
  xvfb xauth
  desktop-file-utils help2man
  appstream python3
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
if [ "$(id -u)" -eq 0 ]; then
  sudo=()
elif command -v sudo >/dev/null 2>&1; then
  sudo=(sudo)
else
  echo "error: missing packages (${missing[*]}) and neither root nor sudo to install them" >&2
  exit 1
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
