#!/bin/sh
# Makes character_units.txt and character_calls.txt anew from what Wine answers. Needs mingw-w64 and wine.
set -e
golden=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$golden/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
x86_64-w64-mingw32-g++ -std=c++20 -O1 -static -DTORVO_STATIC=1 -I"$root" -o "$work/probe.exe" \
    "$golden/character_probe.cpp" "$root/Utility/platform/windows/runtime.cpp" "$root/Utility/platform/windows/text.cpp" \
    -luser32
cd "$golden"
WINEDEBUG=-all wine "$work/probe.exe"
