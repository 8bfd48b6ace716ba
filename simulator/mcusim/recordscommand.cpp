// mcusim records: writes the tables of the vehicle records in a page from the library's layouts.
#include "commandline.h"
#include "process.h"
#include "recordtables.h"

#include <QFile>
#include <QSaveFile>

namespace mcusim {

int recordsCommand(const QStringList &arguments)
{
    const CommandLine line(
        arguments, {"records",
                    "PAGE",
                    "Writes the tables of the vehicle records anew, between the marks of a "
                    "page such as docs/vehicle-records.md.",
                    {{"check", nullptr, "Only say whether they are those of the library."}}});
    line.expectOperands(1, 1, "one page");
    const QString path = line.operands().constFirst();
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    const QByteArray page = contentOf(file, path);
    const QByteArray updated = updatedPage(page);
    if (updated == page)
        return Passed;
    if (line.isSet("check")) {
        complain(path + ": the tables are not those of the library; mcusim records " + path +
                 " writes them");
        return Failed;
    }
    QSaveFile target(path);
    if (!target.open(QIODevice::WriteOnly) || target.write(updated) != updated.size() ||
        !target.commit())
        throw Refusal("cannot write " + path + ": " + target.errorString());
    return Passed;
}

} // namespace mcusim
