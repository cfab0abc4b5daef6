#!/usr/bin/env python3
"""Makes the Debian packages of a finished build: the library, what programs are built with, its debug information.

usage: tools/packages/debian.py BUILD_DIRECTORY PACKAGE_DIRECTORY

SOURCE_DATE_EPOCH is the date of all files. Needs no rights beyond those of the caller.
"""
import gzip
import hashlib
import pathlib
import shutil
import sys

import common

MAINTAINER = "Torvo Utility maintainers <maintainers@torvo-utility.invalid>"

COPYRIGHT = """\
Torvo Utility, by its maintainers.

The sources name no licence: whoever received this package may use it as agreed with the maintainers, and asks them
before passing it on. The libraries that it needs are packages of the distribution, under their own licences.
"""

RUNTIME = ("lowest layer of a family of mapping applications",
           "Character sets, dates and times, numbers, files behind one cache, sets of row numbers and plane geometry,\n"
           "with the same answers on Linux and on Windows.")
DEVELOPMENT = ("headers of Torvo Utility",
               "What programs that use the library are built with: headers, CMake package and pkg-config file,\n"
               "documentation and examples, and printers by which gdb shows the library's records.")
DEBUG = ("debug information of Torvo Utility", "For the debugger, which finds it by itself.")


class Package:
    """A package that is being filled."""

    def __init__(self, name, description, work):
        self.name = name
        self.description = description
        self.tree = work / name
        self.tree.mkdir()
        self.fields = {}
        self.control_files = {}
        self.compression = "xz"

    def add(self, place, content):
        path = self.tree / place
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)

    def add_documents(self):
        place = f"usr/share/doc/{self.name}"
        self.add(f"{place}/copyright", COPYRIGHT.encode())
        self.add(f"{place}/changelog.gz", gzip.compress((common.ROOT / "CHANGELOG.md").read_bytes(), 9, mtime=0))

    def write(self, version, architecture, packages):
        files = sorted(path for path in self.tree.rglob("*") if path.is_file() and not path.is_symlink())
        sums = [f"{hashlib.md5(path.read_bytes()).hexdigest()}  {path.relative_to(self.tree)}\n" for path in files]
        summary, text = self.description
        fields = {
            "Package": self.name,
            "Source": "torvo-utility",
            "Version": version,
            "Architecture": architecture,
            "Maintainer": MAINTAINER,
            "Installed-Size": (sum(path.stat().st_size for path in files) + 1023) // 1024,
            "Priority": "optional",
            **self.fields,
            "Description": summary + "\n " + text.replace("\n", "\n "),
        }
        control = self.tree / "DEBIAN"
        control.mkdir()
        (control / "control").write_text("".join(f"{key}: {value}\n" for key, value in fields.items()), encoding="utf-8")
        (control / "md5sums").write_text("".join(sums), encoding="utf-8")
        for name, content in self.control_files.items():
            (control / name).write_text(content, encoding="utf-8")
        common.normalize(self.tree)
        # One thread: how many there are shows in the compressed bytes.
        common.run("dpkg-deb", "--root-owner-group", f"-Z{self.compression}", "--threads-max=1",
                   "--build", self.tree, packages / f"{self.name}_{version}_{architecture}.deb")


def split_debug_information(library, package):
    """Moves it from the library to the place in the package where the debugger looks for it."""
    notes = common.output_of("readelf", "-n", library)
    build_id = notes.split("Build ID: ")[1].split()[0]
    place = package.tree / f"usr/lib/debug/.build-id/{build_id[:2]}/{build_id[2:]}.debug"
    place.parent.mkdir(parents=True)
    common.run("objcopy", "--only-keep-debug", "--compress-debug-sections", library, place)
    common.run("strip", "--strip-unneeded", "--remove-section=.comment", library)
    package.fields["Build-Ids"] = build_id
    package.compression = "none"  # the sections are compressed


def dependencies_of(library, work):
    """The packages whose libraries this one is linked with, in the versions that it needs."""
    (work / "debian").mkdir()
    (work / "debian/control").write_text("Source: torvo-utility\n\nPackage: library\nArchitecture: any\n")
    line = common.output_of("dpkg-shlibdeps", "-O", library, cwd=work)
    return line.strip().removeprefix("shlibs:Depends=")


def main():
    build, packages = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    version = common.version_of(build)
    major = version.split(".")[0]
    architecture = common.output_of("dpkg", "--print-architecture").strip()
    packages.mkdir(parents=True, exist_ok=True)
    for old in packages.glob("libtorvo-utility*.deb"):
        old.unlink()
    work = build / "packing"
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir()

    runtime = Package(f"libtorvo-utility{major}", RUNTIME, work)
    development = Package("libtorvo-utility-dev", DEVELOPMENT, work)
    debug = Package(f"{runtime.name}-dbgsym", DEBUG, work)
    common.install(build, "runtime", runtime.tree / "usr")
    common.install(build, "development", development.tree / "usr")
    documents = development.tree / "usr/share/doc"
    (documents / "torvo-utility").rename(documents / development.name)
    library = (runtime.tree / f"usr/lib/libTorvoUtility.so.{major}").resolve(strict=True)
    split_debug_information(library, debug)

    runtime.fields |= {"Section": "libs", "Depends": dependencies_of(library, work)}
    runtime.control_files["shlibs"] = f"libTorvoUtility {major} {runtime.name} (>= {version})\n"
    runtime.control_files["triggers"] = "activate-noawait ldconfig\n"
    runtime.add_documents()
    development.fields |= {"Section": "libdevel", "Depends": f"{runtime.name} (= {version})"}
    development.add_documents()
    # gdb loads what has the name of the library here as soon as a program loads that.
    printers = development.tree / f"usr/share/gdb/auto-load/usr/lib/{library.name}-gdb.py"
    printers.parent.mkdir(parents=True)
    (development.tree / "usr/share/torvo-utility/gdb/torvo_printers.py").rename(printers)
    shutil.rmtree(development.tree / "usr/share/torvo-utility")
    debug.fields |= {"Section": "debug", "Depends": f"{runtime.name} (= {version})"}
    debug.add_documents()

    for package in (runtime, development, debug):
        package.write(version, architecture, packages)
    shutil.rmtree(work)
    common.write_sums(packages)


main()
