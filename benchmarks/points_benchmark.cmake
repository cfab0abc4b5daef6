# The peer of the number reader: header only, from the distribution.
find_path(TORVO_FAST_FLOAT fast_float/fast_float.h REQUIRED)
target_include_directories(points_benchmark PRIVATE ${TORVO_FAST_FLOAT})
