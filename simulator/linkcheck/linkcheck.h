// What the library will miss on a platform: its wants, held against the files of the platform.
#pragma once

#include "metaobject.h"

#include <QMap>

#include <vector>

namespace mcusim {

/// The libraries that are given, and behind them all that is loaded with them and is found.
class PlatformLibraries {
public:
    /// A library loads its own needs, too. All is searched in these folders, next to the library
    /// that needs it, and where the system has its libraries. Throws a Refusal for a given one.
    PlatformLibraries(const QStringList &given, const QStringList &folders,
                      const ElfLibrary &library);

    bool has(const QByteArray &name) const;

    std::vector<ElfLibrary> all;
    std::size_t given;
    QMap<QByteArray, QByteArray> missing; ///< by the name of a library: which one needs it

private:
    void load(const ElfLibrary &user, const QStringList &folders);
};

/// What the library does with its platform.
struct Wants {
    ElfLibrary library;
    QMap<QByteArray, QByteArrayList> connectedSignals; ///< by class: "keyEventSgl(int,int)"
    QByteArray linkClass;                              ///< the other classes are the services'
};

struct Finding {
    const char *weight; ///< "fault"; "wanted" from services that are not given; "note"
    const char *kind;
    QString what;
    QString why;
    QStringList near; ///< what is there instead
};

/// All findings; the first of the libraries is the link.
QVector<Finding> checkLink(const Wants &wants, const PlatformLibraries &platform);

} // namespace mcusim
