#pragma once

/// @file
/// Visibility of the module's exported symbols. Everything else is hidden.

#if defined(_WIN32)
#if defined(VELLORA_BUILDING)
#define VELLORA_EXPORT __declspec(dllexport)
#else
#define VELLORA_EXPORT __declspec(dllimport)
#endif
#else
#define VELLORA_EXPORT __attribute__((visibility("default")))
#endif
