#include "linkcheck.h"

#include "catalogue.h"
#include "refusal.h"

#include <QFileInfo>

#include <algorithm>

namespace mcusim {

namespace {

using Weight = Finding::Weight;

bool isNamed(const ElfLibrary &library, const QByteArray &name)
{
    return library.name == name || QFileInfo(library.path).fileName() == QFile::decodeName(name);
}

/// "mcu::McuSrv" of "mcu::McuSrv::init()" and of "typeinfo for mcu::McuSrv".
QString classOf(const QString &symbol)
{
    if (symbol.contains(" for "))
        return symbol.section(" for ", 1);
    return symbol.section('(', 0, 0).section("::", 0, -2);
}

/// Those with the same name and other parameters; without such, those with a similar one.
QStringList nearest(const QString &wanted, const QStringList &there)
{
    const QString name = wanted.section('(', 0, 0);
    const QString shortName = name.section("::", -1);
    const int limit = std::max(1, shortName.size() / 3);
    QVector<QPair<int, QString>> found;
    for (const QString &other : there) {
        const QString otherName = other.section('(', 0, 0);
        if (std::abs(otherName.section("::", -1).size() - shortName.size()) > limit)
            continue;
        const int away = distance(shortName.toLower(), otherName.section("::", -1).toLower());
        const bool isAlike = away <= limit && other.contains('(') == wanted.contains('(');
        if (isAlike)
            found.append({otherName == name ? 0 : 1 + away, other});
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    QStringList names;
    for (const auto &one : found) {
        const bool isAsNear = one.first > 0 || found.first().first == 0;
        if (names.size() < 3 && isAsNear && (one.first == 0) == (found.first().first == 0))
            names.append(one.second);
    }
    return names;
}

class Check {
public:
    Check(const Wants &wants, const PlatformLibraries &platform)
        : m_wants(wants), m_platform(platform), m_hasServices(platform.given > 1)
    {
        for (const ElfLibrary &library : platform.all) {
            provide(library);
            for (const MetaObject &object : metaObjects(library))
                m_metaObjects.insert(object.className, object);
        }
        for (std::size_t i = 0; i < platform.given; ++i) {
            for (const Symbol &symbol : platform.all[i].symbols) {
                if (symbol.isDefined)
                    m_there.append(demangled(symbol.name));
            }
        }
        provide(wants.library);
    }

    QVector<Finding> findings()
    {
        checkProcessors();
        checkNames();
        checkOperations();
        for (const QByteArray &name : m_wants.connectedSignals.keys())
            checkSignals(name);
        checkPlatformItself();
        std::stable_sort(m_findings.begin(), m_findings.end(),
                         [](const Finding &a, const Finding &b) { return a.weight < b.weight; });
        return m_findings;
    }

private:
    void provide(const ElfLibrary &library)
    {
        for (const Symbol &symbol : library.symbols) {
            if (symbol.isDefined)
                m_provided.insert(symbol.name, symbol.version);
        }
    }

    bool isProvided(const Symbol &wanted) const
    {
        // As the dynamic linker: a library without versions provides any.
        const QByteArrayList versions = m_provided.values(wanted.name);
        return wanted.version.isEmpty()
                   ? !versions.isEmpty()
                   : versions.contains(wanted.version) || versions.contains(QByteArray());
    }

    void add(Weight weight, const char *kind, const QString &what, const QString &why,
             const QStringList &near = {})
    {
        m_findings.append({weight, kind, what, why, near});
    }

    Weight weightOf(const QString &className) const
    {
        return className == m_wants.linkClass || m_hasServices ? Weight::Fault : Weight::Wanted;
    }

    void checkProcessors()
    {
        for (std::size_t i = 0; i < m_platform.given; ++i) {
            const ElfLibrary &library = m_platform.all[i];
            if (library.processor != m_wants.library.processor)
                add(Weight::Fault, "processor", library.path,
                    "is for " + library.processor + ", the library for " +
                        m_wants.library.processor);
        }
    }

    void checkNames()
    {
        QByteArrayList names = m_wants.library.needed;
        for (const Symbol &symbol : m_wants.library.symbols)
            names.removeAll(symbol.file); // Qt and the system have versions
        const ElfLibrary &link = m_platform.all.front();
        if (!m_wants.library.needed.contains(link.name))
            add(Weight::Fault, "name", link.name, "is not loaded by the library, which loads these",
                QString(names.join('\n')).split('\n'));
        for (const QByteArray &name : names) {
            if (!m_platform.has(name))
                add(m_hasServices ? Weight::Fault : Weight::Wanted, "name", name,
                    "is loaded by the library, and no library here has this name");
        }
    }

    void checkOperations()
    {
        QMap<QString, QVector<const Symbol *>> classes;
        for (const Symbol &symbol : m_wants.library.symbols) {
            // What has a version is Qt's or the system's, if it is not a given library's.
            const bool isPlatforms =
                symbol.version.isEmpty() ||
                std::any_of(m_platform.all.begin(), m_platform.all.begin() + int(m_platform.given),
                            [&](const ElfLibrary &one) { return isNamed(one, symbol.file); });
            if (symbol.isWanted && isPlatforms && !isProvided(symbol))
                classes[classOf(demangled(symbol.name))].append(&symbol);
        }
        for (auto one = classes.cbegin(); one != classes.cend(); ++one) {
            const Weight weight = weightOf(one.key());
            const bool isThere =
                std::any_of(m_there.begin(), m_there.end(), [&](const QString &symbol) {
                    return symbol.startsWith(one.key() + "::");
                });
            if (weight == Weight::Fault && !isThere && !one.key().isEmpty())
                add(weight, "class", one.key(), "is missing");
            for (const Symbol *symbol : one.value())
                checkMissing(weight, *symbol);
        }
    }

    void checkMissing(Weight weight, const Symbol &symbol)
    {
        const QString text = demangled(symbol.name);
        if (weight == Weight::Wanted)
            return add(weight, "operation", text, {});
        for (std::size_t i = 0; i < m_platform.given; ++i) {
            if (m_platform.all[i].hidden.contains(symbol.name))
                return add(weight, "operation", text,
                           "is in " + m_platform.all[i].path + ", but not exported");
        }
        addMissing(weight, "operation", text, nearest(text, m_there));
    }

    void addMissing(Weight weight, const char *kind, const QString &text, const QStringList &near)
    {
        const QString name = text.section('(', 0, 0) + '(';
        const bool isOther = !near.isEmpty() && near.first().startsWith(name);
        add(weight, kind, text,
            isOther ? "is missing; with other parameters there is" : "is missing", near);
    }

    void checkSignals(const QByteArray &className)
    {
        const Weight weight = weightOf(className);
        const QByteArrayList wanted = m_wants.connectedSignals[className];
        if (weight == Weight::Fault && !m_metaObjects.contains(className)) {
            add(weight, "meta-object", className,
                QString("has none of Qt 5, so none of its %1 signals").arg(wanted.size()));
        }
        QStringList declared, others;
        MetaObject object = m_metaObjects.value(className);
        // A library that is damaged may lead in a circle.
        for (int depth = 0; depth < 20 && !object.className.isEmpty(); ++depth) {
            for (const QByteArray &signal : object.signalSignatures)
                declared.append(signal);
            for (const QByteArray &other : object.otherSignatures)
                others.append(other);
            object = m_metaObjects.value(object.superClass);
        }
        for (const QByteArray &signal : wanted) {
            if (declared.contains(signal))
                continue;
            const QString text = className + "::" + signal;
            if (weight == Weight::Wanted)
                add(weight, "signal", text, {});
            else if (others.contains(signal))
                add(weight, "signal", text, "is declared, but not as a signal");
            else
                addMissing(weight, "signal", text,
                           nearest(signal, declared)
                               .replaceInStrings(QRegularExpression("^"), className + "::"));
        }
    }

    void checkPlatformItself()
    {
        for (auto one = m_platform.missing.cbegin(); one != m_platform.missing.cend(); ++one)
            add(Weight::Note, "not found", one.key(),
                "which " + one.value() + " needs; what it may have is not judged");
        for (std::size_t i = 0; i < m_platform.given; ++i) {
            for (const Symbol &symbol : m_platform.all[i].symbols) {
                const bool isJudged = symbol.file.isEmpty()
                                          ? m_platform.missing.isEmpty()
                                          : !m_platform.missing.contains(symbol.file);
                if (!symbol.isWanted || !isJudged || isProvided(symbol))
                    continue;
                const QString version = symbol.version.isEmpty() ? "" : '@' + symbol.version;
                add(Weight::Fault, "unresolved", demangled(symbol.name) + version,
                    "which " + m_platform.all[i].path + " needs");
            }
        }
    }

    const Wants &m_wants;
    const PlatformLibraries &m_platform;
    const bool m_hasServices;
    QMultiHash<QByteArray, QByteArray> m_provided; ///< versions by name
    QStringList m_there;                           ///< all that the given libraries define
    QHash<QByteArray, MetaObject> m_metaObjects;
    QVector<Finding> m_findings;
};

} // namespace

PlatformLibraries::PlatformLibraries(const QStringList &paths, const QStringList &folders)
{
    for (const QString &path : paths)
        all.emplace_back(path);
    given = all.size();
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (const QByteArray &name : QByteArrayList(all[i].needed)) {
            const QStringList searched =
                folders + QStringList(QFileInfo(all[i].path).path()) + all[i].folders;
            for (const QString &folder : searched) {
                const QString path = folder + '/' + QFile::decodeName(name);
                if (has(name) || !QFileInfo(path).isFile())
                    continue;
                try {
                    ElfLibrary found(path);
                    if (found.processor == all[i].processor)
                        all.push_back(std::move(found));
                } catch (const Refusal &) { // as the dynamic linker, which searches on
                }
            }
            if (!has(name))
                missing.insert(name, all[i].name);
        }
    }
}

bool PlatformLibraries::has(const QByteArray &name) const
{
    return std::any_of(all.begin(), all.end(),
                       [&name](const ElfLibrary &library) { return isNamed(library, name); });
}

QVector<Finding> checkLink(const Wants &wants, const PlatformLibraries &platform)
{
    return Check(wants, platform).findings();
}

} // namespace mcusim
