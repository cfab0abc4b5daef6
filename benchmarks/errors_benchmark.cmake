# Peer: GLib.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ERRORS_PEER REQUIRED IMPORTED_TARGET glib-2.0)
target_link_libraries(errors_benchmark PRIVATE PkgConfig::ERRORS_PEER)
