# The peer that reads through a cache of its own: GDAL.
find_package(PkgConfig REQUIRED)
pkg_check_modules(GDAL_PEER REQUIRED IMPORTED_TARGET gdal)
target_link_libraries(files_benchmark PRIVATE PkgConfig::GDAL_PEER)
