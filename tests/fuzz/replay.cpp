// Runs the fuzz target without a fuzzer: over every file of a folder, then over streams of whole
// and broken packets in chunks of random lengths, the same on every run.
#include <QDir>
#include <QRandomGenerator>

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size);

namespace {

void replay(const QByteArray &input)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const quint8 *>(input.constData()),
                           std::size_t(input.size()));
}

} // namespace

int main(int argc, char **argv)
{
    const QFileInfoList files = QDir(argc > 1 ? argv[1] : "").entryInfoList(QDir::Files);
    for (const QFileInfo &info : files) {
        QFile file(info.filePath());
        if (!file.open(QFile::ReadOnly))
            return 1;
        replay(file.readAll());
    }
    QByteArrayList pieces;
    for (const char *piece :
         {"ff55032e0502c8", "ff55032e0502c9", "ff55032201", "02d8", "ff55022101dc", "ff55022e06ca",
          "ff", "55", "00", "ff55fd", "ff55fe", "ff55ff"})
        pieces.append(QByteArray::fromHex(piece));
    QRandomGenerator random(1);
    for (int round = 0; round < 2000; ++round) {
        QByteArray stream;
        while (stream.size() < 200)
            stream += pieces[random.bounded(pieces.size())];
        QByteArray input("\x01");
        for (int next = 0, step = 0; next < stream.size(); next += qMax(step - 2, 0)) {
            step = random.bounded(50) ? 2 + random.bounded(12) : random.bounded(2);
            input += char(step) + stream.mid(next, qMax(step - 2, 0));
        }
        replay(input);
    }
    return files.isEmpty() ? 1 : 0;
}
