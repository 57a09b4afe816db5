# Every fuzz/NAME_fuzz.cpp is a program fuzz_NAME of its own; clang only.

folder_sources(fuzz_sources fuzz/*_fuzz.cpp)

foreach(source ${fuzz_sources})
    get_filename_component(name ${source} NAME_WE)
    string(REGEX REPLACE "_fuzz$" "" name ${name})
    add_executable(fuzz_${name} ${source})
    target_link_libraries(fuzz_${name} PRIVATE ${TOP_PLAIN_FOLDER})
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
endforeach()

# The parts under test tell the fuzzer which branches they took.
foreach(folder ${PLAIN_FOLDERS})
    get_target_property(form ${folder} TYPE)
    if(NOT form STREQUAL INTERFACE_LIBRARY)
        target_compile_options(${folder} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endforeach()
