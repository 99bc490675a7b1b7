#!/usr/bin/env python3
"""Makes the API reference: pages for Sphinx, from the type library, the headers and docs/reference.

Usage: tools/reference/make.py BUILD-FOLDER, from the project's root. Doxygen reads the headers;
docs/reference adds the Chinese names, the examples and what they print. What a page lacks (a
contract, an argument's meaning, an example) is named, and nothing is made then.
"""
import html
import re
import subprocess
import sys
import xml.etree.ElementTree as xml
from pathlib import Path

sys.dont_write_bytecode = True
import examples  # noqa: E402
import typelib  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
NOTES = ROOT / "docs/reference"
SOURCE = ROOT / "src/fetchkit"

# Classes whose contracts stand elsewhere: with the module's functions, or with the classes that
# they are made of.
CONTRACTS = {
    "Activity": ["activity/Identifiers.h", "activity/AccountingPeriods.h", "activity/DateRanges.h",
                 "activity/Formatting.h"],
    "Utility": ["utility/StringHelpers.h", "utility/SqlClauses.h", "utility/CellNames.h",
                "utility/WindowServices.h", "utility/GridAndKeys.h"],
}

# What C++ hosts have besides: page -> (title, headers, each with what is shown of it; empty: all).
CPP_PAGES = {
    "host": ("What a C++ host implements", {
        "host/SessionConnection.h": (), "host/HostContext.h": (), "host/Recordset.h": (),
        "dialogs/FormView.h": (), "platform/Platform.h": ()}),
    "vocabulary": ("Texts, values and dates in C++", {
        "base/Text.h": (), "base/Utf8.h": (), "base/Value.h": (), "base/Date.h": (),
        "base/Error.h": ()}),
    "diagnostics": ("Failures in C++", {
        "session/LoginState.h": (),
        "base/ThreadState.h": ("Severity", "Failure", "DiagnosticsSink", "SetDiagnosticsSink",
                               "ReleaseThread")}),
}


def escaped(text):
    return re.sub(r"([\\`*_{}\[\]<>#|$~])", r"\\\1", " ".join(text.split()))


def block(language, text):
    return f"```{language}\n{text.rstrip()}\n```\n"


def index(*entries):
    lines = "\n".join(f"   single: {each}" for each in entries)
    return block("{eval-rst}", ".. index::\n" + lines)


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + " --- |" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows]) + "\n"


def code(text):
    return f"`{text}`" if text else ""


