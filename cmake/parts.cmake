# The parts without Qt: data, rules and the command-line tool.

find_package(SQLite3 REQUIRED)
find_package(PostgreSQL REQUIRED)
find_package(fmt REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(EXPAT REQUIRED)
find_package(ICU REQUIRED COMPONENTS i18n uc)
pkg_check_modules(SODIUM REQUIRED IMPORTED_TARGET libsodium)
pkg_check_modules(XLSXWRITER REQUIRED IMPORTED_TARGET xlsxwriter)
pkg_check_modules(ZIP REQUIRED IMPORTED_TARGET libzip)

folder_sources(data_sources data/*.cpp data/*/*.cpp data/*/*/*.cpp)
add_library(books_data STATIC ${data_sources})
target_link_libraries(books_data
    PUBLIC house_rules fmt::fmt
    PRIVATE SQLite::SQLite3 PostgreSQL::PostgreSQL)

set(function_folders setting accounts opening currency vouchertype settle operators print)
set(rule_patterns
    host/books/*.cpp host/services/*.cpp host/sheets/*.cpp host/forms/*.cpp)
foreach(folder ${function_folders})
    list(APPEND rule_patterns ${folder}/*.cpp)
endforeach()
folder_sources(rule_sources ${rule_patterns})
include(cmake/charts.cmake)
add_library(books_rules STATIC ${rule_sources} ${chart_source})
target_link_libraries(books_rules
    PUBLIC books_data
    PRIVATE PkgConfig::SODIUM PkgConfig::XLSXWRITER PkgConfig::ZIP EXPAT::EXPAT CLI11::CLI11
        nlohmann_json::nlohmann_json ICU::i18n ICU::uc)
set_source_files_properties(data/platform/program_version.cpp
    PROPERTIES COMPILE_DEFINITIONS CHENGHENG_VERSION="${PROJECT_VERSION}")

# Layout files lie beside the programs, where GetPrintFile finds them.
folder_sources(layout_files print/layouts/*.rpn)
foreach(file ${layout_files})
    get_filename_component(name ${file} NAME)
    configure_file(${file} ${CMAKE_BINARY_DIR}/print/${name} COPYONLY)
endforeach()

folder_sources(tool_sources host/tool/*.cpp)
list(REMOVE_ITEM tool_sources ${CMAKE_SOURCE_DIR}/host/tool/main.cpp)
add_library(chbooks_tool STATIC ${tool_sources})
target_link_libraries(chbooks_tool
    PUBLIC books_rules PRIVATE CLI11::CLI11 nlohmann_json::nlohmann_json)
add_executable(chbooks host/tool/main.cpp)
target_link_libraries(chbooks PRIVATE chbooks_tool)
