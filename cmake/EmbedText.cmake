# SPDX-License-Identifier: GPL-3.0-or-later
# orvik_embed_text(LIBRARY TEXT HEADER FUNCTION): adds a source to a library of the folder that calls it, which defines
# `std::string_view FUNCTION()`, declared by HEADER, with the content of the file TEXT.
if(CMAKE_SCRIPT_MODE_FILE)
    file(READ ${TEXT} content)
    file(WRITE ${OUTPUT} "#include \"${HEADER}\"

std::string_view ${FUNCTION}()
{
    return R\"TEXT(${content})TEXT\";
}
")
    return()
endif()

set(ORVIK_EMBED_TEXT ${CMAKE_CURRENT_LIST_FILE})

function(orvik_embed_text library text header function)
    get_filename_component(name ${text} NAME_WE)
    set(embedded ${CMAKE_CURRENT_BINARY_DIR}/Embedded_${name}.cpp)
    add_custom_command(
        OUTPUT ${embedded}
        COMMAND ${CMAKE_COMMAND} -DTEXT=${text} -DHEADER=${header} -DFUNCTION=${function} -DOUTPUT=${embedded}
                -P ${ORVIK_EMBED_TEXT}
        DEPENDS ${text} ${ORVIK_EMBED_TEXT}
        VERBATIM)
    set_source_files_properties(${embedded} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    target_sources(${library} PRIVATE ${embedded})
endfunction()
