# The parts with Qt: what the host supplies on the screen, the windows, the program.
#
# The tests link the static parts. The product holds the same object files, compiled once, in
# two shared libraries: chenghenghost (data, rules, host; it alone owns the host's globals) and
# nbcwsetting (the windows; it exports only what cmake/module_exports.map names).

find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets PrintSupport Svg)
pkg_check_modules(QPDF REQUIRED IMPORTED_TARGET libqpdf)

# The library asks which form of its smart pointers is meant; 4 is the standard one.
set_source_files_properties(host/screen/report/pdf_texts.cpp
    PROPERTIES COMPILE_DEFINITIONS POINTERHOLDER_TRANSITION=4)

function(qt_target target)
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON AUTOUIC ON)
endfunction()

folder_sources(host_sources host/screen/*.cpp host/screen/*/*.cpp host/screen/*/*.qrc)
add_library(books_host STATIC ${host_sources})
target_link_libraries(books_host
    PUBLIC books_rules Qt6::Widgets Qt6::PrintSupport Qt6::Svg PRIVATE PkgConfig::QPDF)
qt_target(books_host)

set(window_patterns)
foreach(folder ${function_folders})
    list(APPEND window_patterns ${folder}/window/*.cpp)
endforeach()
folder_sources(window_sources ${window_patterns})
add_library(books_windows STATIC ${window_sources})
target_link_libraries(books_windows PUBLIC books_host)
qt_target(books_windows)

# The shell names no library of ours: the program gives it the shared forms, a test the static.
folder_sources(shell_sources host/shell/*.cpp)
if(shell_sources)
    add_library(chengheng_shell STATIC ${shell_sources})
    target_link_libraries(chengheng_shell PUBLIC house_rules fmt::fmt Qt6::Widgets Qt6::Svg)
    qt_target(chengheng_shell)
else()
    add_library(chengheng_shell INTERFACE)
endif()

# What a static part needs from outside.
function(outside_libraries variable)
    set(found)
    foreach(part ${ARGN})
        get_target_property(needed ${part} LINK_LIBRARIES)
        list(APPEND found ${needed})
    endforeach()
    list(REMOVE_DUPLICATES found)
    list(REMOVE_ITEM found books_data books_rules books_host)
    set(${variable} ${found} PARENT_SCOPE)
endfunction()

set(host_parts books_data books_rules books_host)
set_target_properties(${host_parts} PROPERTIES
    CXX_VISIBILITY_PRESET default VISIBILITY_INLINES_HIDDEN OFF)
set(host_objects)
foreach(part ${host_parts})
    list(APPEND host_objects $<TARGET_OBJECTS:${part}>)
endforeach()
outside_libraries(host_needs ${host_parts})
add_library(chenghenghost SHARED ${host_objects})
target_link_libraries(chenghenghost
    PUBLIC house_rules fmt::fmt Qt6::Widgets Qt6::PrintSupport Qt6::Svg PRIVATE ${host_needs})

add_library(nbcwsetting SHARED $<TARGET_OBJECTS:books_windows>)
target_link_libraries(nbcwsetting PUBLIC chenghenghost)
target_link_options(nbcwsetting PRIVATE
    LINKER:--version-script=${CMAKE_SOURCE_DIR}/cmake/module_exports.map LINKER:--no-undefined)
set_target_properties(nbcwsetting PROPERTIES
    LINKER_LANGUAGE CXX LINK_DEPENDS ${CMAKE_SOURCE_DIR}/cmake/module_exports.map)
set_target_properties(chenghenghost PROPERTIES LINKER_LANGUAGE CXX)

# The command-line tool once more, with the pages of reports.
add_executable(chbooks-pdf host/program/pdf/main.cpp)
target_link_libraries(chbooks-pdf PRIVATE chbooks_tool books_host)

if(EXISTS ${CMAKE_SOURCE_DIR}/host/program/main.cpp)
    folder_sources(program_sources host/program/*.cpp)
    add_executable(chengheng ${program_sources})
    target_link_libraries(chengheng PRIVATE chengheng_shell nbcwsetting chenghenghost)
    set_target_properties(chengheng PROPERTIES BUILD_RPATH_USE_ORIGIN ON)
endif()
