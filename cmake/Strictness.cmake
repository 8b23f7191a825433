# One place for the warnings, the sanitizers and the hardening of every target.
add_library(karvel_strictness INTERFACE)
target_compile_options(karvel_strictness INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Werror
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)  # GCC 12 warns of its own string concatenation
# GCC 13 and 14 warn of their own std::optional of a class with strings.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 13)
    target_compile_options(karvel_strictness INTERFACE -Wno-maybe-uninitialized)
endif()
if(KARVEL_SANITIZE)
    target_compile_options(karvel_strictness INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(karvel_strictness INTERFACE -fsanitize=address,undefined)
endif()
if(KARVEL_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL Clang)
        message(FATAL_ERROR "the fuzz targets need clang (the preset fuzz asks for it)")
    endif()
    # Coverage of the program's code guides the fuzzer; the checks of the standard library are on too.
    target_compile_options(karvel_strictness INTERFACE -fsanitize=fuzzer-no-link -D_GLIBCXX_ASSERTIONS)
endif()
# What is handed out is hardened: a fault in memory that nobody has found ends the program instead of being
# used. packaging/hardening reads it from the finished programs. On Windows the linker does its part (addresses
# that change at every start, data that cannot be run) without being asked; this compiler has no Control Flow Guard.
if(CMAKE_BUILD_TYPE STREQUAL Release)
    target_compile_options(karvel_strictness INTERFACE -fstack-protector-strong)
    target_compile_options(karvel_strictness INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    if(WIN32)
        target_link_options(karvel_strictness INTERFACE -fstack-protector-strong)  # the checks are a library here
    else()
        set(CMAKE_POSITION_INDEPENDENT_CODE ON)
        target_link_options(karvel_strictness INTERFACE
            $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie> -Wl,-z,relro,-z,now,-z,noexecstack)
    endif()
endif()
