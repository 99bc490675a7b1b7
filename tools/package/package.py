#!/usr/bin/env python3
"""Packs a release out of finished builds: archives for Windows and Linux, the Windows installers, the
debug files, and the sums of all of them. The same builds of the same commit give the same bytes.

Usage: tools/package/package.py --out FOLDER --work FOLDER --x64 BUILD --x86 BUILD --linux BUILD
                                [--reference FOLDER]
BUILD: a build folder; the Windows ones of the target fetchkit_package. --work holds what is staged.
"""
import argparse
import gzip
import hashlib
import io
import os
import pathlib
import re
import shutil
import subprocess
import tarfile
import zipfile
import time

import installer
import materials

ROOT = pathlib.Path(__file__).resolve().parents[2]
TEXTS = ("LICENSE", "NOTICE", "CHANGELOG.md", "SECURITY.md")

SIGNS = os.environ.get("FETCHKIT_SIGN_CERTIFICATE") or os.environ.get("FETCHKIT_SIGN_COMMAND")


def commit_time():
    """Seconds since 1970 that every file of the release is dated with: the last commit's, or what
    SOURCE_DATE_EPOCH says where there is no repository."""
    if "SOURCE_DATE_EPOCH" in os.environ:
        return int(os.environ["SOURCE_DATE_EPOCH"])
    return int(subprocess.run(["git", "log", "-1", "--format=%ct"], cwd=ROOT, check=True,
                              capture_output=True).stdout)


def version_of(build):
    return re.search(r"^CMAKE_PROJECT_VERSION:STATIC=(.+)$", (build / "CMakeCache.txt").read_text(), re.M)[1]


def stage(build, folder, readme, reference):
    """Installs the build into the folder and adds what people read."""
    shutil.rmtree(folder, ignore_errors=True)
    subprocess.run(["cmake", "--install", build, "--prefix", folder], check=True, stdout=subprocess.DEVNULL)
    for each in TEXTS:
        shutil.copy(ROOT / each, folder / each)
    shutil.copy(ROOT / "tools/package" / readme, folder / "README.md")
    ignore = shutil.ignore_patterns("reference*", "*.gitignore")
    shutil.copytree(ROOT / "docs", folder / "docs", ignore=ignore)
    tracked = subprocess.run(["git", "ls-files", "samples"], cwd=ROOT, check=True, text=True,
                             capture_output=True).stdout.split("\n")
    for each in filter(None, tracked):
        (folder / each).parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(ROOT / each, folder / each)
    if reference:
        # Without what the generator keeps for itself, and without its fonts but the one that holds
        # signs: every system has a font for texts.
        shutil.copytree(reference, folder / "reference", ignore=shutil.ignore_patterns(
            ".*", "Lato-*", "RobotoSlab-*", "*.eot", "*.ttf", "*.woff", "fontawesome*.svg"))


def finish(folder, name, version, epoch, linked):
    """The bill of materials, the sums, and one date for everything."""
    materials.write(folder, name, version, epoch, linked)
    sums = [f"{hashlib.sha256(each.read_bytes()).hexdigest()}  {each.relative_to(folder).as_posix()}\n"
            for each in sorted(folder.rglob("*")) if each.is_file() and each.name != "SHA256SUMS"]
    (folder / "SHA256SUMS").write_text("".join(sums))
    for each in folder.rglob("*"):
        os.utime(each, (epoch, epoch))


