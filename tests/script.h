// The language of the behaviour scripts, tests/scripts/*.txt. A row says what happens, "->", and
// everything that comes of it, in full and in order:
//
//     == Keys
//     keyEventSgl(7,0)      -> keyEvent(7,0) keyPressed(7) -- onKeyEvent: ---- 7
//     usbPowerStatusSgl(0)  -> usbPowerStatus(0) isUsbOverCurrent=true
//     McuService.getDest()  -> 256
//
// What happens:
//
//     keyEventSgl(7,0)         a report of the link
//     McuService.SetVolume(9)  a call of a public operation, of a slot or of a signal
//     unlinked McuService.x()  the same on an object without a link (a manager: without a facade)
//     unlinked McuService      nothing; all that can be read of it and is not 0, false or empty
//     start McuManager         makes the manager; everything else is there from the start
//     set isReverseOn true     an answer of the link or a state of the platform
//     +200ms                   virtual time passes
//     2e:05:02                 the factory station sends a packet: type, DID, payload
//     inside keyEvent x()      from now on x() happens inside each emission of that name
//     first() & second()       both happen in one turn of the event loop (without braces below)
//
// What comes of it:
//
//     256                      the result of a call
//     keyEvent(7,0)            an emission of the facade; others: bridge.x(), radio.x(),
//                              manager.x(), handler.x(), unlinked.x()
//     link.SetVolume(9)        a command to the link; to the platform: AudioService.Att20DB(true)
//     6e:05:02                 a packet to the factory station
//     stored.key(7)            a factory setting that is stored
//     x()                      told with everything stored: whatever is read inside the emission
//                              or command has the value that it has after the row
//     x(){isAttOn=false}       told while this still has another value
//     isUsbOverCurrent=true    whatever reads differently after the row than before
//     -- f: text | g: text     the log lines with their functions, "[ERR]" before errors; a lone
//                              "--" for none; without "--" anything may be logged
//
// Values are 7, true, "text", 0x0aff and [1,2]; 1..4 is 1,2,3,4, 0x00*15 fifteen zero bytes (always
// so from six on that are the same) and "x"*300 a text of 300 letters. A small letter is any
// value: its row is played with several, extreme ones too. A section
// "== Title, for X in 1 3 5..8" is played for each X; behind "let WORD = text" the word stands for
// the text. A line that begins with a blank continues the one before; "#" begins a remark.
//
// A section has new objects and is played twice: with what comes from the link and the platform,
// and audio statuses, in the main thread and debug output on; then with them in another thread and
// debug output off. What takes place in that other thread, other than at a call, reads "elsewhere
// x()".
#pragma once

#include <QString>
#include <QVector>

namespace substitute {
class VirtualClock;
}

namespace testkit {

/// Something that happens and what must come of it.
struct Row {
    int line; ///< in its file
    QString stimulus;
    QString effects;
    QString log; ///< null when it is open
};

struct Section {
    QString file;
    QString title;
    QVector<Row> rows;
};

/// The sections of a script, one for each X of those that have some. Ends the program with a
/// message when it cannot be read.
QVector<Section> readScript(const QString &path);

/// Plays a section up to the first row that is wrong. What is wrong with it, by file and line: what
/// was wanted (-) and what came (+); empty when all is right.
QString playSection(const Section &section, substitute::VirtualClock *clock);

} // namespace testkit
