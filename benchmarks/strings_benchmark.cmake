# Peer: ICU.
find_package(PkgConfig REQUIRED)
pkg_check_modules(STRINGS_PEER REQUIRED IMPORTED_TARGET icu-uc)
target_link_libraries(strings_benchmark PRIVATE PkgConfig::STRINGS_PEER)
