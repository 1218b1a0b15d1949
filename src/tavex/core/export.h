#pragma once

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
