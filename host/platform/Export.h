// Marks what the host library exports. Every class or function that the module, the library and
// a program share carries QOLF_HOST_API; all other symbols stay hidden.
//
// The library itself is compiled with QOLF_HOST_BUILDING, everybody else without.
#pragma once

#if defined(_WIN32)
#if defined(QOLF_HOST_BUILDING)
#define QOLF_HOST_API __declspec(dllexport)
#else
#define QOLF_HOST_API __declspec(dllimport)
#endif
#else
#define QOLF_HOST_API __attribute__((visibility("default")))
#endif
