#!/usr/bin/env python3
"""Makes the zip for Windows of a finished build: the DLL and those of its compiler, import library, headers, CMake package.

usage: tools/packages/windows.py BUILD_DIRECTORY PACKAGE_DIRECTORY

SOURCE_DATE_EPOCH is the date of all files.
"""
import pathlib
import shutil
import sys
import time
import zipfile

import common

# The packages of the distribution that the compiler's DLLs come from, with what their licence asks to be passed on.
COMPILER_PACKAGES = ("gcc-mingw-w64-base", "mingw-w64-x86-64-dev")

NOTE = """\
Torvo Utility {version} for Windows x86-64

bin       TorvoUtility.dll and the compiler's DLLs, which it needs: a program finds them beside itself
lib       the import library, and the CMake package: find_package(TorvoUtility {version}), target Torvo::Utility,
          with this folder in CMAKE_PREFIX_PATH
include   the headers: #include <Utility/Utility.h>
share     the documentation, and the examples that the headers name, in share/doc/torvo-utility

Programs are built with mingw-w64 for x86-64, posix threads, as the library is, since classes, exceptions and texts of
the C++ library pass between the two.

LICENCES
Torvo Utility is by its maintainers. The sources name no licence: whoever received this archive may use it as agreed with
the maintainers, and asks them before passing it on. It contains these DLLs of the compiler as its distribution has them,
without their debug information:
  libstdc++-6.dll, libgcc_s_seh-1.dll   GNU General Public License, version 3, with the GCC Runtime Library Exception
  libwinpthread-1.dll                   the MIT licence and a BSD one
Their terms are in the folder licences. Their sources are in the distribution's archive:
{sources}"""


def add_licences(tree):
    """The terms of the compiler's DLLs, and a line for each source package that they were built from."""
    licences = tree / "licences"
    licences.mkdir()
    lines = []
    for package in COMPILER_PACKAGES:
        shutil.copyfile(f"/usr/share/doc/{package}/copyright", licences / f"{package}.txt")
        lines.append("  " + common.output_of("dpkg-query", "-W", "-f", "${source:Package} ${source:Version}", package))
    shutil.copyfile("/usr/share/common-licenses/GPL-3", licences / "GPL-3.txt")
    return "\n".join(lines) + "\n"


def write_zip(tree, archive):
    """Names in order, one date, rights of plain files: nothing else goes into the archive."""
    date = time.gmtime(max(common.DATE, 315532800))[:6]  # a zip knows no date before 1980
    with zipfile.ZipFile(archive, "w") as out:
        for path in sorted(path for path in tree.rglob("*") if path.is_file()):
            entry = zipfile.ZipInfo(path.relative_to(tree.parent).as_posix(), date)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = 3
            entry.external_attr = 0o100644 << 16
            out.writestr(entry, path.read_bytes())


def main():
    build, packages = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    version = common.version_of(build)
    packages.mkdir(parents=True, exist_ok=True)
    for old in packages.glob("torvo-utility-*-windows-*.zip"):
        old.unlink()
    work = build / "packing"
    shutil.rmtree(work, ignore_errors=True)
    tree = work / f"torvo-utility-{version}"
    for component in ("runtime", "development", "compiler_runtime"):
        common.install(build, component, tree)
    for dll in (tree / "bin").iterdir():
        common.run("x86_64-w64-mingw32-strip", "--strip-unneeded", dll)
    (tree / "README.txt").write_text(NOTE.format(version=version, sources=add_licences(tree)).replace("\n", "\r\n"),
                                     encoding="ascii", newline="")
    write_zip(tree, packages / f"torvo-utility-{version}-windows-x86_64.zip")
    shutil.rmtree(work)
    common.write_sums(packages)


main()
