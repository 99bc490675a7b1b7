#!/usr/bin/env python3
"""Holds the samples against the interface definitions: every member that one calls is there and takes
that many arguments, what a class implements is whole, and Python can be compiled.

Usage: tools/check-samples.py, from the project's root. It cannot see what only a run shows.
"""
import re
import sys
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tools/reference"))
import typelib  # noqa: E402

LIBRARY = typelib.Library(ROOT / "component/FetchKit.idl", ROOT / "hosts/windows/FetchKitHostLibrary.idl")
HOST = typelib.Library(ROOT / "component/FetchKitHost.idl")

# What the samples call their objects; a name of another object must not be one of these.
OBJECTS = {
    "fetch": "IInterface", "fetch1": "IInterface", "fetch()": "IInterface", "entry": "IInterface",
    "activity": "IActivity", "utility": "IUtility", "rights": "IOperatorRight", "list": "IListSet",
    "list_set": "IListSet", "host": "ISampleHost", "host1": "ISampleHost", "mhost": "ISampleHost",
}
VISUAL_BASIC = (".vbs", ".bas")
wrong = []


def arguments(text, basic):
    """How many arguments stand behind a member's name; None where there is no call."""
    if basic and re.match(r"[ \t]+(?![=<>&+)-]|Then\b|And\b|Or\b)\S", text):
        text = "(" + text.split("\n")[0].split("'")[0].strip() + ")"
    if not text.startswith("("):
        return None
    depth, count, some, quoted = 0, 1, False, ""
    for sign in text:
        if quoted:
            quoted = "" if sign == quoted else quoted
        elif sign in "\"'":
            quoted, some = sign, True
        elif sign in "([{":
            depth += 1
        elif sign in ")]}":
            depth -= 1
            if not depth:
                return count if some else 0
        elif sign == "," and depth == 1:
            count += 1
        some = some or (depth >= 1 and sign not in "( ")
    return None


def check_calls(path, text):
    code = re.sub(r"^[ \t]*('|//|#).*$", "", text, flags=re.M)
    calls = 0
    for match in re.finditer(r"(?<![\w.])\$?([A-Za-z]\w*(?:\(\))?)((?:\.[A-Za-z]\w*)+)", code):
        owner = OBJECTS.get(match[1].lower())
        names = match[2][1:].split(".")
        for at, name in enumerate(names):
            if owner is None:
                break
            known = {each.lower(): each for each in LIBRARY.interfaces[owner].names()}
            exact = known.get(name.lower()) if path.suffix in VISUAL_BASIC else \
                name if name in known.values() else None
            where = f"{path.relative_to(ROOT)}: {match[1]}{match[2]}"
            if exact is None:
                wrong.append(f"{where}: {owner} has no {name}")
                break
            calls += 1
            member = LIBRARY.interfaces[owner].member(exact)
            if at + 1 == len(names):
                given = arguments(code[match.end():], path.suffix in VISUAL_BASIC)
                most = len(member.arguments)
                least = sum(not each.optional and each.default is None for each in member.arguments)
                if not least <= (given or 0) <= most:
                    wrong.append(f"{where}: takes {least} to {most} arguments and gets {given or 0}")
            owner = member.result if member.result in LIBRARY.interfaces else None
    return calls


def check_implements(path, text):
    """Every member of what a class implements, with the types that the interface declares."""
    text = re.sub(r" _\r?\n\s*", " ", text)
    for name in re.findall(r"^Implements (\w+)", text, re.M):
        if name not in HOST.interfaces:
            wrong.append(f"{path.relative_to(ROOT)}: there is no interface {name}")
            continue
        for member in HOST.interfaces[name].members:
            declared = re.search(rf"^Private (?:Function|Sub|Property Get) {name}_{member.name}\((.*)\)"
                                 r"(?: As ([\w.]+))?\s*$", text, re.M)
            if not declared:
                wrong.append(f"{path.relative_to(ROOT)}: {name}_{member.name} is missing")
                continue
            given = re.findall(r"(ByVal|ByRef) \w+ As (\w+)", declared[1])
            wanted = [("ByRef" if each.out else "ByVal", typelib.vba_type(each.type))
                      for each in member.arguments]
            result = typelib.vba_type(member.result) if member.result else None
            # An interface keeps its own name in VBA.
            result = member.result if member.result in HOST.interfaces else result
            if given != wanted or declared[2] != result:
                wrong.append(f"{path.relative_to(ROOT)}: {name}_{member.name} is not declared as the "
                             f"interface does: {wanted} {result}")


checked = 0
for path in sorted(each for each in (ROOT / "samples").rglob("*") if each.is_file()):
    content = path.read_bytes()
    text = content.decode("utf-8")
    if path.suffix in (".bas", ".cls") and content.count(b"\n") != content.count(b"\r\n"):
        wrong.append(f"{path.relative_to(ROOT)}: VBA imports lines that end in CR LF alone")
    if path.suffix in (".bas", ".cls", ".vbs", ".js", ".ps1") and not text.isascii():
        wrong.append(f"{path.relative_to(ROOT)}: not ASCII, so it reads differently by code page")
    if path.suffix == ".py":
        compile(text, str(path), "exec")
    if path.suffix in (".bas", ".cls", ".ps1", ".py", ".cs") and \
            not re.search(r"Checked against the (type library|interface definitions), not run", text):
        wrong.append(f"{path.relative_to(ROOT)}: does not say that it is checked and not run")
    if path.suffix in (".vbs", ".js", ".ps1", ".py", ".cs", ".bas"):
        calls = check_calls(path, text)
        checked += calls
        if not calls:
            wrong.append(f"{path.relative_to(ROOT)}: calls nothing that could be checked")
    if path.suffix == ".cls":
        check_implements(path, text)
print("\n".join(wrong) or f"{checked} calls")
sys.exit(bool(wrong))
