# Peer: ICU.
find_package(PkgConfig REQUIRED)
pkg_check_modules(NORMALIZERS_PEER REQUIRED IMPORTED_TARGET icu-uc icu-i18n)
target_link_libraries(normalizers_benchmark PRIVATE PkgConfig::NORMALIZERS_PEER)
