#!/usr/bin/env python3
"""The examples of docs/reference as one script and one C++ program, and what they printed.

Usage: tools/reference/examples.py SCRIPT.vbs, or PROGRAM.cpp. The script is for cscript, in code page
936; its output is kept as docs/reference/examples.txt, that of the program as examples-cpp.txt, and
both are shown on the pages.
"""
import re
import sys
from pathlib import Path

# The names that examples know the objects by.
OBJECTS = {
    "Interface": "fetch", "Activity": "activity", "Utility": "utility", "ListSet": "list",
    "Business": "business", "Organization": "organization", "Operator": "loginOperator",
    "CustomerSs": "customer", "OperatorRight": "rights", "OrganizationRight": "allotted",
    "TypeDef": "types", "Diagnostics": "diagnostics",
}

# At a server of another name it is an account that the library has not seen: nothing is cached, and
# every statement of an example is seen. The records show the sample account as it is.
FRESH = ("Activity", "ListSet", "OperatorRight", "OrganizationRight")

HEAD = '''
Dim host, fetch, activity, utility, list, business, organization, loginOperator, customer
Dim rights, allotted, types
Set host = CreateObject("FetchKitHost.Sample")
Set fetch = CreateObject("FetchKit.Interface")
Set utility = CreateObject("FetchKit.Utility")
Set types = CreateObject("FetchKit.TypeDef")

Function Shown(value)
  Dim i
  Select Case VarType(value)
    Case 1 Shown = "Null"
    Case 7 Shown = Year(value) & "-" & Right("0" & Month(value), 2) & "-" & Right("0" & Day(value), 2)
    Case 11
      Shown = "False"
      If value Then Shown = "True"
    Case 8 Shown = Replace(value, Chr(0), "\\0")
    Case Else Shown = CStr(value)
  End Select
End Function

Sub Print(value)
  host.WriteLine Shown(value)
End Sub

Sub Begin(name, server)
  fetch.Initialize host.Connection("main", server)
  Set activity = fetch.Activity
  Set list = CreateObject("FetchKit.ListSet")
  Set business = fetch.Business
  Set organization = fetch.LoginOrganization
  Set loginOperator = fetch.LoginOperator
  Set customer = fetch.CustomerSs
  Set rights = fetch.LoginOperatorRight
  Set allotted = fetch.LoginOrganizationRight
  host.WriteLine "== " & name
  host.ForgetStatements
End Sub

Sub Finish(number, description)
  Dim i
  If number <> 0 Then host.WriteLine "raises " & number & ": " & description
  For i = 1 To host.StatementCount
    host.WriteLine "? " & host.StatementText(i)
  Next
End Sub
'''


CPP_HEAD = """
#include <fetchkit/FetchKit.h>

#include <cstdio>

#include "demo/SampleHost.h"

using namespace fetchkit;

namespace {

void Print(TextView text) { std::printf("%s\\n", ToUtf8(text).c_str()); }
"""


def is_run(text):
    return "not run by the tests" not in text


def recorded(path):
    """What each example printed, and the statements that it sent."""
    records = {}
    for line in path.read_text(encoding="utf-8").splitlines() if path.exists() else []:
        if line.startswith("== "):
            printed, sent = records.setdefault(line[3:], ([], []))
        elif line.startswith("? "):
            sent.append(line[2:] + ";")
        elif line != "end":
            printed.append(line)
    return records


def script(notes):
    parts = [HEAD]
    number = 0
    for note in notes:
        for member, (_, _, text) in note.members.items():
            if not text or not is_run(text):
                continue
            number += 1
            server = f"DBSRV{number}" if note.title in FRESH else ""
            parts.append(f'Begin "{note.title}.{member}", "{server}"\nExample{number}\n'
                         f"Sub Example{number}()\n  On Error Resume Next\n"
                         f"{text}\n  Finish Err.Number, Err.Description\nEnd Sub\n")
    parts.append('host.WriteLine "end"')  # an error of the script itself ends it silently
    return "\n".join(parts)


def program(notes):
    parts, calls = [CPP_HEAD], []
    for note in notes:
        if note.cpp:
            parts.append(f"void Example{note.title}([[maybe_unused]] Interface& fetch,\n"
                         f"    [[maybe_unused]] const SessionConnectionPtr& connection) {{\n{note.cpp}\n}}\n")
            calls.append(f'  Print(u"== {note.title}");\n  Example{note.title}(fetch, host.connection());')
    calls = "\n".join(calls)
    parts.append("}  // namespace\n\nint main() {\n  demo::SampleHost host;\n  host.Switch(\"main\");\n"
                 f"  Interface fetch;\n  fetch.Initialize(host.connection());\n{calls}\n}}\n")
    return "\n".join(parts)


def main():
    sys.dont_write_bytecode = True
    import make  # which needs OBJECTS of this file
    import typelib
    notes = make.notes_of(typelib.Library(make.ROOT / "component/FetchKit.idl"))
    target = Path(sys.argv[1])
    if target.suffix == ".cpp":
        target.write_text(program(notes.values()), encoding="utf-8")
    else:
        target.write_bytes(script(notes.values()).replace("\n", "\r\n").encode("gbk"))


if __name__ == "__main__":
    main()
