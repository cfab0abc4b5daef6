#!/usr/bin/env bash
# Asks the Windows runtime, under Wine, for the texts of formatted_cases.h, and writes them to formatted_vectors.txt.
set -eu
cd "$(dirname "$0")"
probe=$(mktemp -d)
trap 'rm -rf "$probe"' EXIT
x86_64-w64-mingw32-g++-posix -std=c++20 -O1 -static -I../.. formatted_probe.cpp -o "$probe/probe.exe"
WINEDEBUG=-all wine "$probe/probe.exe" | tr -d '\r' >formatted_vectors.txt
wc -l formatted_vectors.txt
