#!/usr/bin/env python3
"""Doxygen's input filter: makes the headers' plain comments into ones that it reads.

A comment in front of something documents it; one behind it, with the lines that go on under it,
documents what stands on its left.
"""
import re
import sys


def is_code(text):
    return bool(text.strip())


def filtered(lines):
    column = None  # of the comment behind the code in the line before
    for line in lines:
        own = None if "NOLINT" in line else re.match(r"( *)//( .*|)$", line)
        behind = re.match(r"(.*?[;,{}(] *)// (.*)$", line)
        if own and column is not None and len(own[1]) == column:
            line = f"{own[1]}///<{own[2]}"
        elif own:
            column = None
            line = f"{own[1]}///{own[2]}"
        elif behind and is_code(behind[1]) and not behind[2].startswith("NOLINT"):
            column = len(behind[1])
            line = f"{behind[1]}///< {behind[2]}"
        else:
            column = None
        yield line


with open(sys.argv[1], encoding="utf-8") as source:
    text = source.read().splitlines()
# What stands in front of "#pragma once" is about the whole file; make.py reads it by itself. No line is
# added or taken away: it also looks at the header by the numbers that Doxygen gives.
end = next((i for i, line in enumerate(text) if not line.startswith("//")), 0)
print("\n".join([*text[:end], *filtered(text[end:])]))
