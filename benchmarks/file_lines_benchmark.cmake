find_package(PkgConfig REQUIRED)
pkg_check_modules(ICU_IO REQUIRED IMPORTED_TARGET icu-io)
target_link_libraries(file_lines_benchmark PRIVATE PkgConfig::ICU_IO)
