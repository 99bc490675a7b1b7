"""The Windows installer: writes a WiX source out of the staged files and the type libraries' sources,
lets wixl build it, and mends what wixl cannot say. The same files give the same bytes.

One package for 64-bit Windows brings the DLLs of both sizes, so that their common keys (the names of
the classes, the type libraries) have one owner and stay until both sizes are gone; the package for
32-bit Windows brings the 32-bit ones and refuses to run elsewhere.
"""
import hashlib
import os
import pathlib
import re
import struct
import subprocess
import uuid
from xml.sax.saxutils import quoteattr

# Everything the installer is known by is derived from this and a name; it never changes.
NAMESPACE = uuid.UUID("0f2b1d9e-5a83-4c3c-a7e6-8d0f5cf1b6a2")
MANUFACTURER = "FetchKit maintainers"
PROXY = "{00020424-0000-0000-C000-000000000046}"  # the system's marshaller by type library
ROOT = pathlib.Path(__file__).resolve().parents[2]

# DLL, the source of its type library, the source with its table of classes.
SERVERS = {
    "FetchKit.dll": ("component/FetchKit.idl", "component/EntryPoints.cpp"),
    "FetchKitHost.dll": ("hosts/windows/FetchKitHostLibrary.idl", "hosts/windows/EntryPoints.cpp"),
}


def guid(*names):
    return str(uuid.uuid5(NAMESPACE, " ".join(names))).upper()


def parse_server(dll):
    """What registering the DLL enters, as text: its library, interfaces and creatable classes."""
    idl, entries = (ROOT / path for path in SERVERS[dll])
    text = re.sub(r"\s+", " ", re.sub(r"//[^\n]*", "", idl.read_text(encoding="utf-8")))
    library = re.search(r'\[ uuid\(([0-9A-F-]+)\), version\(([0-9.]+)\)[^\]]*?helpstring\("([^"]*)"\) \] '
                        r"library", text)
    ids = dict((name, id_) for id_, name in
               re.findall(r"\[uuid\(([0-9A-F-]+)\),[^\]]*\] coclass (\w+)", text))
    classes = [(ids[name], prog_id, description) for name, prog_id, description in re.findall(
        r'\{\s*&CLSID_(\w+),\s*L"([^"]+)",\s*L"([^"]+)"', entries.read_text(encoding="utf-8"))]
    interfaces = re.findall(r"\[object, uuid\(([0-9A-F-]+)\)[^\]]*\] interface (\w+) :", text)
    if not library or not classes or not interfaces:
        raise SystemExit(f"{idl}: no library, classes or interfaces were found in it")
    return {"id": library[1], "version": library[2], "help": library[3], "classes": classes,
            "interfaces": interfaces}


class Source:
    """Collects folders, components and features, and writes them as a WiX source."""

    def __init__(self, work):
        self.work = work  # wixl knows files by their path from here
        self.tree = {}
        self.features = {}

    def component(self, feature, folder, name, body, wide):
        """folder: path under the installation folder, "" for itself."""
        id_ = "c" + guid(feature, folder, name).replace("-", "")
        self.features.setdefault(feature, []).append(id_)
        win64 = ' Win64="yes"' if wide else ""
        node = self.tree
        for part in pathlib.PurePosixPath(folder).parts:
            node = node.setdefault(part, {})
        node.setdefault("", []).append(
            f'<Component Id="{id_}" Guid="{guid("component", folder, name)}"{win64}>{body}</Component>')

    def relative(self, path):
        return path.relative_to(self.work).as_posix()

    def file(self, feature, folder, path, wide, registry=""):
        id_ = file_id(folder, path.name)
        self.component(feature, folder, path.name,
                       f'<File Id="{id_}" Name={quoteattr(path.name)} Source={quoteattr(self.relative(path))}'
                       f' KeyPath="yes"/>{registry}', wide)
        return id_

    def directories(self, node, prefix="INSTALLDIR"):
        text = "".join(node.get("", []))
        for name in sorted(each for each in node if each):
            id_ = "d" + hashlib.sha256(f"{prefix}/{name}".encode()).hexdigest()[:24]
            inner = self.directories(node[name], f"{prefix}/{name}")
            text += f'<Directory Id="{id_}" Name={quoteattr(name)}>{inner}</Directory>'
        return text


def file_id(folder, name):
    return "f" + guid("file", folder, name).replace("-", "")


def value(key, text, name=None, key_path=False):
    named = f" Name={quoteattr(name)}" if name else ""
    path = ' KeyPath="yes"' if key_path else ""
    whole = quoteattr("Software\\Classes\\" + key)
    return (f'<RegistryValue Root="HKMU" Key={whole}{named}'
            f' Type="string" Value={quoteattr(text)}{path}/>')


