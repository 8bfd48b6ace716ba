#include "prompt.h"

#include "process.h"

#include <QCoreApplication>

#include <unistd.h>

namespace mcusim {

namespace {

constexpr char prompt[] = "mcusim> ";
constexpr qint64 longestWait = 100; // interrupts are looked for

} // namespace

Prompt::Prompt(const LineEditor::Complete &complete)
    : m_isTerminal(isatty(STDIN_FILENO) && isatty(STDOUT_FILENO)),
      m_input(STDIN_FILENO, QSocketNotifier::Read)
{
    if (m_isTerminal && LineEditor::isAvailable())
        m_editor = std::make_unique<LineEditor>(prompt, complete);
    m_input.setEnabled(false);
    QObject::connect(&m_input, &QSocketNotifier::activated, &m_input, [this] { read(); });
}

bool Prompt::next(QString *line, const std::function<bool()> &goesOn)
{
    QByteArray bytes;
    bool isWhole = m_lines.next(&bytes);
    if (!isWhole && !m_isAtEnd) {
        m_isTyping = m_isTerminal;
        if (m_editor)
            m_editor->begin();
        else
            show();
        m_input.setEnabled(true);
        while (!isWhole && !m_isAtEnd && goesOn()) {
            waitOnce(longestWait);
            isWhole = m_lines.next(&bytes);
        }
        m_input.setEnabled(false);
        if (m_editor) {
            hide();
            m_editor->end();
        }
        m_isTyping = false;
    }
    if (!isWhole && m_isAtEnd)
        bytes = m_lines.rest();
    *line = QString::fromUtf8(bytes);
    return isWhole || !bytes.isEmpty();
}

void Prompt::hide()
{
    if (!m_isTyping)
        return;
    std::fputs("\r\033[K", stdout);
    std::fflush(stdout);
}

void Prompt::show()
{
    if (m_isTyping && !m_editor)
        std::fputs(prompt, stdout);
    std::fflush(stdout);
    if (m_isTyping && m_editor)
        m_editor->redraw();
}

void Prompt::read()
{
    if (m_editor) {
        QByteArray line;
        const LineEditor::Key key = m_editor->read(&line);
        m_isAtEnd = key == LineEditor::Key::End;
        line += '\n';
        if (key == LineEditor::Key::Line)
            m_lines.feed(line.constData(), line.size());
        m_input.setEnabled(key == LineEditor::Key::Taken);
        return;
    }
    char bytes[1 << 16];
    const ssize_t size = ::read(STDIN_FILENO, bytes, sizeof bytes);
    m_isAtEnd = size <= 0;
    m_lines.feed(bytes, int(std::max(size, ssize_t(0))));
}

void waitOnce(qint64 milliseconds)
{
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.start(int(std::min(milliseconds, longestWait)));
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace mcusim
