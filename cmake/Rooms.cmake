# orvik_room(USES room... CORE file... WINDOWS file...): the room of the folder that calls it.
#
# A room is a folder of src/. What it decides without a window belongs to orvik_core, its windows to orvik_ui. It
# includes headers of the rooms that it names under USES and of no other; those must be declared before it,
# so that no circle can come about. packaging/check-rooms.py holds the includes to what is declared here.
function(orvik_room)
    cmake_parse_arguments(PARSE_ARGV 0 room "" "" "USES;CORE;WINDOWS")
    if(room_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "Not understood: ${room_UNPARSED_ARGUMENTS}")
    endif()
    file(RELATIVE_PATH name ${PROJECT_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR})
    get_property(declared GLOBAL PROPERTY ORVIK_ROOMS)
    foreach(used IN LISTS room_USES)
        if(NOT used IN_LIST declared)
            message(FATAL_ERROR "${name} uses ${used}, which is not below it")
        endif()
    endforeach()
    set_property(GLOBAL APPEND PROPERTY ORVIK_ROOMS ${name})
    target_sources(orvik_core PRIVATE ${room_CORE})
    if(TARGET orvik_ui)
        target_sources(orvik_ui PRIVATE ${room_WINDOWS})
    endif()
endfunction()
