# Cross compiler for 64-bit Windows: Debian's mingw-w64 with posix threads (std::thread and
# std::mutex exist only there). Everything is linked statically, so that a program is one file
# which needs nothing but Windows' own libraries.
#
#   cmake -DCMAKE_TOOLCHAIN_FILE=packaging/windows/toolchain.cmake -DKARVEL_QT_DIR=<static Qt> ...
#
# KARVEL_QT_DIR may be left out where no window is built (the core, its tests, karvel-cli), and
# KARVEL_GOOGLETEST_DIR, what build-googletest makes, where no test is.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# CMake reads this file once more for each of its trial compilations, which know only the
# variables named here.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KARVEL_QT_DIR KARVEL_GOOGLETEST_DIR)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
if(KARVEL_QT_DIR)
    list(APPEND CMAKE_FIND_ROOT_PATH "${KARVEL_QT_DIR}")
    list(APPEND CMAKE_PREFIX_PATH "${KARVEL_QT_DIR}")
    # moc, rcc and the like run while building: they are this machine's own.
    set(QT_HOST_PATH /usr CACHE PATH "Qt whose tools run on the building machine")
    set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "its CMake files")
endif()
if(KARVEL_GOOGLETEST_DIR)
    list(APPEND CMAKE_FIND_ROOT_PATH "${KARVEL_GOOGLETEST_DIR}")
    list(APPEND CMAKE_PREFIX_PATH "${KARVEL_GOOGLETEST_DIR}")
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Without a time stamp in the header, two builds of the same sources are the same bytes.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
