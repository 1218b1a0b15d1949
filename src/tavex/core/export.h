#pragma once

// C++20 has a number below its final one in GCC 10, and MSVC has its own macro.
#if defined(__cplusplus) && __cplusplus <= 201703L && !(defined(_MSVC_LANG) && _MSVC_LANG > 201703L)
#error "tavex needs C++20: compile with -std=c++20 or newer (MSVC: /std:c++20)"
#include "No such file: the compiler stops here, before errors that say nothing more"
#endif

#include <QtGlobal>

/// \file
/// What every public header needs.

/// \namespace Quorvex
/// All that the library offers.

/// \namespace Quorvex::Interfaces
/// What classes of the library and of applications may implement.

/// \def TAVEX_EXPORT
/// Marks a class or a function that the library exports.

#ifdef TAVEX_LIBRARY
#define TAVEX_EXPORT Q_DECL_EXPORT
#else
#define TAVEX_EXPORT Q_DECL_IMPORT
#endif