def server_values(server, dll_id, wide):
    """The keys of one size: classes and interfaces, and where this size's type library stands."""
    text = ""
    library = "{%s}" % server["id"]
    for id_, prog_id, description in server["classes"]:
        key = "CLSID\\{%s}" % id_
        text += value(key, description)
        text += value(key + "\\InprocServer32", f"[#{dll_id}]")
        text += value(key + "\\InprocServer32", "Apartment", "ThreadingModel")
        text += value(key + "\\ProgID", prog_id)
        text += value(key + "\\TypeLib", library)
        text += value(key + "\\Version", server["version"])
        text += value(key + "\\Programmable", "", "*")  # a key alone, which removal takes out
    for id_, name in server["interfaces"]:
        key = "Interface\\{%s}" % id_
        text += value(key, name)
        text += value(key + "\\ProxyStubClsid32", PROXY)
        text += value(key + "\\TypeLib", library)
        text += value(key + "\\TypeLib", server["version"], "Version")
    text += value(f"TypeLib\\{library}\\{server['version']}\\0\\win{'64' if wide else '32'}", f"[#{dll_id}]")
    return text


def common_values(server):
    """The keys that both sizes share."""
    text = ""
    library = "TypeLib\\{%s}\\%s" % (server["id"], server["version"])
    text += value(library, server["help"], key_path=True)
    text += value(library + "\\FLAGS", "0")
    text += value(library + "\\HELPDIR", "[INSTALLDIR]")
    for id_, prog_id, description in server["classes"]:
        text += value(prog_id, description)
        text += value(prog_id + "\\CLSID", "{%s}" % id_)
    return text


def write_source(wide, version, stages, path):
    """stages: size to staged folder. Returns the ids of the files that have a version."""
    source = Source(path.parent)
    versioned = []
    servers = {dll: parse_server(dll) for dll in SERVERS}
    for size, stage in sorted(stages.items()):
        files = sorted(each for each in stage.rglob("*") if each.is_file())
        for each in files:
            inner = each.relative_to(stage)
            folder = "" if inner.parent == pathlib.Path() else inner.parent.as_posix()
            registry = ""
            if folder == "" and each.name in ("SHA256SUMS", "FetchKit.spdx.json", "README.md"):
                continue  # they speak of the archive and its files
            if folder == "" and each.suffix in (".dll", ".tlb", ".manifest"):
                host = each.name.startswith("FetchKitHost.")
                if each.name in servers:
                    id_ = file_id(size, each.name)
                    versioned.append(id_)
                    registry = server_values(servers[each.name], id_, size == "x64")
                source.file("Hosts" if host else "Library" + size.upper(), size, each, size == "x64", registry)
            elif folder == "lib":
                source.file("Development", f"{size}/lib", each, size == "x64")
            elif size == min(stages):  # the same in both
                feature = "FetchKit" if folder == "" else "Development"
                source.file(feature, folder, each, wide)
    source.component("FetchKit", "", "names", common_values(servers["FetchKit.dll"]), wide)
    source.component("Hosts", "", "names of the hosts", common_values(servers["FetchKitHost.dll"]), wide)

    bits = "64" if wide else "32"
    titles = {
        "LibraryX64": ("FetchKit.dll for 64-bit programs", 1),
        "LibraryX86": ("FetchKit.dll for 32-bit programs", 1),
        "Hosts": ("FetchKitHost.dll: connections to databases, sample accounts", 1),
        "Development": ("Headers, import libraries, samples and documents", 100),
    }
    inner = "".join(
        f'<Feature Id="{id_}" Title={quoteattr(title)} Level="{level}">'
        + "".join(f'<ComponentRef Id="{each}"/>' for each in source.features[id_]) + "</Feature>"
        for id_, (title, level) in titles.items() if id_ in source.features)
    condition = "" if wide else (
        '<Condition Message="This is a 64-bit Windows. Please take the installer whose name ends in'
        ' -x64.msi: it brings FetchKit for 32-bit programs as well.">Installed OR NOT VersionNT64</Condition>')
    text = f'''<?xml version="1.0" encoding="utf-8"?>
<Wix xmlns="http://schemas.microsoft.com/wix/2006/wi">
<Product Id="{guid("product", bits, version)}" Name="FetchKit" Language="1033" Version="{version}" Manufacturer="{MANUFACTURER}" UpgradeCode="{guid("upgrade", bits)}">
<Package Id="{guid("package")}" InstallerVersion="500" Compressed="yes" Description="FetchKit {version}" Comments="Functions of data-fetch formulas, for {bits}-bit Windows" Manufacturer="{MANUFACTURER}"/>
<Media Id="1" Cabinet="fetchkit.cab" EmbedCab="yes"/>
<Property Id="ALLUSERS" Value="2"/>
<Property Id="ARPCOMMENTS" Value="Functions of data-fetch formulas"/>
<MajorUpgrade DowngradeErrorMessage="A newer version of FetchKit is installed already. Please remove it first."/>
<Condition Message="FetchKit needs Windows 7 or newer.">Installed OR VersionNT &gt;= 601</Condition>{condition}
<CustomAction Id="UserFolder" Property="INSTALLDIR" Value="[LocalAppDataFolder]Programs\\FetchKit\\" Impersonate="yes"/>
<InstallExecuteSequence><Custom Action="UserFolder" After="CostInitialize">NOT ALLUSERS AND NOT INSTALLDIR</Custom></InstallExecuteSequence>
<Directory Id="TARGETDIR" Name="SourceDir"><Directory Id="ProgramFiles{"64" if wide else ""}Folder"><Directory Id="INSTALLDIR" Name="FetchKit">
{source.directories(source.tree)}
</Directory></Directory></Directory>
<Feature Id="FetchKit" Title="FetchKit" Level="1" Absent="disallow">{"".join(f'<ComponentRef Id="{each}"/>' for each in source.features["FetchKit"])}{inner}</Feature>
</Product>
</Wix>
'''
    path.write_text(text, encoding="utf-8")
    return versioned


