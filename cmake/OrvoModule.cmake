# One CMake library per source folder: every .cpp/.h in the folder belongs to it, so
# adding a file needs no edit here. DEPS are the libraries the folder may use.
function(orvo_module name)
    cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
    file(GLOB _sources CONFIGURE_DEPENDS
        ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_library(${name} STATIC ${_sources})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_DEPS})
endfunction()

# A test program for one folder of tests/: every .cpp in it, linked with gtest_main
# unless the folder brings its own main.
function(orvo_test_folder name)
    cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
    file(GLOB _sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
        ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_executable(${name} ${_sources})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gtest GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
        PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;ORVO_TODAY=2024-03-15")
endfunction()
