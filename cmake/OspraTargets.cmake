# The few commands from which every folder's target is made, so that all share one set of flags.

# Flags of everything that is compiled here. Contraction is off, so that every processor gives the same digits.
function(ospra_flags target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wswitch-enum -Werror
        -ffp-contract=off)
    if(OSPRA_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${OSPRA_SANITIZE} -fno-omit-frame-pointer
            -fno-sanitize-recover=all)
        target_link_options(${target} PRIVATE -fsanitize=${OSPRA_SANITIZE})
    endif()
endfunction()

# The static library of one folder of src/. DEPENDS names the folders it may include, SYSTEM libraries from outside.
# Every header is compiled alone by the target all_verify_interface_header_sets.
function(ospra_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;DEPENDS;SYSTEM" ${ARGN})
    if(ARG_SOURCES)
        set(scope PUBLIC)
        add_library(${name} STATIC ${ARG_SOURCES})
        ospra_flags(${name})
    else()
        set(scope INTERFACE)
        add_library(${name} INTERFACE)
        target_compile_features(${name} INTERFACE cxx_std_20)
    endif()
    target_sources(${name} ${scope} FILE_SET HEADERS BASE_DIRS "${CMAKE_SOURCE_DIR}/src" FILES ${ARG_HEADERS})
    set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
    target_include_directories(${name} ${scope} "${CMAKE_SOURCE_DIR}/src")
    target_link_libraries(${name} ${scope} ${ARG_DEPENDS} ${ARG_SYSTEM})
endfunction()

# A program in bin/.
function(ospra_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    ospra_flags(${name})
    set_target_properties(${name} PROPERTIES UNITY_BUILD OFF) # tests give their helpers the same short names
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/src" "${CMAKE_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS})
endfunction()

# The GoogleTest program of one folder of tests/. It runs in a fixed locale and time zone, without a display, and with
# folders for settings and cache of its own. WITH_WINDOWS gives it a QApplication.
function(ospra_test name)
    cmake_parse_arguments(ARG "WITH_WINDOWS" "" "SOURCES;DEPENDS" ${ARGN})
    ospra_program(${name} SOURCES ${ARG_SOURCES} DEPENDS ${ARG_DEPENDS} GTest::gtest GTest::gmock)
    if(ARG_WITH_WINDOWS)
        target_sources(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests/support/applicationMain.cpp")
        target_link_libraries(${name} PRIVATE Qt6::Widgets)
    else()
        target_link_libraries(${name} PRIVATE GTest::gmock_main)
    endif()
    ospra_test_environment(environment ${name})
    list(JOIN environment "\\\\\\\\\\\\\\;" environment) # through three readings as a list
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
        PROPERTIES ENVIRONMENT "${environment}" TIMEOUT 120)
endfunction()

# The environment that every test runs in, for the tests that are not made by ospra_test.
function(ospra_test_environment result name)
    set(home "${CMAKE_BINARY_DIR}/test-home/${name}")
    file(MAKE_DIRECTORY "${home}/config" "${home}/cache" "${home}/runtime")
    file(CHMOD "${home}/runtime" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    set(${result} LC_ALL=C.UTF-8 TZ=UTC QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software
        XDG_CONFIG_HOME=${home}/config XDG_CACHE_HOME=${home}/cache XDG_RUNTIME_DIR=${home}/runtime
        ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 PARENT_SCOPE)
endfunction()

# A Google Benchmark program.
function(ospra_benchmark name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    ospra_program(${name} SOURCES ${ARG_SOURCES} DEPENDS ${ARG_DEPENDS} benchmark::benchmark benchmark::benchmark_main)
endfunction()
