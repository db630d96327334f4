# The house's warnings, as errors, and the sanitizers where they are asked for.
add_library(orvik_options INTERFACE)
target_compile_options(orvik_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
target_compile_definitions(orvik_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS
                           QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(ORVIK_SANITIZE)
    target_compile_options(orvik_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                           -fno-omit-frame-pointer)
    target_link_options(orvik_options INTERFACE -fsanitize=address,undefined)
endif()
