# One place for the warnings and the sanitizers of every target.
add_library(karvel_strictness INTERFACE)
target_compile_options(karvel_strictness INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Werror
    -Wno-restrict)  # GCC 12 warns of its own string concatenation
if(KARVEL_SANITIZE)
    target_compile_options(karvel_strictness INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer -O1)
    target_link_options(karvel_strictness INTERFACE -fsanitize=address,undefined)
endif()
