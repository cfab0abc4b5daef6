# The peer is compiled as a library usually is, and once more with the thread-local access that ours uses.
foreach(model global-dynamic initial-exec)
    string(REPLACE "-" "_" suffix ${model})
    add_library(plain_road_${suffix} SHARED peers/plain_road.cpp)
    target_compile_options(plain_road_${suffix} PRIVATE -ftls-model=${model})
    target_compile_definitions(plain_road_${suffix} PUBLIC peer=peer_${suffix})
    torvo_warnings(plain_road_${suffix})
endforeach()
target_link_libraries(road_benchmark PRIVATE
    $<TARGET_LINKER_FILE:plain_road_global_dynamic> $<TARGET_LINKER_FILE:plain_road_initial_exec>)
add_dependencies(road_benchmark plain_road_global_dynamic plain_road_initial_exec)
