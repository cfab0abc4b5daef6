# What a release says does not depend on where it was built: paths in the objects start at the root of the tree. The
# debugger finds the sources from there. A debug build keeps full paths, for the programs that merge counts of lines.
function(torvo_release_objects target)
    if(TORVO_SANITIZE OR NOT CMAKE_BUILD_TYPE MATCHES "^Rel")
        return()
    endif()
    # The second goes before the first where both match, as it does for a build directory within the tree.
    target_compile_options(${target} PRIVATE -ffile-prefix-map=${PROJECT_BINARY_DIR}=./build
                           -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endfunction()
