# A program for Windows finds the compiler's own DLLs beside itself.
function(torvo_copy_mingw_runtime)
    foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
                        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT EXISTS "${path}")
            message(FATAL_ERROR "${dll} of ${CMAKE_CXX_COMPILER} not found")
        endif()
        file(COPY "${path}" DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    endforeach()
endfunction()
