# SPDX-License-Identifier: GPL-3.0-or-later
# The house's warnings, and the sanitizers if they are asked for. Warnings are errors only for those who develop: a newer
# compiler warns of more, and must not keep a user from building.
add_library(orvik_options INTERFACE)
target_compile_options(orvik_options INTERFACE -Wall -Wextra -Wconversion -Wshadow $<$<BOOL:${ORVIK_WERROR}>:-Werror>)
# A step beyond the end of a container ends a test, instead of reading what happens to lie there.
target_compile_definitions(orvik_options INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
target_compile_definitions(orvik_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS
                           QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(ORVIK_SANITIZE)
    target_compile_options(orvik_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                           -fno-omit-frame-pointer)
    target_link_options(orvik_options INTERFACE -fsanitize=address,undefined)
endif()
