// The substitute MCU link: its one object, the answers of its queries, and the injection of
// signals.
#include "linksubstitute.h"

#include "readerthread.h"

#include "mcusrv.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>

#include <limits>
#include <vector>

using mcu::McuSrv;

McuSrv *McuSrv::instance()
{
    static McuSrv link;
    return &link;
}

namespace substitute {

namespace {

struct Query {
    const char *name;
    QMetaType::Type type;
};

const Query queryTable[] = {
    {"getVersion1", QMetaType::QString},
    {"getVersion2", QMetaType::QString},
    {"getSysBootState", QMetaType::Int},
    {"isReverseOn", QMetaType::Bool},
    {"isMuteOn", QMetaType::Bool},
    {"isNeedRenew", QMetaType::Bool},
    {"getCarFeatureCode", QMetaType::QString},
    {"getVelroCarFeatureCode", QMetaType::QByteArray},
    {"getFeatureDataStatus", QMetaType::Int},
    {"getEcuEdititon", QMetaType::Int},
};

const Query *findQuery(const QString &name)
{
    for (const Query &query : queryTable) {
        if (name == QLatin1String(query.name))
            return &query;
    }
    return nullptr;
}

QHash<QString, QVariant> &answers()
{
    static QHash<QString, QVariant> values;
    return values;
}

QList<QMetaMethod> methodsOf(QMetaMethod::MethodType type)
{
    const QMetaObject &link = McuSrv::staticMetaObject;
    QList<QMetaMethod> methods;
    for (int i = link.methodOffset(); i < link.methodCount(); ++i) {
        if (link.method(i).methodType() == type)
            methods.append(link.method(i));
    }
    return methods;
}

QMetaMethod findSignal(const QString &name)
{
    const QByteArray wanted = name.toUtf8();
    const QList<QMetaMethod> declared = methodsOf(QMetaMethod::Signal);
    for (const QMetaMethod &method : declared) {
        if (method.name() == wanted)
            return method;
    }
    return {};
}

QStringList namesOf(const QList<QMetaMethod> &methods)
{
    QStringList names;
    for (const QMetaMethod &method : methods)
        names.append(QString::fromLatin1(method.name()));
    return names;
}

QStringList parametersOf(const QMetaMethod &method)
{
    const QList<QByteArray> types = method.parameterTypes();
    const QList<QByteArray> names = method.parameterNames();
    QStringList parameters;
    for (int i = 0; i < types.size(); ++i)
        parameters.append(QString::fromLatin1(types[i] + ' ' + names[i]).trimmed());
    return parameters;
}

/// The value as an int, or invalid if it is not a 32-bit integer.
QVariant asInt(const QVariant &value)
{
    const int type = value.userType();
    if (type != QMetaType::Int && type != QMetaType::LongLong && type != QMetaType::Double)
        return {};
    const double number = value.toDouble(); // exact for all 32-bit values
    if (!(number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max()))
        return {};
    const int whole = static_cast<int>(number);
    return whole < number || whole > number ? QVariant() : QVariant(whole);
}

/// The value in exactly the given type, or invalid if it does not fit.
QVariant fitted(const QVariant &value, int type)
{
    if (type == QMetaType::Int)
        return asInt(value);
    return value.userType() == type ? value : QVariant();
}

/// A value in the format of scenario files.
QString shown(const QVariant &value)
{
    if (value.userType() == QMetaType::QByteArray)
        return QStringLiteral("0x") + QString::fromLatin1(value.toByteArray().toHex());
    const QJsonDocument list(QJsonArray{QJsonValue::fromVariant(value)});
    return QString::fromUtf8(list.toJson(QJsonDocument::Compact).mid(1).chopped(1));
}

bool refuse(QString *error, const QString &text)
{
    if (error)
        *error = text;
    return false;
}

void emitSignal(int index, QVariantList arguments)
{
    // QMetaMethod::invoke() takes at most ten arguments.
    std::vector<void *> values{nullptr};
    for (QVariant &argument : arguments)
        values.push_back(argument.data());
    McuSrv::instance()->qt_metacall(QMetaObject::InvokeMetaMethod, index, values.data());
}

} // namespace

QString describe(const QMetaMethod &method)
{
    return QStringLiteral("%1(%2)").arg(QString::fromLatin1(method.name()),
                                        parametersOf(method).join(QStringLiteral(", ")));
}

} // namespace substitute

namespace substitute::link {

CallLog &log()
{
    static CallLog commands;
    return commands;
}

bool setAnswer(const QString &query, const QVariant &value, QString *error)
{
    const Query *known = findQuery(query);
    if (!known) {
        return refuse(error, QStringLiteral("unknown query \"%1\"; known queries are: %2")
                                 .arg(query, queries().join(QStringLiteral(", "))));
    }
    const QVariant fit = fitted(value, known->type);
    if (!fit.isValid()) {
        return refuse(error, QStringLiteral("%1 answers %2, which cannot be %3")
                                 .arg(query, QString::fromLatin1(QMetaType::typeName(known->type)),
                                      shown(value)));
    }
    answers()[query] = fit;
    return true;
}

QVariant answer(const QString &query)
{
    const Query *known = findQuery(query);
    return known ? answers().value(query, QVariant(known->type, nullptr)) : QVariant();
}

QStringList queries()
{
    QStringList names;
    for (const Query &query : queryTable)
        names.append(QString::fromLatin1(query.name));
    return names;
}

bool inject(const QString &signal, const QVariantList &arguments, QString *error, Emitter emitter)
{
    const QMetaMethod method = findSignal(signal);
    if (!method.isValid()) {
        return refuse(error, QStringLiteral("unknown link signal \"%1\"; known signals are: %2")
                                 .arg(signal, namesOf(signalMethods()).join(QStringLiteral(", "))));
    }
    const QStringList parameters = parametersOf(method);
    if (arguments.size() != parameters.size()) {
        return refuse(error, QStringLiteral("%1 expects %2 arguments (%3), got %4")
                                 .arg(signal)
                                 .arg(parameters.size())
                                 .arg(parameters.join(QStringLiteral(", ")))
                                 .arg(arguments.size()));
    }
    QVariantList values;
    for (int i = 0; i < arguments.size(); ++i) {
        values.append(fitted(arguments[i], method.parameterType(i)));
        if (!values.last().isValid()) {
            return refuse(error, QStringLiteral("%1: argument %2 (%3) cannot be %4")
                                     .arg(signal)
                                     .arg(i + 1)
                                     .arg(parameters[i], shown(arguments[i])));
        }
    }

    const int index = method.methodIndex();
    McuSrv::instance(); // created before the reader thread, so that it is destroyed after it
    if (emitter == Emitter::Caller)
        emitSignal(index, values);
    else
        ReaderThread::instance().post([index, values] { emitSignal(index, values); });
    return true;
}

void drainReaderThread() { ReaderThread::instance().drain(); }

QList<QMetaMethod> signalMethods() { return methodsOf(QMetaMethod::Signal); }

QList<QMetaMethod> commandMethods() { return methodsOf(QMetaMethod::Slot); }

void reset()
{
    log().clear();
    answers().clear();
}

} // namespace substitute::link
