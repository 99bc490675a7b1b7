#!/usr/bin/env bash
# Fails when a Windows program or DLL needs anything but the operating system's own DLLs.
# Usage: tools/check-imports.sh x64|x86 FILE...
set -euo pipefail
case $1 in
  x64) objdump=x86_64-w64-mingw32-objdump ;;
  x86) objdump=i686-w64-mingw32-objdump ;;
  *) echo "x64 or x86?" >&2; exit 2 ;;
esac
shift
own='advapi32|comctl32|gdi32|gdiplus|kernel32|msvcrt|odbc32|ole32|oleaut32|shell32|user32|uxtheme'
foreign=0
for file in "$@"; do
  imports=$("$objdump" -p "$file" | sed -n 's/.*DLL Name: //p')
  others=$(grep -viE "^($own)\.dll$" <<<"$imports") || others=
  if [[ -z $imports || -n $others ]]; then
    echo "$file needs ${others:-nothing at all}" >&2
    foreign=1
  fi
done
exit $foreign