class Headers:
    """What Doxygen read: the documented members of each class and of each header."""

    def __init__(self, folder):
        self.folder = folder / "xml"
        headers = sorted({str(SOURCE / each) for _, files in CPP_PAGES.values() for each in files} |
                         {str(SOURCE / each) for files in CONTRACTS.values() for each in files} |
                         {str(path) for part in ("session", "activity", "rights", "listset", "utility")
                          for path in (SOURCE / part).glob("*.h")} |
                         {str(path) for path in (SOURCE / "session/model").glob("*.h")} |
                         {str(SOURCE / "listset/model/TypeDef.h")})
        settings = {
            "INPUT": " ".join(headers), "OUTPUT_DIRECTORY": folder, "GENERATE_HTML": "NO",
            "GENERATE_LATEX": "NO", "GENERATE_XML": "YES", "XML_PROGRAMLISTING": "NO",
            "INPUT_FILTER": ROOT / "tools/reference/comments.py", "MARKDOWN_SUPPORT": "NO",
            "AUTOLINK_SUPPORT": "NO", "CASE_SENSE_NAMES": "YES", "QUIET": "YES",
            "WARN_IF_UNDOCUMENTED": "NO", "STRIP_FROM_PATH": ROOT, "ENABLE_PREPROCESSING": "NO",
        }
        subprocess.run(["doxygen", "-"], check=True, text=True, cwd=ROOT,
                       input="\n".join(f"{key} = {value}" for key, value in settings.items()))
        self.members = {}    # (scope, name) -> member elements, in the order of the header
        self.compounds = {}  # qualified name -> element
        self.lines = {}      # header -> its lines
        for path in sorted(self.folder.glob("*.xml")):
            for compound in xml.parse(path).iter("compounddef"):
                if compound.get("kind") in ("class", "struct", "namespace"):
                    self.take(compound)

    def take(self, compound):
        scope = compound.findtext("compoundname")
        self.compounds[scope] = compound
        members = [each for each in compound.iter("memberdef")
                   if each.get("prot") == "public" and each.get("kind") != "friend" and
                   not re.match(r"~|operator=", each.findtext("name"))]
        members.sort(key=lambda each: (each.find("location").get("file"), self.line_of(each)))
        before = None
        for member in members:
            # One comment speaks of all that stand under it without a line between them.
            member.text = self.text_of(member)
            if member.get("kind") == "enum":
                values = [f"- `{each.findtext('name')}`: {self.text_of(each)}"
                          for each in member.findall("enumvalue") if self.text_of(each)]
                member.text = "\n\n".join(each for each in (member.text, "\n".join(values)) if each)
            if not member.text and before is not None and self.adjacent(before, member):
                member.text = before.text
            before = member
            self.members.setdefault((scope, member.findtext("name")), []).append(member)

    @staticmethod
    def line_of(element):
        return int(element.find("location").get("line"))

    def adjacent(self, first, second):
        path = first.find("location").get("file")
        if path != second.find("location").get("file"):
            return False
        if path not in self.lines:
            self.lines[path] = (ROOT / path).read_text(encoding="utf-8").splitlines()
        if "//" in self.lines[path][self.line_of(first) - 1]:
            return False  # a comment behind the code speaks of its own line alone
        between = self.lines[path][self.line_of(first):self.line_of(second) - 1]
        return all(line.strip() and not line.lstrip().startswith("//") for line in between)

    @staticmethod
    def text_of(element):
        """The comment of a class or member as Markdown paragraphs."""
        parts = []
        for kind in ("briefdescription", "detaileddescription"):
            for para in element.find(kind):
                lists = para.findall("itemizedlist")
                own = "".join(para.itertext()) if not lists else (para.text or "")
                if own.strip():
                    parts.append(escaped(own))
                for each in lists:
                    parts.append("\n".join("- " + escaped("".join(item.itertext()))
                                           for item in each.findall("listitem")))
        return "\n\n".join(parts)

    def of_class(self, name):
        return self.compounds.get(f"fetchkit::{name}")

    @staticmethod
    def scopes(name):
        if name == "Utility":
            return [f"fetchkit::{Path(each).stem}" for each in CONTRACTS[name]]
        return [f"fetchkit::{name}"]

    def cpp_alone(self, name, known):
        """Documented members of a class that the type library does not have."""
        return [each for scope in self.scopes(name) for (owner, member), found in self.members.items()
                if owner == scope and member not in known and member != name for each in found
                if each.text and not re.search("Reserved to the library|windows.h", each.text)]

    def find(self, name, member):
        """A public class's member in C++: the declaration and its contract."""
        scopes = self.scopes(name) + (["fetchkit::MActivity"] if name == "Activity" else [])
        found = [each for scope in scopes for each in self.members.get((scope, member), [])]
        return found, next((each.text for each in found if each.text), "")

    @staticmethod
    def declaration(member):
        kind = html.unescape("".join(member.find("type").itertext()))
        # The declared names are as in the header; Doxygen puts blanks around template arguments.
        kind = re.sub(r"\s*([<>])\s*", r"\1", kind).replace(">", "> ").strip()
        kind = re.sub(r"> (?=[>,)&*])", ">", kind)
        text = member.findtext("name") + (member.findtext("argsstring") or "")
        text = re.sub(r"< ", "<", re.sub(r" >", ">", text))
        return f"{kind} {text}".strip()

    def signatures(self, name, members):
        """The declarations, one a line; a stored property reads and writes."""
        lines = []
        for member in members:
            if member.findtext("name") == "SetOperator":
                continue
            if member.get("kind") == "variable":
                kind = re.fullmatch(r"Property<\s*(.*?)\s*>\s*",
                                    "".join(member.find("type").itertext()).strip())
                if kind:
                    shown = re.sub(r"\s+", "", kind[1])
                    lines.append(f"const {shown}& {name}::{member.findtext('name')}()")
                    lines.append(f"void {name}::{member.findtext('name')}({shown} value)")
                    continue
            lines.append(self.declaration(member).replace("Session &session, ", "")
                         .replace("(Session &session)", "()"))
        return list(dict.fromkeys(lines))

    def header_comment(self, path):
        lines = (SOURCE / path).read_text(encoding="utf-8").splitlines()
        end = next(i for i, line in enumerate(lines) if not line.startswith("//"))
        text = "\n".join(line.removeprefix("//").strip() for line in lines[:end])
        return "\n\n".join(escaped(part) for part in text.split("\n\n"))


