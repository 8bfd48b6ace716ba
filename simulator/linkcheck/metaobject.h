// The Qt meta-objects of a library, as its file has them: what moc has written for each class.
#pragma once

#include "elflibrary.h"

namespace mcusim {

struct MetaObject {
    QByteArray className;
    QByteArray superClass;     ///< empty without
    QByteArrayList signatures; ///< of its signals: "keyEventSgl(int,int)"
};

/// Those of Qt 5, exported or not.
QVector<MetaObject> metaObjects(const ElfLibrary &library);

} // namespace mcusim
