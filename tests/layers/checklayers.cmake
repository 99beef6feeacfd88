# Fails when a source file of the program includes a header of a layer above its own, when a
# file under src/ reaches into tools/, or when a source file of the program, its tests or its
# benchmarks grows past MAX_LINES lines.
# Run as: cmake -DSOURCE_DIR=<top of the project> -DMAX_LINES=500 -P checklayers.cmake
cmake_minimum_required(VERSION 3.25)

# Each library's folder under src/ and its rank: a file may include its own folder's headers
# and those of a lower rank only. Libraries of one rank are independent of each other.
set(ranks
    data 0
    catalogue 1
    jetimport 2
    transfer 2
    reports 3
    recordform 4
    app 5
    forms/books 6
    forms/figures 6
    forms/printing 6
    forms/reference 7
    forms/search 7
    forms 8)

function(layer_of path out_layer out_rank)
    set(best "")
    set(best_rank -1)
    list(LENGTH ranks count)
    math(EXPR last "${count} - 1")
    foreach(i RANGE 0 ${last} 2)
        math(EXPR j "${i} + 1")
        list(GET ranks ${i} folder)
        list(GET ranks ${j} rank)
        string(LENGTH "${folder}/" prefix_length)
        string(SUBSTRING "${path}/" 0 ${prefix_length} start)
        string(LENGTH "${best}" best_length)
        string(LENGTH "${folder}" folder_length)
        if(start STREQUAL "${folder}/" AND folder_length GREATER best_length)
            set(best "${folder}")
            set(best_rank ${rank})
        endif()
    endforeach()
    set(${out_layer} "${best}" PARENT_SCOPE)
    set(${out_rank} ${best_rank} PARENT_SCOPE)
endfunction()

set(problems "")
file(GLOB_RECURSE sources RELATIVE "${SOURCE_DIR}/src" "${SOURCE_DIR}/src/*.cpp" "${SOURCE_DIR}/src/*.h")
foreach(source IN LISTS sources)
    get_filename_component(folder "${source}" DIRECTORY)
    if(folder STREQUAL "")
        set(own_rank 100) # main.cpp stands above every library
        set(own_layer "")
    else()
        layer_of("${source}" own_layer own_rank)
    endif()
    file(STRINGS "${SOURCE_DIR}/src/${source}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
    foreach(line IN LISTS includes)
        string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([^\"]+)\".*" "\\1" header "${line}")
        if(header MATCHES "^ui_|\\.moc$")
            continue()
        endif()
        if(header MATCHES "^\\.\\./|^tools/" OR NOT header MATCHES "/")
            if(NOT EXISTS "${SOURCE_DIR}/src/${folder}/${header}" OR header MATCHES "^\\.\\./")
                string(APPEND problems "src/${source}: includes \"${header}\", outside the program's libraries\n")
            endif()
            continue()
        endif()
        if(NOT EXISTS "${SOURCE_DIR}/src/${header}")
            string(APPEND problems "src/${source}: includes \"${header}\", which is not under src/\n")
            continue()
        endif()
        layer_of("${header}" header_layer header_rank)
        if(NOT header_layer STREQUAL own_layer AND NOT header_rank LESS own_rank)
            string(APPEND problems "src/${source} (${own_layer}): includes \"${header}\" of ${header_layer}, which is not below it\n")
        endif()
    endforeach()
endforeach()

file(GLOB_RECURSE all_sources RELATIVE "${SOURCE_DIR}"
    "${SOURCE_DIR}/src/*.cpp" "${SOURCE_DIR}/src/*.h"
    "${SOURCE_DIR}/tools/*.cpp" "${SOURCE_DIR}/tools/*.h"
    "${SOURCE_DIR}/tests/*.cpp" "${SOURCE_DIR}/tests/*.h"
    "${SOURCE_DIR}/bench/*.cpp" "${SOURCE_DIR}/bench/*.h")
foreach(source IN LISTS all_sources)
    file(READ "${SOURCE_DIR}/${source}" text)
    string(REGEX MATCHALL "\n" newlines "${text}")
    list(LENGTH newlines count)
    if(count GREATER MAX_LINES)
        string(APPEND problems "${source}: ${count} lines, more than ${MAX_LINES}\n")
    endif()
endforeach()

if(problems)
    message(FATAL_ERROR "The layers or file sizes are broken:\n${problems}")
endif()
message(STATUS "Every library includes only its own and lower layers; no file over ${MAX_LINES} lines")
