# ryv_library(NAME SOURCES a.cpp ... [LINKS ryv_x ...])
# A folder of the house as one static library with hidden visibility. Headers are included from the root of
# the tree ("base/strings.h"), so that every include names the folder it comes from.
function(ryv_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}")
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ryv_flags)
endfunction()
