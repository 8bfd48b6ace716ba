// The language of the behaviour scripts, tests/scripts/*.txt. A row has an input, "->", and all
// effects of the input, in order:
//
//     == Keys
//     keyEventSgl(7,0)      -> keyEvent(7,0) keyPressed(7) -- onKeyEvent: ---- 7
//     usbPowerStatusSgl(0)  -> usbPowerStatus(0) isUsbOverCurrent=true
//     McuService.getDest()  -> 256
//
// Inputs:
//
//     keyEventSgl(7,0)         a report of the link
//     McuService.SetVolume(9)  a call of a public operation, a slot or a signal
//     unlinked McuService.x()  the same with an object without a link (a manager: without a facade)
//     unlinked McuService      no input: lists all its readings that are not 0, false or empty
//     start McuManager         creates the manager; all other objects exist from the start
//     set isReverseOn true     sets an answer of the link or a state of the platform
//     +200ms                   advances the virtual time
//     2e:05:02                 the factory station sends a packet: type, DID, payload
//     inside keyEvent x()      from now on x() happens inside each emission of that name
//     first() & second()       two inputs in one turn of the event loop (without braces below)
//
// Effects:
//
//     256                      the result of a call
//     keyEvent(7,0)            a signal of the facade; of others: bridge.x(), radio.x(),
//                              manager.x(), handler.x(), unlinked.x()
//     link.SetVolume(9)        a command to the link; to the platform: AudioService.Att20DB(true)
//     6e:05:02                 a packet to the factory station
//     stored.key(7)            a factory setting is stored
//     x()                      at this moment all readings have the value that they have after the
//                              row: everything is stored before the signal or command
//     x(){isAttOn=false}       at this moment this reading has another value than after the row
//     isUsbOverCurrent=true    a reading that has changed with the row
//     -- f: text | g: text     the log lines with their functions, "[ERR]" before errors; "--"
//                              alone for no line; without "--" the log is not checked
//
// Values are 7, true, "text", 0x0aff and [1,2]. 1..4 stands for 1,2,3,4; 0x00*15 for fifteen zero
// bytes (six or more equal bytes are always shown so); "x"*300 for a text of 300 letters. A small
// letter stands for any value: its row is played with several values, also extreme ones. A section
// "== Title, for X in 1 3 5..8" is played for each X. After "let WORD = text" the word stands for
// the text. A line that begins with a blank continues the previous one; "#" begins a comment.
//
// A section has new objects and is played twice. The first time, all inputs are in the main thread
// and debug output is on. The second time, reports, audio statuses and inputs of the platform are
// in another thread and debug output is off. What happens in this thread, other than at a call, is
// shown as "elsewhere x()".
#pragma once

#include <QString>
#include <QVector>

namespace substitute {
class VirtualClock;
}

namespace testkit {

/// An input and its expected effects.
struct Row {
    int line; ///< in its file
    QString stimulus;
    QString effects;
    QString log; ///< null if it is not checked
};

struct Section {
    QString file;
    QString title;
    QVector<Row> rows;
};

/// The sections of a script; a section with X is repeated for each X. Ends the program with a
/// message if the script cannot be read.
QVector<Section> readScript(const QString &path);

/// Plays a section up to the first row that fails. Returns its file and line with the expected (-)
/// and the received (+) effects; empty if all rows pass.
QString playSection(const Section &section, substitute::VirtualClock *clock);

} // namespace testkit
