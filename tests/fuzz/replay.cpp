// Runs a fuzz target without a fuzzer on every file of a folder.
#include "target.h"

#include <QDir>

int main(int argc, char **argv)
{
    const QFileInfoList files = QDir(argc > 1 ? argv[1] : "").entryInfoList(QDir::Files);
    for (const QFileInfo &info : files) {
        QFile file(info.filePath());
        if (!file.open(QFile::ReadOnly))
            return 1;
        std::printf("%s\n", qPrintable(info.fileName()));
        std::fflush(stdout);
        const QByteArray input = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const quint8 *>(input.constData()),
                               std::size_t(input.size()));
    }
    return files.isEmpty() ? 1 : 0;
}
