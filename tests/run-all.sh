#!/usr/bin/env bash
# Runs the test binaries and the checks of the tree; the last line counts them all together.
# Usage: tests/run-all.sh BUILD-FOLDER [WINDOWS-FOLDER], from the project's root; the folders are made
# by the presets "test" and "component-x64".
set -uo pipefail
build=$1
windows=${2:-}
passed=0
failed=0
unset FETCHKIT_ODBC FETCHKIT_ENGINE  # the tests never touch a user's own database

# A test binary: its own report counts its tests.
binary() {
  local report=$build/$1.xml
  rm -f "$report"
  "$build/tests/$1" --gtest_brief=1 "--gtest_output=xml:$report" </dev/null
  local status=$? line tests failures
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

# A check: its output is shown only when it fails.
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

# Only the rims may know an operating system's header.
no_windows_headers() {
  ! git ls-files -co --exclude-standard -- 'src/*' 'hosts/*' 'tests/*' 'demo/*' 'bench/*' 'tools/*' |
    grep -E '\.(h|cpp)$' | grep -vE '^(tests/component|demo/windows|hosts/(odbc|windows))/' |
    xargs grep -niE '#\s*include\s*[<"](windows|ole2|oleauto|objbase|unknwn|commctrl|ocidl|winuser|windef|winbase)[a-z]*\.h'
}

# Hosts are libraries for add-ins: nothing of the demo is in them, and what they share knows no host.
# FetchKitHost.dll alone stands on the component's floor and takes the sample accounts along.
hosts_stand_alone() {
  ! grep -rnE '#include "(demo|component|tests)/' hosts --exclude-dir=windows &&
    ! grep -rnE '#include "(demo/commands|tests)/' hosts/windows &&
    ! grep -rnE '#include ("hosts/(sqlite|odbc|windows)/|<.*\.h>)' hosts/shared hosts/dialect
}

# A thread_local object with a destructor keeps a Windows DLL from being unloaded.
plain_thread_slot() {
  ! grep -rn thread_local src --include='*.h' --include='*.cpp' |
    grep -vE '^[^:]*:[0-9]+:\s*//' | grep -v 'constinit thread_local void\*'
}

core_includes() {
  # Everything in angle brackets under src/ is a header of the standard library; the two C library
  # headers stand in the portable platform's own files.
  ! grep -rnE '#include <[a-z_0-9/]+\.(h|hpp)>' src --include='*.h' --include='*.cpp' |
    grep -vE '^src/fetchkit/(platform/CodePage\.cpp:[0-9]+:#include <iconv\.h>|base/PortableThreadSlot\.cpp:[0-9]+:#include <threads\.h>|base/Scan(Avx2)?\.cpp:[0-9]+:#include <(emm|imm)intrin\.h>)'
}

# An include points to the same floor or down, file by file. The floors are those that ARCHITECTURE.md
# draws: a number, then the folders that stand on it; the longest folder that fits counts.
includes_point_down() {
  awk '
    FILENAME == "ARCHITECTURE.md" {
      if ($1 ~ /^[1-9]$/) for (i = 2; $i ~ /\/$/; ++i) floors[$i] = $1
      next
    }
    function floor(path,   folder, found, longest) {
      sub(/^fetchkit\//, "", path)
      if (path !~ /\//) return 10  # FetchKit.h lies over all of them
      for (folder in floors)
        if (index(path, folder) == 1 && length(folder) > longest) {
          longest = length(folder)
          found = floors[folder]
        }
      return found
    }
    /^#include "/ {
      from = FILENAME; sub(/^src\//, "", from)
      to = $2; gsub(/"/, "", to)
      if (!floor(from) || !floor(to) || floor(to) > floor(from)) { print FILENAME ": " $0; bad = 1 }
    }
    END { exit bad || !length(floors) }' ARCHITECTURE.md \
    $(git ls-files -co --exclude-standard -- 'src/*.h' 'src/*.cpp')
}

# Clang's own warnings and clang-tidy's, of which the analyzer is left out: it takes twice as
# long as all the others together.
clang_finds_nothing() {
  git ls-files -co --exclude-standard -- 'src/*.cpp' | xargs ls -S |
    xargs -P "$(nproc)" -I FILE clang-tidy --quiet --warnings-as-errors='*' --checks='-clang-analyzer-*' \
      FILE -- -std=c++20 -Isrc -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wreserved-identifier |&
    sed '/ warnings* generated\.$/d'
}

# What a document is made of: its headings and points, the size of each table, and its blocks of code
# without their comments.
shape() {
  awk '
    /^```/ { inside = !inside; print; next }
    inside { sub(/ *(#|\/\/|'"'"') .*/, ""); print "  " $0; next }
    /^#+ / { sub(/ .*/, ""); print }
    /^(- |[0-9]+\. )/ { print "a point" }
    /^\|/ { ++rows; columns = gsub(/\|/, "") - 1; next }
    rows { print "table of", rows, "rows and", columns, "columns"; rows = 0 }
    END { if (rows) print "table of", rows, "rows and", columns, "columns" }' "$1"
}
chinese_twins() {
  local page
  for page in docs/component docs/hosts; do
    diff <(shape $page.md) <(shape $page.zh-CN.md) || return 1
  done
}

# After a change the new record stands beside the program, to be read and kept.
reference_examples() {
  "$build/tests/fetchkit-reference-examples" >"$build/tests/examples-cpp.txt" &&
    diff docs/reference/examples-cpp.txt "$build/tests/examples-cpp.txt"
}

# The hosts that the READMEs show, built by a project that knows the installed library alone.
consumer() {
  local prefix=$build/installed page
  rm -rf "$prefix" "$build/consumer"
  cmake --install "$build" --prefix "$prefix" >/dev/null &&
    cmake -S tests/consumer -B "$build/consumer" -G Ninja "-DCMAKE_PREFIX_PATH=$PWD/$prefix" &&
    cmake --build "$build/consumer" &&
    for page in README README.zh-CN; do
      [[ $("$build/consumer/$page" | tail -n 1) == "2004-03-17: lngOrganizationID IN (0,0)" ]] || return 1
    done &&
    { [[ ! -x $build/consumer/hosts ]] ||
      [[ $("$build/consumer/hosts") == "no connection: "*"ata source name not found"* ]]; }
}

# What the tests under Wine printed, into the counts.
under_wine() {
  cat "$1"
  if [[ $(tail -1 "$1") =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
    passed=$((passed + BASH_REMATCH[1]))
    failed=$((failed + BASH_REMATCH[2]))
  else
    echo "FAILED: the tests under Wine ended without a count"
    failed=$((failed + 1))
  fi
}

# The host for ODBC on a PostgreSQL and a MariaDB that live until the tests under Wine have used them.
servers() {
  if [[ ! -x $build/tests/fetchkit-server-tests ]]; then
    echo "Left out: the host for ODBC was not built."
    return
  fi
  local strings
  trap 'tools/servers.sh stop "$build/servers"' EXIT
  if tools/servers.sh start "$build/servers" >"$build/servers.log" 2>&1 &&
    strings=$(tools/servers.sh strings "$build/servers") && (($(wc -l <<<"$strings") == 2)); then
    export FETCHKIT_SERVERS=$strings
    binary fetchkit-server-tests
  else
    cat "$build/servers.log"
    echo "FAILED: the database servers did not start"
    failed=$((failed + 1))
  fi
}

# The tests under Wine wait more than they work: the others run meanwhile.
if [[ -n $windows ]]; then
  tests/component/run-wine.sh "$windows" "$build/demo/fetchkit-demo" >"$build/wine.log" &
  wine=$!
  trap 'kill $wine; exit 130' INT TERM
fi
for each in fetchkit-tests fetchkit-demo-tests; do binary "$each"; done
servers
check "formatted" ./run format --check
check "no Windows header outside its rims" no_windows_headers
check "no thread_local with a destructor" plain_thread_slot
check "the core includes the standard library alone" core_includes
check "includes point down" includes_point_down
check "hosts stand alone" hosts_stand_alone
check "clang and clang-tidy find nothing" clang_finds_nothing
check "the reference's C++ examples print what it says" reference_examples
check "the reference: every member with arguments, result and example, no broken link" ./run docs
check "the samples' calls are the type library's" tools/check-samples.py
check "the Chinese documents have the English ones' headings, tables and code" chinese_twins
check "find_package(FetchKit) after cmake --install" consumer
if [[ -n $windows ]]; then
  wait $wine
  under_wine "$build/wine.log"
  # After the others: both write the sample accounts to the servers.
  if [[ -n ${FETCHKIT_SERVERS:-} ]]; then
    tests/component/run-wine.sh "$windows" "$build/demo/fetchkit-demo" hosts >"$build/wine-hosts.log"
    under_wine "$build/wine-hosts.log"
  else
    echo "Left out: FetchKitHost.Odbc under Wine, which needs the host for ODBC and its servers."
  fi
fi
# The build itself has compiled every header alone (target fetchkit-headers).

echo "$passed passed, $failed failed"
((failed == 0))
