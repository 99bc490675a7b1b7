#!/usr/bin/env bash
# SQLite's amalgamation for the Windows sample host, taken out of one pinned npm package: the pack
# alone, without its install scripts and its dependencies.
# Usage: tools/fetch-sqlite.sh FOLDER; afterwards FOLDER holds sqlite3.c and sqlite3.h.
set -euo pipefail
package=better-sqlite3@12.11.1
sum=ebf0ed75a7a59dbcb3b24bbd014ef49d9f15bc328e4adcbf516f2a8fadfa2835
folder=$1
[[ -f $folder/$package && -f $folder/sqlite3.c ]] && exit 0
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
(cd "$work" && npm pack --silent --ignore-scripts "$package" >/dev/null)
pack=("$work"/*.tgz)
echo "$sum  ${pack[0]}" | sha256sum --check --quiet ||
  { echo "The pack of $package is not the one that was reviewed." >&2; exit 1; }
tar -xzf "${pack[0]}" -C "$work" package/deps/sqlite3
mkdir -p "$folder"
cp "$work"/package/deps/sqlite3/sqlite3.{c,h} "$folder"
touch "$folder/$package"
