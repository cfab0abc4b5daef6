# The test framework, from the distribution: its library where there is one for the target, else its packaged sources.
add_library(torvo_gtest INTERFACE)
if(CMAKE_CROSSCOMPILING)
    set(TORVO_GTEST_ROOT /usr/src/googletest/googletest)
    add_library(torvo_gtest_objects STATIC ${TORVO_GTEST_ROOT}/src/gtest-all.cc)
    target_include_directories(torvo_gtest_objects SYSTEM PUBLIC ${TORVO_GTEST_ROOT}/include)
    target_include_directories(torvo_gtest_objects PRIVATE ${TORVO_GTEST_ROOT})
    # It is compiled once and does little when the tests run.
    target_compile_options(torvo_gtest_objects PRIVATE -O0)
    target_link_libraries(torvo_gtest INTERFACE torvo_gtest_objects)
else()
    find_package(GTest REQUIRED)
    target_link_libraries(torvo_gtest INTERFACE GTest::gtest)
endif()
