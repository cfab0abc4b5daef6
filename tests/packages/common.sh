# Shared by the tests of the packages; sourced from the root of the tree.
work=$PWD/build/packages_test/$kind
rm -rf "$work"
mkdir -p "$work"
packages=$work/packages
version=$(sed -n 's/^project(TorvoUtility VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)

fault() { echo "$*"; exit 1; }

# Packs twice, as two people would who share nothing but the sources, and compares the bytes.
pack_twice() {
    ./package --to "$packages" "$kind"
    (umask 077 && TZ=Pacific/Auckland LC_ALL=C.UTF-8 ./package --to "$work/again" "$kind")
    diff -r "$packages" "$work/again" || fault 'packed again, the same tree gives other bytes'
    (cd "$packages" && sha256sum --check --quiet SHA256SUMS)
}

# Nothing in an unpacked tree may tell where it was built.
check_paths() {
    ! grep -rlaF "$PWD" "$1" || fault "the files above name $PWD"
}
