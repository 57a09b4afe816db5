# One program per layer: rules, data, window, e2e.

find_package(GTest REQUIRED)
find_package(Threads REQUIRED)

# The product is watched for undefined behaviour. To watch its tests, too, would take a quarter of
# the time of their build.
set(test_options)
if(CHENGHENG_SANITIZE)
    set(test_options -fno-sanitize=undefined)
endif()

# Some of a layer's sources at a time are compiled together, their common headers once for all.
function(compile_tests_together target)
    target_compile_options(${target} PRIVATE ${test_options})
    if(NOT CHENGHENG_TOGETHER)
        return()
    endif()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
    if(target STREQUAL "test_support")
        target_precompile_headers(${target}
            PRIVATE ${CMAKE_SOURCE_DIR}/tests/support/common_test_headers.h)
    else()
        # As the library with which it shares them.
        target_compile_options(${target} PRIVATE -fPIC)
        target_precompile_headers(${target} REUSE_FROM test_support)
    endif()
endfunction()

folder_sources(support_sources tests/support/*.cpp)
add_library(test_support STATIC ${support_sources})
target_compile_options(test_support PUBLIC
    # A fixture in a file of its own may lie in a namespace without a name, compiled together too.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
target_link_libraries(test_support
    PUBLIC ${TOP_PLAIN_FOLDER} GTest::gtest GTest::gmock Threads::Threads
    PRIVATE SQLite::SQLite3 PostgreSQL::PostgreSQL PkgConfig::ZIP)
compile_tests_together(test_support)
set_source_files_properties(
    tests/rules/schema_page_test.cpp tests/support/changing_files.cpp tests/support/older_books.cpp
    tests/support/private_postgres.cpp
    PROPERTIES COMPILE_DEFINITIONS CHENGHENG_SOURCE_FOLDER="${CMAKE_SOURCE_DIR}")

# The other workstation of tests with several processes.
add_executable(test_workstation tests/workstation/main.cpp)
target_link_libraries(test_workstation PRIVATE data_transfer)
set_source_files_properties(tests/support/other_workstation.cpp
    PROPERTIES COMPILE_DEFINITIONS CHENGHENG_TEST_WORKSTATION="$<TARGET_FILE:test_workstation>")
add_dependencies(test_support test_workstation)

# The longest first, so that none is left over at the end.
# What is tried millions of times is optimised, each by itself, where nothing else is.
if(CHENGHENG_SANITIZE)
    set_source_files_properties(
        accounts/codes/code_levels.cpp base/values/numbers.cpp
        tests/rules/code_levels_test.cpp tests/rules/numbers_test.cpp
        PROPERTIES COMPILE_OPTIONS -O1 SKIP_PRECOMPILE_HEADERS ON SKIP_UNITY_BUILD_INCLUSION ON)
endif()
foreach(layer data rules)
    folder_sources(sources tests/${layer}/*.cpp tests/${layer}/*/*.cpp)
    add_executable(test_${layer} ${sources})
    target_link_libraries(test_${layer} PRIVATE test_support tool GTest::gtest_main)
    compile_tests_together(test_${layer})
    add_test(NAME ${layer} COMMAND test_${layer})
    set_tests_properties(${layer} PROPERTIES LABELS ${layer})
endforeach()
# Some look at the server past our own connection.
target_link_libraries(test_data PRIVATE PostgreSQL::PostgreSQL)
# The same code runs below the tests of windows and programs, where stacks are watched for uses
# after their end; here that would take a third of all the time of tests.
set_tests_properties(data PROPERTIES ENVIRONMENT
    "ASAN_OPTIONS=quarantine_size_mb=2:malloc_context_size=2:detect_stack_use_after_return=0")

