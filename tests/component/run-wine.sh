#!/usr/bin/env bash
# Runs the Windows component under Wine; the last line counts tests and checks.
# Usage: tests/component/run-wine.sh BUILD-FOLDER DEMO [hosts], from the project's root. The folder is
# made by the preset "component-x64", with the 32-bit build, or its DLL alone, in "../x86" beside it;
# DEMO is the console demo, with which the sample script is compared.
#
# hosts: instead of all the rest FetchKitHost.Odbc and FetchKitDemo.exe on databases, through the
# system's driver manager: SQLite's driver, and the servers that FETCHKIT_SERVERS tells of (a line each:
# engine, a tab, connection string), to which the sample accounts are written.
#
# Usage: tests/component/run-wine.sh BUILD-FOLDER --wine32 FOLDER, for the preset "component-x86" with its
# tests, in the 32-bit Wine that tools/wine32.sh has made in FOLDER: without the console demo's checks.
set -uo pipefail
build=$(realpath "$1")
demo=
wine32=
if [[ $2 == --wine32 ]]; then wine32=$(realpath "$3"); else demo=$(realpath "$2"); fi
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
passed=0
failed=0
unset FETCHKIT_ODBC  # the tests never touch a user's own database

# Everything of Wine's stays in the build folder. The locale chooses code page 936; it needs not be
# generated for that, of which bash would complain at every start.
export WINEPREFIX=$build/wine WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe="
if [[ -n $wine32 ]]; then
  export WINEARCH=win32
  wine=("$here/../../tools/wine32.sh" "$wine32" wine)
  server=("$here/../../tools/wine32.sh" "$wine32" server)
else
  wine=("$(command -v wine64 || command -v /usr/lib/wine/wine64 || command -v wine)")
  server=("$(command -v wineserver || command -v /usr/lib/wine/wineserver64)")
fi
# On a busy machine the system's own starter now and then cannot start a program, and says so in
# place of the program's output: that is tried again, and told.
wine() {
  local output=$build/wine.out try status
  for try in 1 2 3; do
    (cd "$build" && timeout --kill-after=10 300 env LC_ALL=zh_CN.UTF-8 "${wine[@]}" "$@" </dev/null 2>/dev/null) >"$output"
    status=$?
    grep -qa '^ShellExecuteEx ' "$output" || break
    echo "Wine did not start $1 (try $try of 3)" >&2
  done
  tr -d '\r' <"$output"
  return $status
}
server() { timeout 60 "${server[@]}" "$@"; }

# One X server for all of it; without one, Wine draws into nothing.
if [[ -z ${FETCHKIT_X_SERVER:-} ]]; then
  export FETCHKIT_X_SERVER=none
  if command -v xvfb-run >/dev/null; then
    FETCHKIT_X_SERVER=xvfb exec xvfb-run -a -s "-screen 0 1920x1200x24" "${BASH_SOURCE[0]}" "$@"
  fi
fi
# All of it inside the folder's own view of the system.
if [[ -n $wine32 && -z ${FETCHKIT_BOUND:-} ]]; then
  FETCHKIT_BOUND=yes exec "$here/../../tools/wine32.sh" "$wine32" run "${BASH_SOURCE[0]}" "$@"
fi
trap 'server -k >/dev/null 2>&1' EXIT

say() {
  if [[ $1 == 0 ]]; then
    passed=$((passed + 1))
    echo "ok: $2"
  else
    failed=$((failed + 1))
    printf 'FAILED: %s\n%s\n' "$2" "${3:-}"
  fi
}
check() {
  local name=$1 output status
  shift
  output=$("$@" 2>&1)
  status=$?
  say $status "$name" "$output"
}

