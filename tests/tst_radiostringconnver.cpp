// Broadcast text: every byte against the character set as it is read, and the edges of the input.
#include "radiostringconnver.h"

#include <QTest>

namespace {

// The character set as text, 16 characters a row; a dot is a byte that is dropped (0x2E, the full
// stop itself, is the one exception).
const QString characterSet = QStringLiteral(".ĘĮŲĂĖĎŞŢĊ .ĠĹŻŃ"
                                            "ąęįųăėďşţċŇĚġĺż."
                                            " !\"#ł%&'()*+,-./"
                                            "0123456789:;<=>?"
                                            "@ABCDEFGHIJKLMNO"
                                            "PQRSTUVWXYZ[Ů]Ł_"
                                            "Ąabcdefghijklmno"
                                            "pqrstuvwxyz«ů»ĽĦ"
                                            "áàéèíìóòúùÑÇŞß¡Ÿ"
                                            "âäêëîïôöûüñçşğıÿ"
                                            "ĶŅ©ĢĞěňőŐ€£$ĀĒĪŪ"
                                            "ķņĻģļİńűŰ¿ľ°āēīū"
                                            "ÁÀÉÈÍÌÓÒÚÙŘČŠŽÐĿ"
                                            "ÂÄÊËÎÏÔÖÛÜřčšžđŀ"
                                            "ÃÅÆŒŷÝÕØÞŊŔĆŚŹŤð"
                                            "ãåæœŵýõøþŋŕćśźťħ");

} // namespace

class tst_RadioStringConnver : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void convertsEveryByte()
    {
        QCOMPARE(characterSet.size(), 256);
        for (int byte = 0; byte < 256; ++byte) {
            const char data = char(byte);
            const bool dropped = characterSet[byte] == '.' && byte != '.';
            QCOMPARE(radioStringConnver::convertFromEBU(&data, 1),
                     dropped ? QString() : QString(characterSet[byte]));
            QCOMPARE(radioStringConnver::table_dab_charset0[byte],
                     dropped ? ushort(0) : characterSet[byte].unicode());
        }
    }

    void convertsTexts_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("length");
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << QByteArray("ABC") << 3 << "ABC";
        QTest::newRow("a zero byte does not end it") << QByteArray("H\0I", 3) << 3 << "HI";
        QTest::newRow("only dropped bytes") << QByteArray("\0\x0b\x1f", 3) << 3 << "";
        QTest::newRow("no more than the length") << QByteArray("ABC") << 2 << "AB";
        QTest::newRow("nothing") << QByteArray("ABC") << 0 << "";
        QTest::newRow("less than nothing") << QByteArray("ABC") << -1 << "";
        QTest::newRow("a null pointer") << QByteArray() << 5 << "";
    }

    void convertsTexts()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, length);
        const char *data = bytes.isNull() ? nullptr : bytes.constData();
        const QString text = radioStringConnver::convertFromEBU(data, length);
        QTEST(text, "text");
        QCOMPARE(text.isNull(), text.isEmpty());
    }
};

QTEST_APPLESS_MAIN(tst_RadioStringConnver)
#include "tst_radiostringconnver.moc"
