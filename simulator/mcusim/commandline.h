// The commands of mcusim, and one way for all to read their options.
#pragma once

#include "refusal.h"

#include <QCommandLineParser>
#include <QVector>

namespace mcusim {

// Each returns the exit status, and throws a Refusal for what it cannot use.
int playCommand(const QStringList &arguments);
int shellCommand(const QStringList &arguments);
int verifyCommand(const QStringList &arguments);
int listCommand(const QStringList &arguments);
int runCommand(const QStringList &arguments);
int psCommand(const QStringList &arguments);
int monitorCommand(const QStringList &arguments);
int sendCommand(const QStringList &arguments);
int recordCommand(const QStringList &arguments);
int stationCommand(const QStringList &arguments);
int updatesCommand(const QStringList &arguments);
int textCommand(const QStringList &arguments);
int recordsCommand(const QStringList &arguments);
int checkLinkCommand(const QStringList &arguments);

class CommandLine {
public:
    struct Option {
        const char *name;
        const char *value; ///< what it takes, for the help; null for nothing
        const char *help;
        bool repeats = false;
    };
    struct Usage {
        const char *command;
        const char *operands;
        const char *description;
        QVector<Option> options;
        const char *program = "mcusim";
    };

    /// Throws a Refusal for what the usage does not have. Shows the help where it is asked for and
    /// ends the process.
    CommandLine(const QStringList &arguments, const Usage &usage);

    bool isSet(const char *option) const { return m_parser.isSet(QLatin1String(option)); }
    QString value(const char *option) const { return m_parser.value(QLatin1String(option)); }
    QStringList values(const char *option) const { return m_parser.values(QLatin1String(option)); }
    QStringList operands() const { return m_parser.positionalArguments().mid(1); }

    /// A number above 0; a whole number from 0; a moment in seconds, as milliseconds.
    double number(const char *option, double otherwise) const;
    int count(const char *option, int otherwise) const;
    qint64 moment(const char *option, qint64 otherwise) const;

    /// Refuses more than one of the options, and other numbers of operands.
    void exclude(const QVector<const char *> &options) const;
    void expectOperands(int least, int most, const char *what) const;

    [[noreturn]] void refuse(const QString &why) const;

private:
    double read(const char *option, double otherwise, const char *expected, double least,
                double most) const;

    QString m_command; ///< with the program
    QCommandLineParser m_parser;
};

} // namespace mcusim
