#pragma once

/// Marks what a shared library of the host shows to others. Each library defines its own
/// `..._BUILDING` when it is built; on Linux both directions are plain default visibility.
#if defined(_WIN32)
#define KOR_SYMBOL_EXPORT __declspec(dllexport)
#define KOR_SYMBOL_IMPORT __declspec(dllimport)
#else
#define KOR_SYMBOL_EXPORT __attribute__((visibility("default")))
#define KOR_SYMBOL_IMPORT __attribute__((visibility("default")))
#endif

#if defined(KORVO_FRAMEWORK_BUILDING)
#define KOR_FRAMEWORK_API KOR_SYMBOL_EXPORT
#else
#define KOR_FRAMEWORK_API KOR_SYMBOL_IMPORT
#endif
