"""Reads the interface definitions: what a type library will hold, with the comments beside it."""
import re
from dataclasses import dataclass, field

VBA_TYPES = {
    "BSTR": "String", "long": "Long", "short": "Integer", "unsigned char": "Byte",
    "VARIANT_BOOL": "Boolean", "DATE": "Date", "double": "Double", "float": "Single",
    "VARIANT": "Variant", "IDispatch": "Object",
}


@dataclass
class Argument:
    name: str
    type: str  # as declared, without the stars
    out: bool
    optional: bool
    default: str | None = None

    def vba(self):
        declared = f"{'ByRef' if self.out else 'ByVal'} {self.name} As {vba_type(self.type)}"
        if self.default is not None:
            return f"Optional {declared} = {self.default}"
        return f"Optional {declared}" if self.optional else declared


@dataclass
class Member:
    name: str
    kind: str  # method, propget, propput or propputref
    help: str
    arguments: list
    result: str | None

    def vba(self):
        """The member as a VBA object browser shows it."""
        arguments = ", ".join(each.vba() for each in self.arguments)
        result = f" As {vba_type(self.result)}" if self.result else ""
        if self.kind == "propget":
            return f"Property {self.name}{f'({arguments})' if arguments else ''}{result}"
        return f"{'Function' if self.result else 'Sub'} {self.name}({arguments}){result}"


@dataclass
class Interface:
    name: str
    help: str
    members: list = field(default_factory=list)

    def names(self):
        return list(dict.fromkeys(member.name for member in self.members))

    def member(self, name):
        """The first of that name: what reads a property, where something reads it."""
        return next((each for each in self.members if each.name == name), None)

    def writable(self, name):
        return any(each.name == name and each.kind.startswith("propput") for each in self.members)


@dataclass
class Record:
    name: str
    help: str
    items: list  # of an enumeration (name, number, meaning), of a structure (name, type, meaning)
    is_enum: bool


def vba_type(name):
    if name in VBA_TYPES:
        return VBA_TYPES[name]
    if match := re.fullmatch(r"SAFEARRAY\((\w+)\)", name):
        return f"{vba_type(match[1])}()"
    return re.sub(r"^I(?=[A-Z])", "", name)


def attribute(text, name):
    match = re.search(rf'\b{name}\("((?:[^"\\]|\\.)*)"\)', text or "")
    return match[1].replace("\\\\", "\\") if match else ""


def comment_text(text):
    return " ".join(line.strip().removeprefix("//").strip() for line in text.strip().splitlines())


def parse_arguments(text):
    arguments, result = [], None
    pattern = r'\[((?:[^\]"]|"[^"]*")*)\]\s*([\w ]+?)\s*(\**)\s*(\w+)\s*(?:,|$)'
    for attributes, kind, _, name in re.findall(pattern, " ".join(text.split())):
        if "retval" in attributes:
            result = kind
            continue
        match = re.search(r"defaultvalue\(([^)]*)\)", attributes)
        arguments.append(Argument(name, kind, bool(re.search(r"\bout\b", attributes)),
                                  "optional" in attributes, match[1] if match else None))
    return arguments, result


def parse_members(text):
    pattern = (r'((?:[ \t]*//[^\n]*\n)*)\s*(?:\[((?:[^\[\]"]|"(?:[^"\\]|\\.)*")*)\]\s*)?'
               r"HRESULT (\w+)\((.*?)\)\s*;")
    for comment, attributes, name, arguments in re.findall(pattern, text, re.S):
        words = re.findall(r"\bprop(?:get|putref|put)\b", re.sub(r'"[^"]*"', "", attributes))
        kind = words[0] if words else "method"
        parsed, result = parse_arguments(arguments)
        if kind.startswith("propput"):
            parsed = parsed[:-1]
        yield Member(name, kind, attribute(attributes, "helpstring") or comment_text(comment),
                     parsed, result)


def interfaces(text):
    pattern = (r'((?:^[ \t]*//[^\n]*\n)*)\s*\[((?:[^\[\]"]|"[^"]*")*)\]\s*'
               r"interface (\w+)\s*:\s*IDispatch\s*\{(.*?)\n[ \t]*\}")
    return {
        name: Interface(name, attribute(attributes, "helpstring") or comment_text(comment),
                        list(parse_members(body)))
        for comment, attributes, name, body in re.findall(pattern, text, re.S | re.M)
    }


def classes(text):
    """The classes: name -> (interface, whether a program may create it)."""
    pattern = r'\[((?:[^\[\]"]|"[^"]*")*)\]\s*coclass (\w+)\s*\{\s*\[default\] interface (\w+)'
    return {name: (interface, "noncreatable" not in attributes)
            for attributes, name, interface in re.findall(pattern, text)}


def records(text):
    pattern = r'typedef \[((?:[^\[\]"]|"[^"]*")*)\]\s*(enum|struct) (\w+) \{(.*?)\n\s*\}'
    for attributes, kind, name, body in re.findall(pattern, text, re.S):
        if kind == "enum":
            items = re.findall(r"(\w+) = (-?\w+),?[ \t]*(?://[ \t]*([^\n]*))?", body)
        else:
            items = [(field, vba_type(declared.strip()), meaning) for declared, field, meaning in
                     re.findall(r"^\s*([\w ()]+?) (\w+);[ \t]*(?://[ \t]*([^\n]*))?", body, re.M)]
        yield Record(name, attribute(attributes, "helpstring"), items, kind == "enum")


class Library:
    def __init__(self, *paths):
        text = "\n".join(path.read_text(encoding="utf-8") for path in paths)
        self.interfaces = interfaces(text)
        self.classes = classes(text)
        self.records = list(records(text))

    def of_class(self, name):
        return self.interfaces[self.classes[name][0]]
