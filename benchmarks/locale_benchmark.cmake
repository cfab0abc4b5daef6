find_package(PkgConfig REQUIRED)
pkg_check_modules(ICU REQUIRED IMPORTED_TARGET icu-uc icu-i18n)
target_link_libraries(locale_benchmark PRIVATE PkgConfig::ICU)
