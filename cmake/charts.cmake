# The charts of accounts are data files; the program carries them inside, so that it needs
# nothing beside it when it runs.

foreach(chart small_enterprise enterprise)
    set(chart_file ${CMAKE_SOURCE_DIR}/books/making/charts/${chart}.csv)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${chart_file})
    file(READ ${chart_file} CHART_${chart})
endforeach()
set(chart_source ${CMAKE_BINARY_DIR}/generated/chart_files.cpp)
configure_file(books/making/charts/chart_files.cpp.in ${chart_source} @ONLY)
