#pragma once

#include <QtGlobal>

/// \file
/// Marks what the library file exports.

/// \namespace Quorvex
/// All that the library offers.

/// \namespace Quorvex::Interfaces
/// What classes of the library and of applications may implement.

/// \def TAVEX_EXPORT
/// Stands before a class or a function that programs may use.

#ifdef TAVEX_LIBRARY
#define TAVEX_EXPORT Q_DECL_EXPORT
#else
#define TAVEX_EXPORT Q_DECL_IMPORT
#endif
