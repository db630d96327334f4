# SPDX-License-Identifier: GPL-3.0-or-later
# A faster linker than the compiler's own if there is one: each test program links the whole of the program.
# A linker that the user asks for stays.
include(CheckLinkerFlag)
if(NOT CMAKE_EXE_LINKER_FLAGS MATCHES "-fuse-ld")
    foreach(linker IN ITEMS mold lld)
        check_linker_flag(CXX -fuse-ld=${linker} ORVIK_LINKS_WITH_${linker})
        if(ORVIK_LINKS_WITH_${linker})
            add_link_options(-fuse-ld=${linker})
            break()
        endif()
    endforeach()
endif()
