# The compiler's own DLLs, which a program for Windows finds beside itself. The library and the programs that use it share
# them, since exceptions and texts of the standard library pass between the two.
function(torvo_find_mingw_runtime files)
    set(found)
    foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
                        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT EXISTS "${path}")
            message(FATAL_ERROR "${dll} of ${CMAKE_CXX_COMPILER} not found")
        endif()
        list(APPEND found "${path}")
    endforeach()
    set(${files} ${found} PARENT_SCOPE)
endfunction()

function(torvo_copy_mingw_runtime)
    torvo_find_mingw_runtime(files)
    file(COPY ${files} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
endfunction()
