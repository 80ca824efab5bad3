# One CMake library per source folder: every .cpp/.h in the folder (and in the
# sub-folders named by DIRS, such as host's storage/ and methods/) belongs to it, so
# adding a file needs no edit here. DEPS are the libraries the folder may use.
function(orvo_module name)
    cmake_parse_arguments(ARG "" "" "DEPS;DIRS" ${ARGN})
    set(_globs ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    foreach(_d ${ARG_DIRS})
        list(APPEND _globs ${CMAKE_CURRENT_SOURCE_DIR}/${_d}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/${_d}/*.h)
    endforeach()
    file(GLOB _sources CONFIGURE_DEPENDS ${_globs})
    set(_code ${_sources})
    list(FILTER _code INCLUDE REGEX "\\.cpp$")
    if(NOT _code)
        # A folder that holds no code yet still links its dependencies through.
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
        target_link_libraries(${name} INTERFACE ${ARG_DEPS})
        return()
    endif()
    add_library(${name} STATIC ${_sources})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_DEPS})
endfunction()

# A test program for one folder of tests/: every .cpp in it, linked with gtest_main.
function(orvo_test_folder name)
    cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
    file(GLOB _sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
        ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    if(NOT _sources)
        return()
    endif()
    add_executable(${name} ${_sources})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gtest GTest::gmock GTest::gtest_main)
    # One value per property: a list given to ENVIRONMENT would be split by the discovery
    # into property names, and the tests would run on the clock's date.
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
        PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen
                   ENVIRONMENT_MODIFICATION ORVO_TODAY=set:2024-03-15)
endfunction()
