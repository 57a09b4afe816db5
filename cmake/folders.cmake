# The folders of the house as libraries, in the order of folders.txt. Each is compiled as one
# unit with common headers read once, and links what stands above it and nothing else.
#
# CHENGHENG_SHARED_FOLDERS makes shared libraries of them, each of which must find all that it
# uses in those above: an arrow that runs up does not link, and a changed file links only its
# own folder anew. The product holds the same object files in two libraries, see product.cmake.

find_package(SQLite3 REQUIRED)
find_package(PostgreSQL REQUIRED)
find_package(fmt REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(EXPAT REQUIRED)
find_package(ICU REQUIRED COMPONENTS i18n uc)
pkg_check_modules(SODIUM REQUIRED IMPORTED_TARGET libsodium)
pkg_check_modules(ZSTD REQUIRED IMPORTED_TARGET libzstd)
pkg_check_modules(XLSXWRITER REQUIRED IMPORTED_TARGET xlsxwriter)
pkg_check_modules(ZIP REQUIRED IMPORTED_TARGET libzip)
if(CHENGHENG_WINDOWS)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets PrintSupport Svg)
    find_package(Qt6Keychain REQUIRED)
    pkg_check_modules(QPDF REQUIRED IMPORTED_TARGET libqpdf)
endif()

include(cmake/charts.cmake)
set(SOURCES_books/making ${chart_source})

add_library(house_libraries INTERFACE)
target_link_libraries(house_libraries INTERFACE house_rules fmt::fmt)
add_library(house_windows INTERFACE)
if(CHENGHENG_WINDOWS)
    target_link_libraries(house_windows INTERFACE
        house_libraries Qt6::Widgets Qt6::PrintSupport Qt6::Svg)
endif()

# Compiles a target's sources together, its common headers once for all targets of one kind.
function(compile_together target headers)
    if(NOT CHENGHENG_TOGETHER)
        return()
    endif()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
    get_property(first GLOBAL PROPERTY HOUSE_${headers})
    if(first)
        target_precompile_headers(${target} REUSE_FROM ${first})
    else()
        target_precompile_headers(${target} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/${headers}.h)
        set_property(GLOBAL PROPERTY HOUSE_${headers} ${target})
    endif()
endfunction()

function(qt_target target)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON AUTORCC ON AUTOUIC ON AUTOGEN_ORIGIN_DEPENDS OFF)
endfunction()

function(add_folder folder type below)
    string(REPLACE "/" "_" name ${folder})
    folder_sources(sources ${folder}/*.cpp ${folder}/resources/*.qrc)
    if(NOT sources)
        add_library(${name} INTERFACE)
        target_link_libraries(${name} INTERFACE ${below})
        return()
    endif()
    add_library(${name} ${type} ${sources} ${SOURCES_${folder}})
    target_link_libraries(${name} PUBLIC ${below} PRIVATE ${ARGN})
    set_target_properties(${name} PROPERTIES DEFINE_SYMBOL "" LINK_DEPENDS_NO_SHARED ON)
    get_target_property(form ${name} TYPE)
    if(form STREQUAL SHARED_LIBRARY)
        target_link_options(${name} PRIVATE LINKER:--as-needed LINKER:--no-undefined)
    endif()
endfunction()

set(folder_type STATIC)
if(CHENGHENG_SHARED_FOLDERS)
    set(folder_type SHARED)
endif()
set(below_plain house_libraries)
set(below_windows)
set(PLAIN_FOLDERS)   # what has no Qt, from the ground up
set(SCREEN_FOLDERS)  # what the host puts on the screen
set(WINDOW_FOLDERS)  # the windows of the functions
file(STRINGS cmake/folders.txt folder_lines REGEX "^[a-z]")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS cmake/folders.txt)
foreach(line ${folder_lines})
    string(REPLACE " " ";" words ${line})
    list(POP_FRONT words folder)
    string(REPLACE "/" "_" name ${folder})
    if(NOT "Qt" IN_LIST words)
        add_folder(${folder} ${folder_type} ${below_plain} ${words})
        if(NOT folder STREQUAL "tool")  # a top of its own: no window stands on it
            set(below_plain ${name})
            list(APPEND PLAIN_FOLDERS ${name})
        endif()
        get_target_property(form ${name} TYPE)
        if(NOT form STREQUAL INTERFACE_LIBRARY)
            compile_together(${name} common_headers)
        endif()
    elseif(CHENGHENG_WINDOWS)
        list(REMOVE_ITEM words Qt)
        if(folder STREQUAL "shell")
            # It names no library of ours: the program gives it the product's, a test these.
            add_folder(${folder} STATIC house_windows ${words})
        else()
            add_folder(${folder} ${folder_type} "${below_windows};${below_plain};house_windows"
                ${words})
            set(below_windows ${name})
            if(folder MATCHES "/window$")
                list(APPEND WINDOW_FOLDERS ${name})
            else()
                list(APPEND SCREEN_FOLDERS ${name})
                set(TOP_SCREEN_FOLDER ${name})
            endif()
        endif()
        qt_target(${name})
        compile_together(${name} common_qt_headers)
    endif()
endforeach()
set(TOP_PLAIN_FOLDER ${below_plain})
set(TOP_WINDOW_FOLDER ${below_windows})

target_compile_definitions(base_system PRIVATE CHENGHENG_VERSION="${PROJECT_VERSION}")
if(CHENGHENG_WINDOWS)
    # Clang cannot read this library's headers as C++20. It asks which form of its smart pointers
    # is meant; 4 is the standard one.
    set_source_files_properties(screen/report/pdf_text_maps.cpp PROPERTIES
        COMPILE_OPTIONS -std=c++17 COMPILE_DEFINITIONS POINTERHOLDER_TRANSITION=4
        SKIP_UNITY_BUILD_INCLUSION ON SKIP_PRECOMPILE_HEADERS ON)
endif()
