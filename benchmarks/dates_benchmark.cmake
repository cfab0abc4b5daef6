# The peers of the conversions, compiled into a shared library as ours are.
add_library(calendar_peer SHARED peers/calendar.cpp)
set_target_properties(calendar_peer PROPERTIES CXX_VISIBILITY_PRESET hidden)
torvo_warnings(calendar_peer)
target_link_libraries(dates_benchmark PRIVATE calendar_peer)