class Notes:
    """One file of docs/reference: names, introduction, and for each member its name and example."""

    def __init__(self, path):
        text = path.read_text(encoding="utf-8")
        self.title, self.chinese = re.match(r"# (\w+) (.+)\n", text).groups()
        head, *sections = re.split(r"^## ", text.partition("\n")[2], flags=re.M)
        self.members = {}  # name -> (Chinese name, text, example or None)
        for name, chinese in re.findall(r"^\| (\w+) \| ([^|]+) \|$", head, re.M):
            if name != "member":
                self.members[name] = (chinese.strip(), "", f"Print {examples.OBJECTS[self.title]}.{name}")
        cpp = re.search(r"```cpp\n(.*?)\n```\n?", head, re.S)
        self.cpp = cpp[1] if cpp else None
        head = head.replace(cpp[0], "") if cpp else head
        self.introduction = re.sub(r"^\|.*\n?", "", head, flags=re.M).strip()
        for section in sections:
            line, _, rest = section.partition("\n")
            name, chinese = line.split(" ", 1)
            found = re.search(r"```vb\n(.*?)\n```\n?", rest, re.S)
            more = rest.replace(found[0], "") if found else rest
            self.members[name] = (chinese.strip(), more.strip(), found[1] if found else None)


def notes_of(library):
    """The notes on what the type library has; of the rest there is nothing to say yet."""
    notes = {note.title: note for note in map(Notes, sorted(NOTES.glob("classes/*.md")))}
    notes = {name: note for name, note in notes.items() if name in library.classes}
    for name, note in notes.items():
        known = library.of_class(name).names()
        note.members = {each: what for each, what in note.members.items() if each in known}
    return notes


class Statements:
    """The page of all statements: which of them a member may send, how often, on which tables."""

    def __init__(self, path):
        self.text = path.read_text(encoding="utf-8") if path.exists() else ""
        self.of_member = {}  # "Class.Member" -> [(number, how often, tables)]
        rows = re.findall(r"^\| (\d+) \| (.+?) \| (.+?) \| .*\|$", self.text, re.M)
        for number, sent, tables in rows:
            for clause in re.split(r"; (?=`)", sent):
                names, _, often = clause.partition(": ")
                for name in re.findall(r"`(\w+\.\w+)`", names):
                    self.of_member.setdefault(name, []).append((number, often, tables))

    def page(self):
        # Other documents are not among the pages.
        return re.sub(r"\[([^\]]+)\]\((?!#)[^)]*\)", r"\1", self.text)

    def shown(self, member):
        rows = self.of_member.get(member)
        if not rows:
            return ""
        return ("**Statements that it may send**, by their number on the page [of all](statements.md):\n\n" +
                table(["", "how often", "tables"], rows))


