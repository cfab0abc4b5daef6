# What a release says does not depend on where it was built: paths in the debug information start at the root of the
# tree, and the debugger finds the sources from there. (Without debug information there are no paths in the objects.) A
# debug build keeps full paths, for the programs that merge counts of lines.
function(torvo_release_objects target)
    if(CMAKE_BUILD_TYPE STREQUAL RelWithDebInfo AND NOT TORVO_SANITIZE)
        # The second goes before the first where both match, as it does for a build directory within the tree.
        target_compile_options(${target} PRIVATE -ffile-prefix-map=${PROJECT_BINARY_DIR}=./build
                               -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
    endif()
endfunction()
