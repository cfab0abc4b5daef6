# The peer that reads and writes moments by a format.
find_package(absl REQUIRED)
target_link_libraries(times_benchmark PRIVATE absl::time absl::strings)
