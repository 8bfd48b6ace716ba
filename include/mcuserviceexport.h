/// \file
/// What applications may link against; everything else in the library is hidden.
#pragma once

#include <QtGlobal>

/// Marks a class or function that the library exports.
#if defined(MCUSERVICE_BUILD)
#define MCUSERVICE_EXPORT Q_DECL_EXPORT
#else
#define MCUSERVICE_EXPORT Q_DECL_IMPORT
#endif
