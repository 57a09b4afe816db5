# Every bench/*_bench.cpp is a program of its own; it prints its lines of bench/run. Those
# named *_window_bench.cpp measure windows.

folder_sources(bench_programs bench/*_bench.cpp)
folder_sources(bench_support bench/*.cpp)
list(REMOVE_ITEM bench_support ${bench_programs})

foreach(program ${bench_programs})
    get_filename_component(name ${program} NAME_WE)
    add_executable(${name} ${program} ${bench_support})
    target_link_libraries(${name} PRIVATE
        ${TOP_PLAIN_FOLDER} SQLite::SQLite3 PostgreSQL::PostgreSQL)
    if(name MATCHES "_window_bench$")
        target_link_libraries(${name} PRIVATE ${TOP_WINDOW_FOLDER})
    endif()
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/programs)
endforeach()

target_compile_definitions(peers_bench PRIVATE CHENGHENG_CHBOOKS="$<TARGET_FILE:chbooks>")
add_dependencies(peers_bench chbooks)
