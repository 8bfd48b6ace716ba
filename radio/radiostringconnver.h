/// \file
/// Broadcast text (RDS and DAB station names, radio text, service labels) to QString.
#pragma once

#include "mcuserviceexport.h"

#include <QString>

/// Converts the 8-bit EBU Latin based character set of broadcasts; docs/broadcast-text.md has the
/// table. No state, no errors, thread-safe.
///
/// Kept: applications are linked against this spelling of the class.
class MCUSERVICE_EXPORT radioStringConnver {
public:
    /// Unicode code point of each byte; 0 for a byte that stands for no character. Kept: differs
    /// from the public DAB character set at 0x07, 0x08, 0x0A, 0x0B, 0x17, 0x18 and 0x1F;
    /// applications rely on this table.
    static const ushort table_dab_charset0[256];

    /// Converts len bytes. Bytes that stand for no character are dropped; 0x00 is one of them and
    /// does not end the text. The result is a null QString when no character is left, for a len of
    /// 0 or less and for a null pointer.
    static QString convertFromEBU(const char *data, int len);
};
