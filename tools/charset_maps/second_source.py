#!/usr/bin/env python3
"""Writes tests/text/data/published_pages.txt: the published code pages from a second source.

generate.py reads the pages from Python's codecs. This program reads the same pages from the C library's iconv, and the
Mac OS pages, of which iconv has too few, from Perl's Encode. The test of the maps then has both to compare.
"""

import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
OUTPUT = ROOT / "tests" / "text" / "data" / "published_pages.txt"

ICONV = {f"iso8859_{n}": f"ISO-8859-{n}" for n in range(1, 10)}
ICONV |= {f"cp{n}": f"CP{n}" for n in (1250, 1251, 1252, 1253, 1254, 1255, 1257, 1258, 874)}
ICONV |= {f"cp{n}": f"IBM{n}" for n in (437, 850, 852, 855, 857, 860, 861, 863, 864, 865, 869)}
ENCODE = {
    "mac_roman": "MacRoman",
    "mac_arabic": "MacArabic",
    "mac_latin2": "MacCentralEurRoman",
    "mac_cyrillic": "MacCyrillic",
    "mac_iceland": "MacIcelandic",
    "mac_turkish": "MacTurkish",
}


def by_iconv(name, byte):
    run = subprocess.run(["iconv", "-f", name, "-t", "UTF-16BE"], input=bytes([byte]), capture_output=True)
    return run.stdout.hex().upper() if run.returncode == 0 and len(run.stdout) == 2 else "...."


def by_encode(name):
    program = (
        "use Encode; for my $b (0x80..0xFF) { my $s = chr($b); "
        f"my $u = eval {{ decode('{name}', $s, Encode::FB_CROAK) }}; "
        "printf defined $u && length $u == 1 ? '%04X ' : '.... ', defined $u ? ord $u : 0 }"
    )
    return subprocess.run(["perl", "-e", program], capture_output=True, check=True, text=True).stdout.split()


def versions():
    iconv = subprocess.run(["iconv", "--version"], capture_output=True, text=True).stdout.splitlines()[0]
    perl = subprocess.run(
        ["perl", "-MEncode", "-e", 'print "Encode $Encode::VERSION"'], capture_output=True, text=True
    ).stdout
    return iconv, perl


def main():
    lines = [
        "# The upper halves of published code pages, from 80 on, .... where a page leaves a position undefined.",
        "# Written by tools/charset_maps/second_source.py with %s and Perl's %s." % versions(),
    ]
    pages = {page: [by_iconv(name, byte) for byte in range(0x80, 0x100)] for page, name in ICONV.items()}
    pages |= {page: by_encode(name) for page, name in ENCODE.items()}
    for page, units in pages.items():
        source = f"iconv {ICONV[page]}" if page in ICONV else f"Encode {ENCODE[page]}"
        lines += ["", f"page {page}  # {source}"]
        lines += [" ".join(units[first : first + 16]) for first in range(0, 128, 16)]
    OUTPUT.parent.mkdir(parents=True, exist_ok=True)
    OUTPUT.write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
