#pragma once

// The system's header without its macros min and max, which would change functions with these names.
#if defined(_WIN32)
#define WIN32_LEAN_AND_MEAN
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>
#endif