class Reference:
    def __init__(self, folder):
        self.statements = Statements(ROOT / "docs/statements.md")
        self.library = typelib.Library(ROOT / "component/FetchKit.idl")
        self.host = typelib.Library(ROOT / "component/FetchKitHost.idl")
        self.headers = Headers(folder)
        self.notes = notes_of(self.library)
        self.meanings = dict(re.findall(r"^\| ([\w.]+) \| (.+) \|$",
                                        (NOTES / "arguments.md").read_text(encoding="utf-8"), re.M))
        self.records = examples.recorded(NOTES / "examples.txt")
        self.cpp_records = examples.recorded(NOTES / "examples-cpp.txt")
        self.lacking = []

    def need(self, what, where, lack):
        if not what:
            self.lacking.append(f"{where}: {lack}")
        return what or ""

    def meaning(self, name, member, argument):
        for key in (f"{name}.{member}.{argument}", argument):
            if key in self.meanings:
                return self.meanings[key]
        return self.need("", f"{name}.{member}", f"no meaning of {argument} in arguments.md")

    def example(self, name, member, before):
        _, _, text = self.notes[name].members[member]
        key = f"{name}.{member}"
        if not self.need(text, key, f"no example in classes/{name}.md"):
            return ""
        parts = [block("vbscript", text)]
        if examples.is_run(text):
            if self.need(key in self.records, key, "its example was never run (examples.txt)"):
                printed, sent = self.records[key]
                if printed:
                    parts.append("It prints\n\n" + block("text", "\n".join(printed)))
                parts.append("It sends\n\n" + block("sql", "\n".join(sent)) if sent else
                             "It sends no statement.\n")
        return "\n\n".join([f"**Example.** {before}".strip(), "\n".join(parts)])

    def member(self, name, interface, member):
        key = f"{name}.{member}"
        note = self.notes[name].members.get(member)
        declared = interface.member(member)
        found, contract = self.headers.find(name, member)
        if not note:
            self.lacking.append(f"{key}: nothing about it in classes/{name}.md")
            return ""
        signature = declared.vba() + ("    ' can be set as well" if interface.writable(member) else "")
        parts = [f"({name.lower()}-{member.lower()})=", f"## {member} {note[0]}",
                 index(f"{member} ({name})", f"{note[0]} ({key})"),
                 escaped(self.need(declared.help, key, "no help string")) + ".",
                 block("vb.net", signature)]
        lines = self.headers.signatures(name, found)
        if lines:
            parts.append(block("cpp", "\n".join(lines)))
        if declared.arguments:
            parts.append(table(["argument", "", "VBA", "meaning"], [
                [code(each.name), "in and out" if each.out else "optional" if each.optional else "in",
                 code(typelib.vba_type(each.type)), self.meaning(name, member, each.name)]
                for each in declared.arguments]))
        result = code(typelib.vba_type(declared.result)) if declared.result else "none"
        parts.append(f"**Result.** {result}.")
        whole = self.headers.of_class(name)
        if not contract and not note[1]:
            self.need(self.notes[name].introduction or
                      (whole is not None and self.headers.text_of(whole)), key,
                      "no contract in its header or in the introduction of its class")
        # What ends in a colon speaks of the example.
        speaks = note[1] if note[1].endswith(":") else ""
        parts += [contract, "" if speaks else note[1], self.statements.shown(key),
                  self.example(name, member, speaks)]
        return "\n\n".join(each for each in parts if each)

    def class_page(self, name):
        interface, creatable = self.library.of_class(name), self.library.classes[name][1]
        note = self.notes.get(name)
        if not note:
            self.lacking.append(f"{name}: no classes/{name}.md")
            return ""
        whole = self.headers.of_class(name)
        parts = [f"({name.lower()})=", f"# {name} {note.chinese}",
                 escaped(interface.help) + ".",
                 f"`CreateObject(\"FetchKit.{name}\")` makes one." if creatable else
                 "Obtained from an [Interface](interface.md).", note.introduction,
                 self.headers.text_of(whole) if whole is not None else ""]
        # What holds for all members of a header.
        parts.append("\n".join(f"- **{Path(path).stem}**: {' '.join(self.headers.header_comment(path).split())}"
                               for path in CONTRACTS.get(name, [])))
        self.need(note.cpp, name, f"no C++ example in classes/{name}.md")
        if self.need(name in self.cpp_records, name, "its C++ example was never run (examples-cpp.txt)"):
            parts += ["**In C++**, where `fetch` is an `Interface` that is logged in:",
                      block("cpp", note.cpp or ""), "It prints",
                      block("text", "\n".join(self.cpp_records[name][0]))]
        if interface.names():
            parts.append(table(["member", "中文", ""], [
                [f"[{each}]({name.lower()}-{each.lower()})", note.members.get(each, [""])[0],
                 escaped(interface.member(each).help)] for each in interface.names()]))
        parts += [self.member(name, interface, each) for each in interface.names()]
        alone = self.headers.cpp_alone(name, interface.names())
        if alone:
            parts += ["## In C++ alone", *self.cpp_members(alone)]
        return "\n\n".join(each for each in parts if each) + "\n"

    def records_page(self):
        parts = ["(records)=", "# Records and enumerations 记录与枚举",
                 (NOTES / "records.md").read_text(encoding="utf-8").strip()]
        chinese = dict(re.findall(r"^\| ([\w.]+) \| (.+) \|$",
                                  (NOTES / "record-names.md").read_text(encoding="utf-8"), re.M))
        for record in self.library.records:
            name = self.need(chinese.get(record.name), record.name, "no Chinese name in record-names.md")
            parts += [f"({record.name.lower()})=", f"## {record.name} {name}", escaped(record.help) + "."]
            rows = []
            for item, kind, meaning in record.items:
                key = f"{record.name}.{item}"
                self.need(meaning, key, "no comment in the type library's source")
                rows.append([code(item), code(kind),
                             self.need(chinese.get(key), key, "no Chinese name in record-names.md"),
                             escaped(meaning)])
            parts.append(table(["", "number" if record.is_enum else "VBA", "中文", ""], rows))
        return "\n\n".join(parts) + "\n"

    def host_page(self):
        parts = ["(host-interfaces)=", "# What a host implements 宿主接口",
                 (NOTES / "host-interfaces.md").read_text(encoding="utf-8").strip()]
        for name, interface in self.host.interfaces.items():
            parts += [f"({name.lower()})=", f"## {name}",
                      index(name), escaped(interface.help)]
            for member in interface.members:
                parts += [f"### {member.name}", block("vb.net", member.vba()), escaped(member.help)]
        return "\n\n".join(each for each in parts if each) + "\n"

    def connections_page(self):
        library = typelib.Library(ROOT / "hosts/windows/FetchKitHostLibrary.idl")
        parts = ["(connections)=", "# FetchKitHost: ready connections 现成的连接",
                 (NOTES / "connections.md").read_text(encoding="utf-8").strip()]
        for name, (interface, creatable) in library.classes.items():
            declared = library.interfaces[interface]
            parts += [f"## {name}", index(f"FetchKitHost.{name}"), escaped(declared.help) + ".",
                      f"`CreateObject(\"FetchKitHost.{name}\")` makes one." if creatable else ""]
            for member in dict.fromkeys(declared.names()):
                parts += [f"### {name}.{member}", block("vb.net", declared.member(member).vba()),
                          escaped(self.need(declared.member(member).help, f"{name}.{member}",
                                            "no help string")) + "."]
        return "\n\n".join(each for each in parts if each) + "\n"

    def cpp_page(self, title, headers):
        parts = [f"# {title}"]
        for path, shown_alone in headers.items():
            about = self.headers.header_comment(path)
            parts += [f"## {Path(path).name}", f"`#include <fetchkit/{path}>`",
                      about.split("\n\n")[0] if shown_alone else about]
            relative = f"src/fetchkit/{path}"
            inside = [each for each in self.headers.compounds.values()
                      if each.get("kind") != "namespace" and
                      each.find("location").get("file") == relative]
            free = [member for (scope, _), members in self.headers.members.items()
                    if self.headers.compounds[scope].get("kind") == "namespace"
                    for member in members if member.find("location").get("file") == relative]
            for compound in sorted(inside, key=self.headers.line_of):
                scope = compound.findtext("compoundname")
                shown = scope.removeprefix("fetchkit::")
                if shown_alone and shown not in shown_alone:
                    continue
                members = [member for (owner, _), found in self.headers.members.items()
                           if owner == scope for member in found]
                text = self.headers.text_of(compound)
                if not text and not any(member.text for member in members):
                    continue
                parts += [f"### {shown}", index(f"{shown} (C++)"), text]
                parts += self.cpp_members(members)
            free = [member for member in free if member.text and
                    (not shown_alone or member.findtext("name") in shown_alone)]
            if free:
                parts += [f"### Functions and types of {Path(path).name}", *self.cpp_members(free)]
        return "\n\n".join(each for each in parts if each) + "\n"

    def cpp_members(self, members):
        """Declarations with the text that speaks of them; those of one text together."""
        parts, group = [], []
        for at, member in enumerate(members):
            if member.get("kind") == "enum":
                values = ", ".join(each.findtext("name") for each in member.findall("enumvalue"))
                group.append(f"enum {member.findtext('name')} {{ {values} }}")
            else:
                group.append(self.headers.declaration(member))
            if at + 1 == len(members) or members[at + 1].text != member.text:
                parts += [block("cpp", "\n".join(group)), member.text]
                group = []
        return parts

    def names_page(self):
        rows = [[chinese, f"[{name}.{member}]({name.lower()}-{member.lower()})"]
                for name, note in self.notes.items() for member, (chinese, _, _) in note.members.items()]
        rows += [[note.chinese, f"[{name}]({name.lower()}.md)"] for name, note in self.notes.items()]
        return ("# Chinese names 中文名称\n\n" + table(["中文", ""], sorted(rows)))

    def pages(self):
        made = {f"{name.lower()}.md": self.class_page(name) for name in self.library.classes}
        made["records.md"] = self.records_page()
        made["host-interfaces.md"] = self.host_page()
        made["connections.md"] = self.connections_page()
        for name, (title, headers) in CPP_PAGES.items():
            made[f"cpp-{name}.md"] = self.cpp_page(title, headers)
        made["names.md"] = self.names_page()
        if self.statements.text:
            made["statements.md"] = self.statements.page()
        made["index.md"] = (NOTES / "index.md").read_text(encoding="utf-8").replace(
            "CLASSES", "\n".join(f"{name.lower()}" for name in self.library.classes)).replace(
            "STATEMENTS\n", "statements\n" if self.statements.text else "")
        for key in self.records:
            name, _, member = key.partition(".")
            if member not in (self.notes[name].members if name in self.notes else ()):
                self.lacking.append(f"examples.txt: {key} is no longer there")
        return made


def main():
    folder = Path(sys.argv[1]).resolve()
    source = folder / "source"
    source.mkdir(parents=True, exist_ok=True)
    reference = Reference(folder)
    pages = reference.pages()
    if reference.lacking:
        sys.exit("The reference lacks:\n" + "\n".join(reference.lacking))
    for old in source.glob("*.md"):
        if old.name not in pages:
            old.unlink()
    for name, text in pages.items():
        path = source / name
        if not path.exists() or path.read_text(encoding="utf-8") != text:
            path.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
