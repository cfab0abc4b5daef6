find_package(PkgConfig REQUIRED)
pkg_check_modules(ICU_PEER REQUIRED IMPORTED_TARGET icu-uc)
target_link_libraries(code_page_benchmark PRIVATE PkgConfig::ICU_PEER)