# A test binary, or those of its tests that a filter names: its own report counts them.
binary() {
  local report=$build/$1.xml line tests failures status
  rm -f "$report"
  wine "$1.exe" --gtest_brief=1 "--gtest_output=xml:$1.xml" "--gtest_filter=${2:-*}"
  status=$?
  line=$(grep -m1 '<testsuites ' "$report" 2>/dev/null)
  tests=$(sed -n 's/.*tests="\([0-9]*\)".*/\1/p' <<<"$line")
  failures=$(sed -n 's/.*failures="\([0-9]*\)".*/\1/p' <<<"$line")
  if [[ -z $tests || $tests == 0 || ($status != 0 && $failures == 0) ]]; then
    echo "$1 died or ran nothing (exit status $status)"
    failed=$((failed + 1))
    return
  fi
  failed=$((failed + failures))
  passed=$((passed + tests - failures))
}

# The classes in the registry, machine's and user's: one line for each key and value. The server
# writes them when it ends, which by itself it does only after some seconds.
entries() {
  server -k
  server -w
  awk '
    /^\[/ { key = $0; sub(/\] [0-9]+$/, "]", key); print FILENAME, key; next }
    /^["@]/ { print FILENAME, key, $0 }
  ' "$WINEPREFIX"/{system,user}.reg | sed "s|^$WINEPREFIX/||" |
    grep -iE '^(system|user)\.reg \[software\\\\classes\\\\' | sort
}

windows_path() { echo "Z:${here//\//\\}\\$1"; }

prepare() {
  if [[ ! -f $WINEPREFIX/.ready ]]; then
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    if [[ -n $wine32 ]]; then
      # Not one of Wine's own; a system with all of its packages would have it elsewhere.
      mkdir -p "$WINEPREFIX/drive_c/windows/system32"
      cp "$wine32/root/usr/i686-w64-mingw32/lib/zlib1.dll" "$WINEPREFIX/drive_c/windows/system32"
    fi
    wine wineboot -i
    # What Windows always has, and what the script host enters for itself at its first start; then
    # fonts that every Windows has: one with Chinese characters, and the signs on title bars.
    cat >"$build/prefix.reg" <<'REG'
REGEDIT4

[HKEY_CURRENT_USER\Software\Classes\CLSID]

[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\FontSubstitutes]
"MS Shell Dlg"="WenQuanYi Micro Hei"
"MS Shell Dlg 2"="WenQuanYi Micro Hei"
"Tahoma"="WenQuanYi Micro Hei"

[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Managed"="N"
REG
    wine reg import prefix.reg
    wine cscript //nologo "$(windows_path late-bound.vbs)"
    cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts"
    server -w
    [[ -f $WINEPREFIX/system.reg ]] && touch "$WINEPREFIX/.ready"
  fi
  local graphics=x11
  [[ $FETCHKIT_X_SERVER == xvfb ]] || graphics=null
  wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d $graphics /f
}

# The version with its mark for registration, the type library, and the marks of a hardened image.
resources() {
  local image texts headers
  for image in "$@"; do
    texts=$(strings -el "$image")
    headers=$(objdump -p "$image")
    if ! [[ $texts == *OLESelfRegister* && $texts == *ProductVersion* &&
      $headers == *DYNAMIC_BASE* && $headers == *NX_COMPAT* ]] || ! grep -qaF MSFT "$image"; then
      echo "$image lacks one of them"
      return 1
    fi
  done
}

# A script whose last line must say so.
script() {
  local output
  output=$(wine cscript //nologo "$(windows_path "$1")")
  echo "$output"
  [[ ${output##*$'\n'} == "0 $2 failed" ]]
}

# Every example of the reference prints and sends what its page says; after a change the new record
# stands beside the DLL, to be read and kept.
examples_of_the_reference() {
  tools/reference/examples.py "$build/reference.vbs" || return 1
  wine cscript //nologo reference.vbs >"$build/examples.txt"
  diff docs/reference/examples.txt "$build/examples.txt"
}
# Each sample that can be run prints what stands beside it.
samples_print() {
  local samples="Z:${here//\//\\}\\..\\..\\samples"
  diff samples/prints.txt <(wine cscript //nologo "$samples\\vbscript\\First.vbs") &&
    diff samples/jscript/First.txt <(wine cscript //nologo "$samples\\jscript\\First.js") &&
    diff samples/prints.txt <(wine SampleFirst.exe)
}
sample_without_registration() { diff samples/prints.txt <(wine SampleFirstUnregistered.exe); }

# How often the DLL, and how often its names with their class, stand in a part of these entries.
registered() {
  grep -c "^$2.reg .*\\(FetchKit\\.dll\"$\\|\\\\FetchKit\\.[A-Za-z]*\\\\\\\\CLSID\\] @=\\)" <<<"$1"
}

# Six classes with their names, and the type library.
registered_for_machine() {
  local after
  wine regsvr32 /s FetchKit.dll
  after=$(entries)
  grep FetchKit <<<"$after"
  [[ $(registered "$after" system) -eq 13 && $(registered "$after" user) -eq 0 ]]
}
# Wine enters a user's type library for the machine; the classes must be the user's alone.
registered_for_user() {
  local after
  wine regsvr32 /s /n /i:user FetchKit.dll
  after=$(entries)
  grep FetchKit <<<"$after"
  [[ $(registered "$after" system) -le 1 && $(registered "$after" user) -ge 12 ]]
}
unregistered() {
  wine regsvr32 /s /u "$@" FetchKit.dll
  local difference
  difference=$(diff <(echo "$before") <(entries)) || { head -20 <<<"$difference"; return 1; }
}
# Whether what is printed here is what the console demo prints for these words; PROGRAM... "for" WORD...
same_as_the_demo() {
  local program=() wanted
  while [[ $1 != for ]]; do program+=("$1") && shift; done
  shift
  wanted=$("$demo" "$@" </dev/null) || return 1
  [[ -n $wanted ]] && diff <(echo "$wanted") <(wine "${program[@]}" "$@")
}
# Its windows are asked to close, which is Cancel, until the program has ended.
filter_opens_windows() {
  local output closing
  (for _ in {1..60}; do sleep 1; "$wine" taskkill /im FetchKitDemo.exe; done) >/dev/null 2>&1 &
  closing=$!
  output=$(wine FetchKitDemo.exe filter)
  kill $closing
  echo "$output"
  grep -q $'^ShowFilter\tFalse$' <<<"$output" && grep -q '^[0-9]* of [0-9]* rows$' <<<"$output" &&
    grep -q $'^bOk\tFalse$' <<<"$output"
}
# The resolution of the screen in dots per inch, for the programs that start after it.
resolution() {
  wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f
  server -k
  server -w
}
# Every state of the dialogs, at every scaling, copied to where one looks for them.
pictures() {
  local picture dots
  rm -rf build/pictures
  cp -r "$build/pictures" build/pictures
  for picture in build/pictures/*[^0].png; do
    for dots in "${scalings[@]}"; do
      ls "${picture%.png}-$((dots * 100 / 96)).png" || return 1
    done
  done
}

# load ENGINE: by the program under Wine.
load() { wine FetchKitDemo.exe load --replace --engine "$1" | grep '^[0-9]* tables with [0-9]* rows '; }
by_script() {
  local output
  output=$(wine cscript //nologo host.vbs "$1")
  echo "$output"
  [[ ${output##*$'\n'} == "0 checks failed" ]]
}

check "a Wine prefix" prepare
if [[ ${3:-} == hosts ]]; then
  cp tests/component/host.vbs "$build"
  rm -f "$build"/books.db*
  check "registers FetchKit.dll" wine regsvr32 /s FetchKit.dll
  check "registers FetchKitHost.dll" wine regsvr32 /s FetchKitHost.dll
  while IFS=$'\t' read -r engine string; do
    export FETCHKIT_ODBC=$string
    check "FetchKitDemo.exe writes the sample accounts to $engine" load "$engine"
    check "a script with FetchKitHost.Odbc on $engine" by_script "$engine"
    for each in login "list --view 102 --rows 1000"; do
      # shellcheck disable=SC2086
      check "FetchKitDemo.exe prints the demo's $each on $engine" \
        same_as_the_demo FetchKitDemo.exe for $each --engine "$engine"
    done
  done < <(printf 'sqlite\tDriver=SQLite3;Database=%s/books.db\n' "$build"
    [[ -z ${FETCHKIT_SERVERS:-} ]] || echo "$FETCHKIT_SERVERS")
  check "removes FetchKitHost.dll" wine regsvr32 /s /u FetchKitHost.dll
  check "removes FetchKit.dll" wine regsvr32 /s /u FetchKit.dll
  echo "$passed passed, $failed failed"
  exit $((failed > 0))
fi
if [[ -n $wine32 ]]; then
  libraries=("$build/FetchKit.dll")
  check "the images import the system's DLLs alone" tools/check-imports.sh x86 "$build"/*.dll "$build"/*.exe
else
  x86=$build/../x86
  for each in x64 x86; do
    mapfile -t programs < <(compgen -G "$build/../$each/*.exe")
    check "the images for $each import the system's DLLs alone" \
      tools/check-imports.sh $each "$build/../$each"/*.dll "${programs[@]}"
  done
  mapfile -t libraries < <(ls -d "$build"/FetchKit*.dll "$x86"/FetchKit*.dll 2>/dev/null)
fi
check "type library and version inside ${#libraries[@]} libraries" resources "${libraries[@]}"
binary fetchkit-component-tests
rm -rf "$build/pictures"
mkdir -p "$build/pictures"
binary fetchkit-dialog-tests
# What Wine draws into without a server is too small for the dialogs at these.
scalings=()
[[ $FETCHKIT_X_SERVER == none || -n $wine32 ]] || scalings=(144 192)
for dots in "${scalings[@]}"; do
  check "a screen of $dots dots per inch" resolution $dots
  binary fetchkit-dialog-tests '*AUserSets*:*AreChosen*:*Smallest*:RealInput.*'
done
if [[ -z $wine32 ]]; then
  check "a screen of 96 dots per inch" resolution 96
  check "pictures of the dialogs in build/pictures" pictures
fi
# What an interrupted run may have left.
wine regsvr32 /s /u FetchKit.dll
wine regsvr32 /s /u /n /i:user FetchKit.dll
before=$(entries)
check "a sample runs without registration" sample_without_registration
for each in FetchKit FetchKitHost; do wine regsvr32 /s $each.dll; done
check "the reference's examples print what it says" examples_of_the_reference
check "the samples print what stands beside them" samples_print
for each in FetchKit FetchKitHost; do wine regsvr32 /s /u $each.dll; done
check "registers for the machine" registered_for_machine
check "a script drives it" script late-bound.vbs "late-bound checks"
check "a script is its host" script script-host.vbs "checks of a script's host"
if [[ -n $demo ]]; then
  cp demo/windows/sample.vbs "$build"
  check "enters FetchKitHost.dll" wine regsvr32 /s FetchKitHost.dll
  for each in dates rights format; do
    check "a script on the sample accounts prints the demo's $each" \
      same_as_the_demo cscript //nologo sample.vbs for "$each"
  done
  check "FetchKitDemo.exe opens windows" filter_opens_windows
  for each in dates rights format login list; do
    check "FetchKitDemo.exe prints the demo's $each" same_as_the_demo FetchKitDemo.exe for "$each"
  done
  check "removes FetchKitHost.dll" wine regsvr32 /s /u FetchKitHost.dll
fi
check "leaves no key behind" unregistered
check "registers for the user alone" registered_for_user
check "leaves no key of the user's behind" unregistered /n /i:user

echo "$passed passed, $failed failed"
((failed == 0))
