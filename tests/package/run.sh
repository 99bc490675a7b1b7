#!/usr/bin/env bash
# Tries a release that was made twice: the bytes, what the archives say of themselves, programs built
# on them, the installers under Wine, and signatures. The last line counts.
# Usage: tests/package/run.sh FOLDER, from the project's root; FOLDER/dist holds the release, and
# FOLDER/again/dist the same out of another build.
set -uo pipefail
folder=$(realpath "$1")
dist=$folder/dist
work=$folder/test
passed=0
failed=0
rm -rf "$work"
mkdir -p "$work"
version=$(basename "$dist"/FetchKit-*-linux-x64.tar.gz -linux-x64.tar.gz)
version=${version#FetchKit-}

export WINEPREFIX=$work/wine WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe="
wine=$(command -v wine64 || command -v /usr/lib/wine/wine64 || command -v wine)
server=$(command -v wineserver || command -v /usr/lib/wine/wineserver64)
wine() { timeout --kill-after=10 120 "$wine" "$@" </dev/null 2>/dev/null | tr -d '\r'; }
trap '"$server" -k' EXIT

# check NAME COMMAND...: its output is shown only when it fails.
check() {
  local name=$1 output
  shift
  if output=$("$@" 2>&1); then
    passed=$((passed + 1))
    echo "ok: $name"
  else
    failed=$((failed + 1))
    printf 'FAILED: %s\n%s\n' "$name" "$output"
  fi
}

same_bytes() {
  (cd "$dist" && sha256sum --quiet -c SHA256SUMS) && (($(ls "$dist" | wc -l) >= 6)) &&
    diff -r "$dist" "$folder/again/dist"
}

unpack() {
  local each
  for each in "$dist"/*.zip; do python3 -m zipfile -e "$each" "$work" || return 1; done
  tar -xzf "$dist"/*.tar.gz -C "$work"
}

# The sums and the bill of materials name each file once, with its sum; what is linked in stands in NOTICE.
described() {
  (cd "$1" && sha256sum --quiet -c SHA256SUMS) && python3 - "$1" <<'PYTHON'
import hashlib, json, pathlib, sys
folder = pathlib.Path(sys.argv[1])
bill = json.loads((folder / "FetchKit.spdx.json").read_text())
here = {p.relative_to(folder).as_posix(): p for p in folder.rglob("*") if p.is_file()}
listed = {f["fileName"][2:]: f for f in bill["files"]}
assert set(here) - set(listed) == {"SHA256SUMS", "FetchKit.spdx.json"}, set(here) ^ set(listed)
for name, entry in listed.items():
    assert entry["checksums"][1]["checksumValue"] == hashlib.sha256(here[name].read_bytes()).hexdigest(), name
ids = {each["SPDXID"] for each in bill["packages"] + bill["files"]} | {"SPDXRef-DOCUMENT"}
for each in bill["relationships"]:
    assert {each["spdxElementId"], each["relatedSpdxElement"]} <= ids, each
notice = (folder / "NOTICE").read_text().lower()
for each in bill["packages"]:
    for word in each["name"].replace(" and ", " ").split():
        assert word.lower() in notice, word
PYTHON
}
no_path_of_the_build() { ! grep -rlaF -e "$PWD" -e "$HOME/" "$@"; }

# The hosts that the documents show, on the unpacked archive.
linux_program() {
  cmake -S tests/consumer -B "$work/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$work/FetchKit-$version-linux-x64" &&
    cmake --build "$work/consumer" && "$work/consumer/README" | tail -n 1 | grep -F 'IN (0,0)' &&
    [[ -x $work/consumer/hosts ]]
}
windows_program() {  # SIZE COMPILER
  local unpacked=$work/FetchKit-$version-windows-$1
  "$2" -std=c++20 -static -o "$unpacked/program.exe" -I "$unpacked/include" tests/package/Program.cpp \
    "$unpacked"/include/FetchKit{,Host}_i.c "$unpacked/lib/FetchKit.lib" -lole32 -loleaut32 -luuid || return 1
  [[ $1 == x86 ]] && return  # there is no 32-bit Wine
  [[ $(cd "$unpacked" && wine program.exe) == \
    $'column 27 is AA\n6 interfaces, 13 members of the connection' ]]
}

# The classes in the registry and whatever else names FetchKit, one line for each key and value. What
# the installer keeps for itself is left out.
entries() {
  "$server" -k
  "$server" -w
  awk '
    /^\[/ { key = $0; sub(/\] [0-9]+$/, "]", key); print FILENAME, key; next }
    /^["@]/ { print FILENAME, key, $0 }
  ' "$WINEPREFIX"/{system,user}.reg | sed "s|^$WINEPREFIX/||" |
    grep -iE 'reg \[software\\\\classes\\\\|fetchkit' | grep -viE '\\\\Installer(\\\\|\])|\\\\Wow6432Node\\\\CLSID\]$' | sort
}
prefix() {
  wine wineboot -i
  echo 'WScript.Echo "ready"' >"$work/ready.vbs"
  # The script host enters itself at its first start.
  [[ $(cd "$work" && wine cscript //nologo ready.vbs) == ready ]] && entries >"$work/before"
  cat >"$work/login.vbs" <<'VBS'
Set host = CreateObject("FetchKitHost.Sample")
Set fetch = CreateObject("FetchKit.Interface")
fetch.Initialize host.Connection("main")
WScript.Echo fetch.LoginDate & " " & fetch.LoginOrganizationID
VBS
}
logs_in() { [[ $(cd "$work" && wine cscript //nologo login.vbs) == "2004-03-17 "[1-9]* ]]; }
msi() { (cd "$dist" && wine msiexec "$@"); }
# Is one among the installed files, or one of the entries?
file() { files_of | grep "$1" >/dev/null; }
files_of() { find "$WINEPREFIX/drive_c" -path '*/FetchKit/*' -type f -printf '%P\n' | sort; }
wide=FetchKit-$version-windows-x64.msi
narrow=FetchKit-$version-windows-x86.msi

installs() {
  msi /i "$wide" /qn
  entries >"$work/installed"
  file '^Program Files/FetchKit/x86/FetchKit.dll$' || { files_of; return 1; }
  ! files_of | grep include && logs_in
}
# What the tables of the installer enter is what the DLLs of that size enter themselves; Wine's own
# entering of a type library adds what Windows does not (a second proxy, a flag of the loaded file).
as_regsvr32() {
  local dll keys='s/[CZ]:[^"]*\\(FetchKit[A-Za-z]*\.dll)"/\1"/'
  local others='HELPDIR\|win32\|Wow6432Node\|CurrentVersion..Uninstall\|ProxyStubClsid\]\|FLAGS\] @'
  for dll in FetchKit FetchKitHost; do
    (cd "$work/FetchKit-$version-windows-x64" && wine regsvr32 /s $dll.dll)
  done
  diff <(grep -v "$others" "$work/installed" | sed -E "$keys") <(entries | grep -v "$others" | sed -E "$keys")
  local status=$?
  for dll in FetchKit FetchKitHost; do
    (cd "$work/FetchKit-$version-windows-x64" && wine regsvr32 /s /u $dll.dll)
  done
  return $status
}
nothing_left() {
  local left
  left=$(files_of)
  diff "$work/before" <(entries) && [[ -z $left ]]
}
removes() {
  msi /x "$wide" /qn
  nothing_left
}
# One size and what developers need, by name.
features() {
  msi /i "$wide" /qn ADDLOCAL=FetchKit,LibraryX86,Development
  file '/include/FetchKit.h$' && file 'x86/FetchKit.dll$' &&
    ! files_of | grep -E 'x64/FetchKit.dll|FetchKitHost.dll' || { files_of; return 1; }
  removes
}
# Wine knows a user's installation by an empty ALLUSERS, Windows by MSIINSTALLPERUSER alone.
for_the_user() {
  msi /i "$wide" /qn MSIINSTALLPERUSER=1 ALLUSERS=
  entries >"$work/user"
  file "AppData/Local/Programs/FetchKit/x64/FetchKit.dll$" || { files_of; return 1; }
  grep -q '^user.reg .*FetchKit.Interface' "$work/user" && ! grep '^system.reg .*FetchKit\.dll' "$work/user" || return 1
  msi /x "$wide" /qn ALLUSERS=
  nothing_left
}
# On a 64-bit Windows the 32-bit package refuses; without that condition it enters what it should.
narrow_package() {
  msi /i "$narrow" /qn
  nothing_left || return 1
  cp "$dist/$narrow" "$work/narrow.msi"
  msibuild "$work/narrow.msi" -q "DELETE FROM \`LaunchCondition\` WHERE \`Condition\` = 'Installed OR NOT VersionNT64'"
  (cd "$work" && wine msiexec /i narrow.msi /qn)
  entries | grep -F 'Wow6432Node\\CLSID\\{875736B0-253A-4530-AC9E-1D5FFF52D80C}\\InprocServer32] @="C:\\Program Files (x86)\\FetchKit\\x86\\FetchKit.dll"' || return 1
  (cd "$work" && wine msiexec /x narrow.msi /qn)
  nothing_left
}

# A throwaway certificate signs a DLL and an installer; a changed byte is noticed.
signs() {
  local file key=$work/key.pem certificate=$work/certificate.pem
  openssl req -x509 -newkey rsa:2048 -nodes -days 30 -subj "/CN=Throwaway" -keyout "$key" -out "$certificate" \
    -addext extendedKeyUsage=codeSigning || return 1
  for file in "$work/FetchKit-$version-windows-x64/FetchKit.dll" "$dist/$wide"; do
    cp "$file" "$work/to-sign" &&
      FETCHKIT_SIGN_CERTIFICATE=$certificate FETCHKIT_SIGN_KEY=$key tools/package/sign.sh "$work/to-sign" &&
      osslsigncode verify -CAfile "$certificate" -in "$work/to-sign" || return 1
    printf X | dd of="$work/to-sign" bs=1 seek=100000 conv=notrunc status=none
    ! osslsigncode verify -CAfile "$certificate" -in "$work/to-sign" || return 1
  done
  cat >"$work/own.sh" <<'SH'
#!/bin/sh
echo "signed" >>"$1"
SH
  chmod +x "$work/own.sh"
  cp LICENSE "$work/to-sign"
  FETCHKIT_SIGN_COMMAND=$work/own.sh tools/package/sign.sh "$work/to-sign" && tail -1 "$work/to-sign" | grep -x signed
}

check "the same bytes twice" same_bytes
check "the archives unpack" unpack
for each in windows-x64 windows-x86 linux-x64; do
  check "sums, bill of materials and notice of $each" described "$work/FetchKit-$version-$each"
  check "no path of the build machine in $each" no_path_of_the_build "$work/FetchKit-$version-$each"
done
for each in x64 x86; do
  check "the DLLs for $each import the system's alone" \
    tools/check-imports.sh $each "$work/FetchKit-$version-windows-$each"/*.dll
done
check "find_package(FetchKit) on the unpacked archive" linux_program
check "a Wine prefix" prefix
check "a program on the unpacked 64-bit archive" windows_program x64 x86_64-w64-mingw32-g++-posix
check "a program links with the unpacked 32-bit archive" windows_program x86 i686-w64-mingw32-g++-posix
check "installs for the machine, and a script logs in" installs
check "removes everything" removes
check "enters what regsvr32 enters" as_regsvr32
check "leaves no key behind" nothing_left
check "installs what is asked for alone" features
check "installs for the user, and removes it" for_the_user
check "the 32-bit installer" narrow_package
check "signs, and verifies" signs

echo "$passed passed, $failed failed"
((failed == 0))
