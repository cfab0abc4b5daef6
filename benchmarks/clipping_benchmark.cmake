# The peers: Clipper, GEOS, and Boost.Geometry, which is headers only.
find_package(PkgConfig REQUIRED)
find_package(Boost REQUIRED)
pkg_check_modules(GEOS REQUIRED IMPORTED_TARGET geos)
pkg_check_modules(CLIPPER REQUIRED IMPORTED_TARGET polyclipping)
target_link_libraries(clipping_benchmark PRIVATE PkgConfig::GEOS PkgConfig::CLIPPER Boost::headers)
