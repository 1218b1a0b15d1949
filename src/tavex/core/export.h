#pragma once

#include <QtGlobal>

/// \file
/// Marks what the library file exports.

#ifdef TAVEX_LIBRARY
#define TAVEX_EXPORT Q_DECL_EXPORT
#else
#define TAVEX_EXPORT Q_DECL_IMPORT
#endif
