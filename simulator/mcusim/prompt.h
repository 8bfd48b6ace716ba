// Where the lines of the shell come from: a person at a terminal, or a script.
#pragma once

#include "lineeditor.h"

#include "jsonlines.h"

#include <QSocketNotifier>
#include <QTimer>

#include <memory>

namespace mcusim {

class Prompt {
public:
    explicit Prompt(const LineEditor::Complete &complete);

    /// On standard input and output.
    bool isTerminal() const { return m_isTerminal; }
    /// The next line; false at the end. Meanwhile the event loop runs, and `goesOn` is asked
    /// several times a second. Throws a Refusal for a line that is too long.
    bool next(QString *line, const std::function<bool()> &goesOn);
    /// The number of the line.
    int number() const { return m_lines.number(); }

    /// Around all that is shown while a line is typed.
    void hide();
    void show();

private:
    void read();

    bool m_isTerminal;
    std::unique_ptr<LineEditor> m_editor;
    LineReader m_lines;
    QSocketNotifier m_input;
    bool m_isAtEnd = false;
    bool m_isTyping = false;
};

/// Runs the event loop until something happens, at most so many milliseconds, and never long.
void waitOnce(qint64 milliseconds);

} // namespace mcusim
