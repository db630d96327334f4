# SPDX-License-Identifier: GPL-3.0-or-later
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
    orvik_compile_together(orvik_core ${room_CORE})
    if(TARGET orvik_ui)
        target_sources(orvik_ui PRIVATE ${room_WINDOWS})
        orvik_compile_together(orvik_ui ${room_WINDOWS})
    endif()
endfunction()

# Sources with a local name that another source of their room has too.
set(ORVIK_SOURCES_APART
    data/EditableRecordSet.cpp data/EngineRules.cpp data/MomentCondition.cpp data/StatementTokens.cpp
    data/StoredQuery.cpp editors/frmDocument.cpp editors/frmEvent.cpp editors/frmOrganization.cpp
    editors/frmPicList.cpp export/ExportFormats.cpp files/FileCopy.cpp files/SharedFolderSplit.cpp journal/SnapshotWriter.cpp
    journal/UndoSteps.cpp map/OrganizationPlaces.cpp
    records/DocumentStore.cpp records/EventStore.cpp records/OrganizationStore.cpp timeline/EventMarker.cpp
    timeline/WindowEvents.cpp widgets/LinkButton.cpp widgets/ReadablePalette.cpp widgets/WindowSize.cpp)

# orvik_compile_together(LIBRARY file...): with ORVIK_UNITY, the sources of a room are compiled as one, but those apart.
function(orvik_compile_together library)
    foreach(source IN LISTS ARGN)
        if(source MATCHES "\\.cpp$" AND NOT "${name}/${source}" IN_LIST ORVIK_SOURCES_APART)
            set_source_files_properties(${source} TARGET_DIRECTORY ${library} PROPERTIES UNITY_GROUP ${name})
        endif()
    endforeach()
endfunction()