def zip_folder(folder, name, out, epoch):
    """Sorted, dated in UTC, nobody's; in a folder of the archive's own name."""
    with zipfile.ZipFile(out, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for each in sorted(folder.rglob("*")):
            if each.is_file():
                info = zipfile.ZipInfo(f"{name}/{each.relative_to(folder).as_posix()}", time.gmtime(epoch)[:6])
                info.compress_type = zipfile.ZIP_DEFLATED
                info.create_system = 3
                info.external_attr = 0o100644 << 16
                archive.writestr(info, each.read_bytes())


def tar_folder(folder, name, out, epoch):
    buffer = io.BytesIO()
    with tarfile.open(fileobj=buffer, mode="w", format=tarfile.GNU_FORMAT) as archive:
        for each in sorted(folder.rglob("*")):
            info = tarfile.TarInfo(f"{name}/{each.relative_to(folder).as_posix()}")
            info.mtime, info.mode, info.uname, info.gname = epoch, 0o644, "root", "root"
            if each.is_dir():
                info.type, info.mode = tarfile.DIRTYPE, 0o755
                archive.addfile(info)
            else:
                info.size = each.stat().st_size
                archive.addfile(info, io.BytesIO(each.read_bytes()))
    with open(out, "wb") as file, gzip.GzipFile("", "wb", 9, file, epoch) as packed:
        packed.write(buffer.getvalue())


def sign(file, epoch):
    if not SIGNS:
        return
    subprocess.run([ROOT / "tools/package/sign.sh", file], check=True,
                   env=dict(os.environ, SOURCE_DATE_EPOCH=str(epoch)))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    for each in ("out", "work", "x64", "x86", "linux"):
        parser.add_argument("--" + each, type=pathlib.Path, required=True)
    parser.add_argument("--reference", type=pathlib.Path)
    arguments = parser.parse_args()
    builds = {"x64": arguments.x64, "x86": arguments.x86, "linux": arguments.linux}
    versions = {version_of(each) for each in builds.values()}
    if len(versions) != 1:
        raise SystemExit(f"The builds are of different versions: {', '.join(sorted(versions))}")
    version = versions.pop()
    epoch = commit_time()
    out, work = arguments.out.resolve(), arguments.work.resolve()
    out.mkdir(parents=True, exist_ok=True)
    work.mkdir(parents=True, exist_ok=True)
    for old in out.glob("FetchKit-*"):
        old.unlink()

    stages = {}
    for size, compiler in (("x64", "x86_64-w64-mingw32-g++-posix"), ("x86", "i686-w64-mingw32-g++-posix")):
        name = f"FetchKit-{version}-windows-{size}"
        stages[size] = folder = work / name
        stage(builds[size], folder, "README.windows.md", arguments.reference)
        for dll in sorted(folder.glob("*.dll")):
            sign(dll, epoch)
        cache = (builds[size] / "CMakeCache.txt").read_text()
        sqlite = re.search(r"^FETCHKIT_SQLITE_DIR:PATH=(.+)$", cache, re.M)[1]
        finish(folder, name, version, epoch, materials.parts(compiler, pathlib.Path(sqlite) / "sqlite3.h"))
        zip_folder(folder, name, out / f"{name}.zip", epoch)
    name = f"FetchKit-{version}-linux-x64"
    stage(builds["linux"], work / name, "README.linux.md", arguments.reference)
    finish(work / name, name, version, epoch, materials.parts(None, None))
    tar_folder(work / name, name, out / f"{name}.tar.gz", epoch)

    for wide in (True, False):
        sizes = stages if wide else {"x86": stages["x86"]}
        msi = out / f"FetchKit-{version}-windows-{'x64' if wide else 'x86'}.msi"
        installer.build(wide, version, sizes, work, msi, epoch)
        sign(msi, epoch)

    symbols = {size: sorted(build.glob("*.debug")) for size, build in builds.items() if size != "linux"}
    if not all(symbols.values()):
        raise SystemExit("The builds hold no symbols (*.debug).")
    folder = work / f"FetchKit-{version}-windows-symbols"
    shutil.rmtree(folder, ignore_errors=True)
    for size, files in symbols.items():
        (folder / size).mkdir(parents=True)
        for each in files:
            shutil.copy(each, folder / size / each.name)
    zip_folder(folder, folder.name, out / f"{folder.name}.zip", epoch)

    files = sorted(out.glob("FetchKit-*"))
    (out / "SHA256SUMS").write_text(
        "".join(f"{hashlib.sha256(each.read_bytes()).hexdigest()}  {each.name}\n" for each in files))
    if not SIGNS:
        print("Not signed: neither FETCHKIT_SIGN_CERTIFICATE nor FETCHKIT_SIGN_COMMAND is set.")
    for each in files:
        print(f"{each.stat().st_size:>10}  {each}")


if __name__ == "__main__":
    main()
