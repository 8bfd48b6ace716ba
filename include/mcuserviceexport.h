// Marks what applications may link against; everything else in the library is hidden.
#pragma once

#include <QtGlobal>

#if defined(MCUSERVICE_BUILD)
#define MCUSERVICE_EXPORT Q_DECL_EXPORT
#else
#define MCUSERVICE_EXPORT Q_DECL_IMPORT
#endif
