// A line as it is typed on a terminal, with completion and a history that outlives the process.
#pragma once

#include <QStringList>

#include <functional>
#include <optional>

namespace mcusim {

/// One at a time in a process. Without the library for it, it is not available.
class LineEditor {
public:
    /// What a word can become, with the words before it; nothing for the names of files.
    using Complete =
        std::function<std::optional<QStringList>(const QStringList &before, const QString &word)>;
    enum class Key { Taken, Line, End };

    static bool isAvailable();

    LineEditor(const char *prompt, Complete complete);
    ~LineEditor();
    LineEditor(const LineEditor &) = delete;
    LineEditor &operator=(const LineEditor &) = delete;

    /// Shows the prompt and takes the keys.
    void begin();
    /// A key is there; with Line the line is whole.
    Key read(QByteArray *line);
    void end();
    /// Shows the prompt again, with what is typed.
    void redraw();
};

} // namespace mcusim