# The fuzz targets over their corpus and some mutations of it, so that none goes stale unseen.
folder_sources(fuzz_sources fuzz/*_fuzz.cpp)
set(fuzz_parts)
set(fuzz_entries)
foreach(source ${fuzz_sources})
    get_filename_component(name ${source} NAME_WE)
    string(APPEND fuzz_parts "#define LLVMFuzzerTestOneInput run_${name}\n"
        "#include \"fuzz/${name}.cpp\"\n#undef LLVMFuzzerTestOneInput\n")
    string(REGEX REPLACE "_fuzz$" "" target ${name})
    string(APPEND fuzz_entries "    {\"${target}\", run_${name}},\n")
endforeach()
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/fuzz_targets.cpp @ONLY CONTENT
"#include \"tests/fuzz/fuzz_targets.h\"
@fuzz_parts@
std::vector<FuzzTarget> fuzzTargets() { return {
@fuzz_entries@}; }
")
add_executable(test_fuzz tests/fuzz/fuzz_targets_test.cpp ${CMAKE_BINARY_DIR}/fuzz_targets.cpp)
target_link_libraries(test_fuzz PRIVATE ${TOP_PLAIN_FOLDER} GTest::gtest_main)
target_compile_definitions(test_fuzz PRIVATE
    CHENGHENG_FUZZ_CORPUS="${CMAKE_SOURCE_DIR}/fuzz/corpus")
add_test(NAME fuzz COMMAND test_fuzz)
set_tests_properties(fuzz PROPERTIES LABELS fuzz)

# The programs as a person or a script runs them.
folder_sources(e2e_sources tests/e2e/*.cpp)
add_executable(test_e2e ${e2e_sources})
target_link_libraries(test_e2e PRIVATE test_support nlohmann_json::nlohmann_json GTest::gtest_main)
target_compile_definitions(test_e2e PRIVATE CHENGHENG_CHBOOKS="$<TARGET_FILE:chbooks>")
add_dependencies(test_e2e chbooks)
compile_tests_together(test_e2e)
if(TARGET chbooks-pdf)
    target_compile_definitions(test_e2e PRIVATE CHENGHENG_CHBOOKS_PDF="$<TARGET_FILE:chbooks-pdf>")
    add_dependencies(test_e2e chbooks-pdf)
endif()
if(TARGET chengheng)
    target_compile_definitions(test_e2e PRIVATE CHENGHENG_PROGRAM="$<TARGET_FILE:chengheng>")
    add_dependencies(test_e2e chengheng)
endif()
add_test(NAME e2e COMMAND test_e2e)
set_tests_properties(e2e PROPERTIES LABELS e2e)

# The house's own checks.
function(script_test name)
    add_test(NAME ${name} COMMAND ${ARGN})
    set_tests_properties(${name} PROPERTIES LABELS script)
endfunction()

set(tools ${CMAKE_SOURCE_DIR}/tools)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # Operators get what GCC makes.
    script_test(gcc ${tools}/read_with_gcc ${CMAKE_BINARY_DIR}/compile_commands.json)
endif()
script_test(tidy ${tools}/tidy --compiled ${CMAKE_BINARY_DIR}/compile_commands.json)
script_test(tidy_samples ${tools}/tidy --self-test)
script_test(mutate_samples ${tools}/mutate --self-test)
script_test(run_tests ${tools}/test_run_tests)
if(TARGET nbcwsetting)
    script_test(exports
        ${tools}/check_exports $<TARGET_FILE:nbcwsetting> CNbCwSettingDlg CNbCwBursarDlg
        --host $<TARGET_FILE:chenghenghost>
        g_pDB g_lpszNbZwDBName g_lpArgument g_lpLogonUserInfo g_pDlgWnd g_lpHead g_nLine)
endif()

if(CHENGHENG_WINDOWS)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
    folder_sources(sources tests/window/*.cpp tests/window/*/*.cpp)
    add_executable(test_window ${sources})
    target_link_libraries(test_window PRIVATE
        test_support shell ${TOP_WINDOW_FOLDER} Qt6::Test)
    qt_target(test_window)
    target_compile_options(test_window PRIVATE ${test_options})
    if(CHENGHENG_TOGETHER)
        set_target_properties(test_window PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
        target_precompile_headers(test_window
            PRIVATE ${CMAKE_SOURCE_DIR}/tests/window/common_window_test_headers.h)
    endif()
    add_test(NAME window COMMAND test_window)
    set_tests_properties(window PROPERTIES
        LABELS window ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_SCALE_FACTOR=1")
endif()
