// Broadcast text: every byte of the character set, and the limits of the input.
#include "radiostringconnver.h"

#include <QTest>

#include <climits>

namespace {

// The character set as text, 16 characters per row. A dot is a byte that is dropped, except 0x2E,
// which is the full stop itself.
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
        QByteArray bytes;
        QString text;
        for (int byte = 0; byte < 256; ++byte) {
            const char data = char(byte);
            const bool dropped = characterSet[byte] == '.' && byte != '.';
            QCOMPARE(radioStringConnver::convertFromEBU(&data, 1),
                     dropped ? QString() : QString(characterSet[byte]));
            QCOMPARE(radioStringConnver::table_dab_charset0[byte],
                     dropped ? ushort(0) : characterSet[byte].unicode());
            bytes += data;
            text += dropped ? QString() : QString(characterSet[byte]);
            QCOMPARE(radioStringConnver::convertFromEBU(bytes.constData(), bytes.size()), text);
        }
    }

    void convertsTexts()
    {
        const QByteArray bytes("H\0I\xa9\x0b\x24", 6); // a zero byte does not end it
        const QString texts[]{{}, "H", "H", "HI", "HI€", "HI€", "HI€ł"};
        for (int length = 0; length <= bytes.size(); ++length)
            QCOMPARE(radioStringConnver::convertFromEBU(bytes.constData(), length), texts[length]);
        for (int length : {3, 0, -1, INT_MIN})
            QVERIFY(radioStringConnver::convertFromEBU("\0\x0b\x1f", length).isNull());
        QVERIFY(radioStringConnver::convertFromEBU(nullptr, 5).isNull());
    }
};

QTEST_APPLESS_MAIN(tst_RadioStringConnver)
#include "tst_radiostringconnver.moc"
