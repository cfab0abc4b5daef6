#!/bin/sh
# Makes code_page_vectors.txt again: builds the probe for Windows and runs it under Wine.
set -e
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
x86_64-w64-mingw32-g++-posix -std=c++20 -O2 -static -DTORVO_STATIC -D_WIN32_WINNT=0x0601 -I"$root" -I"$root/tests" \
    "$here/code_page_probe.cpp" "$here/code_page_vectors.cpp" "$root/Utility/platform/windows/text.cpp" \
    "$root/Utility/platform/windows/threads.cpp" -luser32 -o "$work/probe.exe"
(cd "$work" && WINEDEBUG=-all wine probe.exe vectors.txt)
mv "$work/vectors.txt" "$here/code_page_vectors.txt"
