# Peer: SQLite's own match.
find_package(PkgConfig REQUIRED)
pkg_check_modules(SQLITE_PEER REQUIRED IMPORTED_TARGET sqlite3)
target_link_libraries(text_tools_benchmark PRIVATE PkgConfig::SQLITE_PEER)
