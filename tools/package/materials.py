"""The bill of materials of an archive, as SPDX 2.3 in JSON: its files, and what is linked into them.
NOTICE says the same to people, with the texts of the licenses."""
import hashlib
import json
import re
import subprocess
import time
import uuid

NAMESPACE = uuid.UUID("5b0f0c5e-2f65-4f0b-9a3f-6d5e6f2f3f11")
AUTHORS = "Organization: FetchKit maintainers"
NONE = "NOASSERTION"
OWN_FILES = ("FetchKit.spdx.json", "SHA256SUMS")  # they cannot hold their own sums


def macros(compiler, source):
    """The compiler's macros after this source, by name."""
    text = subprocess.run([compiler, "-dM", "-E", "-x", "c++", "-"], input=source, text=True,
                          check=True, capture_output=True).stdout
    return dict(re.findall(r"^#define (\w+) (.+)$", text, re.M))


def parts(compiler, sqlite_header):
    """What stands in the files beside FetchKit: name, version, license, the files; a version where
    they say one."""
    everywhere = [
        ("Unihan readings", "15.0.0", "Unicode-DFS-2016",
         ("FetchKit.dll", "FetchKitHost.dll", "libFetchKit.a")),
        ("Sphinx and its theme", NONE, "BSD-2-Clause AND MIT AND BSD-3-Clause",
         ("searchtools.js", "language_data.js", "theme.js", "theme.css", "jquery.js", "underscore.js")),
        ("Font Awesome", "4.7", "OFL-1.1 AND MIT", ("fontawesome-webfont.woff2",)),
    ]
    if not compiler:
        return everywhere
    known = macros(compiler, "#include <_mingw.h>\n")
    mingw = ".".join(known[f"__MINGW64_VERSION_{each}"] for each in ("MAJOR", "MINOR", "BUGFIX"))
    gcc = ".".join(known[f"__GNUC{each}__"] for each in ("", "_MINOR", "_PATCHLEVEL"))
    fmt = int(re.search(r"#define FMT_VERSION (\d+)", open("/usr/include/fmt/core.h").read())[1])
    sqlite = re.search(r'#define SQLITE_VERSION +"([0-9.]+)"', open(sqlite_header).read())[1]
    dlls = ("FetchKit.dll", "FetchKitHost.dll")
    return [
        *everywhere,
        ("winpthreads", mingw, "MIT AND BSD-3-Clause", dlls),
        ("mingw-w64 C run-time", mingw, "ZPL-2.1 AND LicenseRef-Lucent AND LicenseRef-Public-Domain", dlls),
        ("libstdc++ and libgcc", gcc, "GPL-3.0-or-later WITH GCC-exception-3.1", dlls),
        ("SQLite", sqlite, "LicenseRef-Public-Domain", dlls[1:]),
        ("fmt", f"{fmt // 10000}.{fmt // 100 % 100}.{fmt % 100}", "MIT", dlls[1:]),
    ]


def write(folder, name, version, epoch, linked):
    """Writes FetchKit.spdx.json over the folder's other files."""
    files, sums, relations = [], [], []
    describe = lambda subject, kind, other: relations.append(
        {"spdxElementId": subject, "relationshipType": kind, "relatedSpdxElement": other})
    describe("SPDXRef-DOCUMENT", "DESCRIBES", "SPDXRef-FetchKit")
    by_name = {}
    for number, path in enumerate(sorted(folder.rglob("*"))):
        if not path.is_file() or path.name in OWN_FILES:
            continue
        data = path.read_bytes()
        id_ = f"SPDXRef-File-{number}"
        by_name[path.name] = id_
        sums.append(hashlib.sha1(data).hexdigest())
        files.append({
            "SPDXID": id_, "fileName": "./" + path.relative_to(folder).as_posix(),
            "checksums": [{"algorithm": "SHA1", "checksumValue": sums[-1]},
                          {"algorithm": "SHA256", "checksumValue": hashlib.sha256(data).hexdigest()}],
            "licenseConcluded": "MIT", "licenseInfoInFiles": [NONE], "copyrightText": NONE})
        describe("SPDXRef-FetchKit", "CONTAINS", id_)
    licenses = ["MIT"]
    packages = []
    for part, part_version, license_, holders in linked:
        holders = [each for each in holders if each in by_name]
        if not holders:
            continue
        id_ = "SPDXRef-" + re.sub(r"[^A-Za-z0-9.]+", "-", part)
        packages.append({
            "SPDXID": id_, "name": part, "versionInfo": part_version, "downloadLocation": NONE,
            "filesAnalyzed": False, "licenseConcluded": license_, "licenseDeclared": license_,
            "copyrightText": "See NOTICE"})
        for each in holders:
            if each.endswith((".dll", ".a")):
                describe(by_name[each], "STATIC_LINK", id_)
            else:
                describe(id_, "CONTAINS", by_name[each])
    whole = {
        "SPDXID": "SPDXRef-FetchKit", "name": "FetchKit", "versionInfo": version, "supplier": AUTHORS,
        "downloadLocation": NONE, "filesAnalyzed": True, "licenseConcluded": "MIT",
        "licenseDeclared": "MIT", "licenseInfoFromFiles": licenses,
        "copyrightText": "Copyright (c) 2026 the FetchKit maintainers", "primaryPackagePurpose": "LIBRARY",
        "packageVerificationCode": {
            "packageVerificationCodeValue": hashlib.sha1("".join(sorted(sums)).encode()).hexdigest(),
            "packageVerificationCodeExcludedFiles": ["./" + each for each in OWN_FILES]}}
    used = " ".join(each["licenseDeclared"] for each in packages)
    texts = {"LicenseRef-Public-Domain": "Its authors have given it into the public domain.",
             "LicenseRef-Lucent": "The notices of Lucent Technologies and David M. Gay in NOTICE."}
    document = {
        "spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT", "name": name,
        "documentNamespace": "urn:uuid:" + str(uuid.uuid5(NAMESPACE, name + "".join(sums))),
        "creationInfo": {"created": time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(epoch)),
                         "creators": [AUTHORS]},
        "hasExtractedLicensingInfos": [{"licenseId": id_, "extractedText": text}
                                       for id_, text in texts.items() if id_ in used],
        "packages": [whole] + packages, "files": files, "relationships": relations}
    (folder / "FetchKit.spdx.json").write_text(json.dumps(document, indent=1) + "\n", encoding="utf-8")
