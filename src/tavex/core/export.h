#pragma once

#include <QtGlobal>

/// \file
/// Marks what the library file exports.

/// \def TAVEX_EXPORT
/// Stands before a class or a function that programs may use.

#ifdef TAVEX_LIBRARY
#define TAVEX_EXPORT Q_DECL_EXPORT
#else
#define TAVEX_EXPORT Q_DECL_IMPORT
#endif
