// By libedit's interface with callbacks, so that the library's timers and sockets go on meanwhile.
#include "lineeditor.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cstdlib>
#include <cstring>

#include <editline/readline.h>

namespace mcusim {

namespace {

constexpr int longestHistory = 1000;

// The interface calls plain functions.
const char *prompt = "";
LineEditor::Complete complete;
QStringList candidates;
QByteArray typed;
LineEditor::Key state = LineEditor::Key::Taken;

void takeLine(char *line)
{
    state = line ? LineEditor::Key::Line : LineEditor::Key::End;
    typed = line;
    std::free(line); // NOLINT(cppcoreguidelines-no-malloc)
}

char *nextCandidate(const char *, int number)
{
    return number < candidates.size() ? strdup(candidates[number].toUtf8().constData()) : nullptr;
}

char **findCandidates(const char *word, int begin, int)
{
    const QStringList before =
        QString::fromUtf8(rl_line_buffer, begin).split(' ', Qt::SkipEmptyParts);
    const std::optional<QStringList> found = complete(before, QString::fromUtf8(word));
    rl_attempted_completion_over = found ? 1 : 0;
    if (!found)
        return nullptr;
    candidates = *found;
    return rl_completion_matches(word, nextCandidate);
}

QByteArray historyFile()
{
    QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (folder.isEmpty())
        folder = QDir::homePath() + "/.local/state";
    folder += "/mcusim";
    QDir().mkpath(folder);
    return QFile::encodeName(folder + "/history");
}

} // namespace

bool LineEditor::isAvailable() { return true; }

LineEditor::LineEditor(const char *text, Complete how)
{
    prompt = text;
    complete = std::move(how);
    rl_readline_name = "mcusim";
    rl_attempted_completion_function = findCandidates;
    rl_basic_word_break_characters = " \t\n";
    using_history();
    stifle_history(longestHistory);
    read_history(historyFile().constData());
}

LineEditor::~LineEditor()
{
    // What people typed is theirs alone. Where it cannot be kept it is lost.
    const QByteArray file = historyFile();
    if (write_history(file.constData()) == 0)
        QFile::setPermissions(QFile::decodeName(file), QFile::ReadOwner | QFile::WriteOwner);
}

void LineEditor::begin()
{
    state = Key::Taken;
    rl_callback_handler_install(prompt, takeLine);
}

LineEditor::Key LineEditor::read(QByteArray *line)
{
    rl_callback_read_char();
    if (state == Key::Line) {
        *line = typed;
        if (!typed.trimmed().isEmpty())
            add_history(typed.constData());
    }
    return state;
}

void LineEditor::end() { rl_callback_handler_remove(); }

void LineEditor::redraw() { rl_forced_update_display(); }

} // namespace mcusim
