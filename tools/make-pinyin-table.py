#!/usr/bin/env python3
"""Writes src/fetchkit/utility/PinyinTable.cpp: the Pinyin initials of the Chinese characters of code
page 936, out of the readings that Debian's package unicode-data brings.

Usage: apt-get install unicode-data; tools/make-pinyin-table.py [FOLDER OF unicode-data]
"""
import bz2
import pathlib
import re
import sys
import unicodedata

TARGET = pathlib.Path(__file__).parent.parent / "src/fetchkit/utility/PinyinTable.cpp"
FOLDER = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "/usr")

# Readings in use: by frequency, the usual one, and those of the two dictionaries of the standard
# language. kHanyuPinyin is left out: it has the readings of two thousand years, 4,000 characters
# would have initials that nobody thinks of.
FIELDS = ("kHanyuPinlu", "kMandarin", "kTGHZ2013", "kXHC1983")
OTHERS = {"〇": "l"}  # the zero, which is no ideograph to the source

readings = {}  # by character, by field
version = ""
for line in bz2.open(FOLDER / "share/unicode/Unihan_Readings.txt.bz2", "rt", encoding="utf-8"):
    if line.startswith("# Unicode version: "):
        version = line.split()[-1]
    if line.startswith("U+"):
        character, field, value = line.rstrip("\n").split("\t")
        if field in FIELDS:
            # "háng(24) xíng(5)", "0123.010:háng,xíng 0456.020:héng", or "shěn chén" of kMandarin,
            # whose second reading is Taiwan's.
            each = re.findall(r"[^\s,:()\d.*]+", value)
            readings.setdefault(chr(int(character[2:], 16)), {})[field] = (
                each[:1] if field == "kMandarin" else each)


def initials(character):
    """The initials of its readings, the commonest first."""
    # Normalized, because the readings of a compatibility ideograph are those of the usual one, and
    # because ê and ń stand for e and n.
    fields = readings.get(unicodedata.normalize("NFC", character), {})
    found = [each for field in FIELDS for each in fields.get(field, [])]
    letters = dict.fromkeys(unicodedata.normalize("NFD", each)[0] for each in found)
    return "".join(letters) or OTHERS.get(character, "")


rows, several = [], []
for lead in range(0x81, 0xFF):
    row = ""
    for trail in range(0x40, 0xFF):
        try:
            character = bytes([lead, trail]).decode("gbk")
        except UnicodeDecodeError:
            character = ""
        letters = initials(character)
        if len(letters) > 1:
            several.append((lead << 8 | trail, letters, character))
        row += letters[0].upper() if len(letters) > 1 else letters or "."
    rows.append((row[:96], row[96:]))

notice = (FOLDER / "share/doc/unicode-data/copyright").read_text(encoding="utf-8")
notice = notice[notice.index("Permission is hereby"):notice.index("Unicode and the Unicode logo")]
with TARGET.open("w", encoding="utf-8") as out:
    print(f"""\
// Generated; changes by hand would be lost. To make it again:
// apt-get install unicode-data && tools/make-pinyin-table.py
//
// Made from the readings of the Unicode Character Database (Unihan), version {version}.
//
// Copyright © 1991-2022 Unicode, Inc. All rights reserved.
// Distributed under the Terms of Use in http://www.unicode.org/copyright.html.
//""", file=out)
    for line in notice.strip().split("\n"):
        print(f"// {line.strip()}".rstrip(), file=out)
    print("""
// clang-format off
#include "fetchkit/utility/PinyinTable.h"

namespace fetchkit {

const char* const kPinyinRows[126] = {""", file=out)
    for left, right in rows:
        print(f'  "{left}"\n  "{right}",', file=out)
    print("};\n\nnamespace {\n\nconstexpr PinyinInitials kSeveral[] = {", file=out)
    line = " "
    for code, letters, character in several:
        entry = f' {{0x{code:04X}, "{letters}"}},'
        if len(line + entry) > 100:
            print(line, file=out)
            line = " "
        line += entry
    print(line, file=out)
    print("};\n\n}  // namespace\n\nconst std::span<const PinyinInitials> kPinyinOfSeveral = kSeveral;"
          "\n\n}  // namespace fetchkit", file=out)
