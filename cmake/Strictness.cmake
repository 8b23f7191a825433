# One place for the warnings and the sanitizers of every target.
add_library(karvel_strictness INTERFACE)
target_compile_options(karvel_strictness INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Werror
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)  # GCC 12 warns of its own string concatenation
if(KARVEL_SANITIZE)
    target_compile_options(karvel_strictness INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer -O1)
    target_link_options(karvel_strictness INTERFACE -fsanitize=address,undefined)
endif()
if(KARVEL_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL Clang)
        message(FATAL_ERROR "the fuzz targets need clang (the preset fuzz asks for it)")
    endif()
    # Coverage of the program's code guides the fuzzer; the checks of the standard library are on too.
    target_compile_options(karvel_strictness INTERFACE -fsanitize=fuzzer-no-link -D_GLIBCXX_ASSERTIONS)
endif()