def query(msi, *statements):
    subprocess.run(["msibuild", msi, "-q", *statements], check=True)


def rows(msi, table):
    text = subprocess.run(["msiinfo", "export", msi, table], check=True, capture_output=True, text=True).stdout
    return [line.split("\t") for line in text.splitlines()[3:]]


def short_names(msi):
    """Statements that give names longer than 8.3 the short form that the tables ask for beside them."""
    for table, column, index in (("File", "FileName", 2), ("Directory", "DefaultDir", 2)):
        for row in rows(msi, table):
            name = row[index]
            if row[0] == "TARGETDIR" or re.fullmatch(r"[\w-]{1,8}(\.\w{1,3})?|\.", name):
                continue
            stem, dot, end = name.rpartition(".")
            short = "F" + hashlib.sha256(row[0].encode()).hexdigest()[:7].upper() + (dot + end[:3].upper() if stem else "")
            yield f"UPDATE `{table}` SET `{column}` = '{short}|{name}' WHERE `{table}` = '{row[0]}'"


def pin_summary(msi, epoch):
    """Gives the package a code that follows from its bytes, and the commit's time: wixl takes a new
    code and the clock each time."""
    data = bytearray(msi.read_bytes())
    code = re.search(rb"Revision number \(UUID\): (\{[0-9A-F-]{36}\})",
                     subprocess.run(["msiinfo", "suminfo", msi], check=True, capture_output=True).stdout)[1]
    if data.count(code) != 1:
        raise SystemExit(f"{msi}: the package code stands in it {data.count(code)} times")
    # The summary's one section: its place, then a table of property and place in the section.
    format_id = uuid.UUID("f29f85e0-4ff9-1068-ab91-08002b27b3d9").bytes_le
    at = data.find(format_id)
    header = at - 28
    section = header + struct.unpack_from("<I", data, at + 16)[0]
    count = struct.unpack_from("<I", data, section + 4)[0]
    ticks = struct.pack("<Q", (epoch + 11644473600) * 10**7)
    for index in range(count):
        property_, place = struct.unpack_from("<II", data, section + 8 + 8 * index)
        if property_ in (12, 13):  # created, last saved
            if struct.unpack_from("<I", data, section + place)[0] != 64:
                raise SystemExit(f"{msi}: property {property_} of its summary is no time")
            data[section + place + 4:section + place + 12] = ticks
    at = data.find(code)
    data[at:at + 38] = b"{" + b"0" * 36 + b"}"
    digest = hashlib.sha256(data).hexdigest()
    data[at:at + 38] = ("{%s}" % guid("package", digest)).encode()
    msi.write_bytes(data)


def build(wide, version, stages, work, out, epoch):
    """stages: "x64" and "x86", or "x86" alone, to their staged folders, whose files have the commit's
    time already (the cabinet keeps it)."""
    source = work / f"installer-{'x64' if wide else 'x86'}.wxs"
    versioned = write_source(wide, version, stages, source)
    out.unlink(missing_ok=True)
    env = dict(os.environ, TZ="UTC", SOURCE_DATE_EPOCH=str(epoch))
    subprocess.run(["wixl", "-a", "x64" if wide else "x86", "-o", out, source.name], check=True, env=env,
                   cwd=work)
    # wixl writes 4 for "for the machine or the user", which the installer knows as -1. Without a version
    # in the table, an older DLL in place would be taken for the newer one.
    query(out, "UPDATE `Registry` SET `Root` = -1 WHERE `Root` = 4", *short_names(out),
          *(f"UPDATE `File` SET `Version` = '{version}.0', `Language` = '1033' WHERE `File` = '{id_}'"
            for id_ in versioned),
          "UPDATE `Property` SET `Value` = 'INSTALLDIR;MSIINSTALLPERUSER;WIX_DOWNGRADE_DETECTED;"
          "WIX_UPGRADE_DETECTED' WHERE `Property` = 'SecureCustomProperties'")
    pin_summary(out, epoch)
