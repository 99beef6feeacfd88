#!/usr/bin/env bash
# The AppStream metadata software centres read: valid as appstreamcli sees it (offline), and
# naming this build's version as its latest release.
# Usage: metainfo.sh METAINFO_FILE VERSION
set -euo pipefail
metainfo=$1
version=$2
fail() { echo "FAIL: $*" >&2; exit 1; }

appstreamcli validate --no-net "$metainfo" || fail "appstreamcli validate"
latest=$(grep -o '<release version="[^"]*"' "$metainfo" | head -n1 | cut -d'"' -f2)
[ "$latest" = "$version" ] || fail "the latest release is $latest, the build is $version"
echo "metainfo: valid, release $latest"
