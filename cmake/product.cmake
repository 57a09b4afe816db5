# What operators get: the host and the module as shared libraries, the program, and chbooks.
#
# chenghenghost holds all up to the screen, so that the host's globals exist exactly once in a
# process; nbcwsetting holds the windows and exports only what module_exports.map names.

# The layouts of reports lie beside the programs, where GetPrintFile finds them.
folder_sources(layout_files report/layout/layouts/*.rpn)
foreach(file ${layout_files})
    get_filename_component(name ${file} NAME)
    configure_file(${file} ${CMAKE_BINARY_DIR}/print/${name} COPYONLY)
endforeach()

add_executable(chbooks program/chbooks/main.cpp)
target_link_libraries(chbooks PRIVATE tool)

if(NOT CHENGHENG_WINDOWS)
    return()
endif()

# The object files of folders and the outside libraries that these need.
function(parts_of objects needs)
    set(found_objects)
    set(found_needs)
    foreach(folder ${ARGN})
        get_target_property(form ${folder} TYPE)
        if(NOT form STREQUAL INTERFACE_LIBRARY)
            list(APPEND found_objects $<TARGET_OBJECTS:${folder}>)
            get_target_property(needed ${folder} LINK_LIBRARIES)
            list(FILTER needed INCLUDE REGEX "::")
            list(APPEND found_needs ${needed})
        endif()
    endforeach()
    list(REMOVE_DUPLICATES found_needs)
    set(${objects} ${found_objects} PARENT_SCOPE)
    set(${needs} ${found_needs} PARENT_SCOPE)
endfunction()

parts_of(host_objects host_needs ${PLAIN_FOLDERS} ${SCREEN_FOLDERS})
add_library(chenghenghost SHARED ${host_objects})
target_link_libraries(chenghenghost PUBLIC house_windows PRIVATE ${host_needs})

parts_of(module_objects module_needs ${WINDOW_FOLDERS})
add_library(nbcwsetting SHARED ${module_objects})
target_link_libraries(nbcwsetting PUBLIC chenghenghost PRIVATE ${module_needs})
target_link_options(nbcwsetting PRIVATE
    LINKER:--version-script=${CMAKE_SOURCE_DIR}/cmake/module_exports.map LINKER:--no-undefined)
set_target_properties(nbcwsetting PROPERTIES
    LINK_DEPENDS ${CMAKE_SOURCE_DIR}/cmake/module_exports.map)
set_target_properties(chenghenghost nbcwsetting PROPERTIES LINKER_LANGUAGE CXX)

# The command-line tool once more, with the pages of reports.
add_executable(chbooks-pdf program/pdf/main.cpp)
target_link_libraries(chbooks-pdf PRIVATE tool ${TOP_SCREEN_FOLDER})

add_executable(chengheng program/main.cpp)
target_link_libraries(chengheng PRIVATE shell nbcwsetting chenghenghost)
set_target_properties(chengheng PROPERTIES BUILD_RPATH_USE_ORIGIN ON)
