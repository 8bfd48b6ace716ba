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

/// The names of the libraries that the platform has to have. Those of Qt and the system provide
/// versions.
QByteArrayList platformNames(const ElfLibrary &library)
{
    QByteArrayList names = library.needed;
    for (const Symbol &symbol : library.symbols)
        names.removeAll(symbol.file);
    return names;
}

/// "mcu::McuSrv" of "mcu::McuSrv::init()" and of "typeinfo for mcu::McuSrv".
QString classOf(const QString &symbol)
{
    if (symbol.contains(" for "))
        return symbol.section(" for ", 1);
    return symbol.section('(', 0, 0).section("::", 0, -2);
}

/// What stands for a method in its place: those of the same name with other parameters, else those
/// of a similar name in the same class, else the one of the same name in the most similar class.
QStringList nearest(const QString &wanted, const QStringList &there)
{
    const auto nameOf = [](const QString &method) { return method.section('(', 0, 0); };
    const auto shortName = [](const QString &name) { return name.section("::", -1).toLower(); };
    const QString name = nameOf(wanted);
    QMultiMap<int, QString> same, similar, elsewhere;
    for (const QString &method : there) {
        const QString other = nameOf(method);
        const int away = distance(shortName(other), shortName(name));
        if (!method.contains('('))
            continue;
        if (other == name)
            same.insert(0, method);
        else if (classOf(method) == classOf(wanted) &&
                 away <= std::max(1, shortName(name).size() / 3))
            similar.insert(away, method);
        else if (away == 0)
            elsewhere.insert(distance(other, name), method);
    }
    if (!same.isEmpty())
        return same.values();
    return similar.isEmpty() ? elsewhere.values().mid(0, 1) : similar.values().mid(0, 3);
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
        const QByteArrayList names = platformNames(m_wants.library);
        const ElfLibrary &link = m_platform.all.front();
        if (!m_wants.library.needed.contains(link.name))
            add(Weight::Fault, "name", link.name,
                "is not loaded by the library; that loads " + names.join(" and "));
        for (const QByteArray &name : names) {
            if (!m_platform.has(name))
                add(m_hasServices ? Weight::Fault : Weight::Wanted, "name", name,
                    "is loaded by the library, and no library here has this name");
        }
    }

    void checkOperations()
    {
        QMap<QString, QMap<QString, const Symbol *>> classes;
        for (const Symbol &symbol : m_wants.library.symbols) {
            // What has a version is Qt's or the system's, if it is not a given library's.
            const bool isPlatforms =
                symbol.version.isEmpty() ||
                std::any_of(m_platform.all.begin(), m_platform.all.begin() + int(m_platform.given),
                            [&](const ElfLibrary &one) { return isNamed(one, symbol.file); });
            const QString text = demangled(symbol.name);
            if (symbol.isWanted && isPlatforms && !isProvided(symbol))
                classes[classOf(text)].insert(text, &symbol);
        }
        for (auto one = classes.cbegin(); one != classes.cend(); ++one) {
            const Weight weight = weightOf(one.key());
            const bool isThere =
                std::any_of(m_there.begin(), m_there.end(), [&](const QString &symbol) {
                    return symbol.startsWith(one.key() + "::");
                });
            if (weight == Weight::Fault && !isThere && !one.key().isEmpty())
                add(weight, "class", one.key(), "exports nothing");
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
                           "is not exported by " + m_platform.all[i].name);
        }
        addMissing(weight, "operation", text, nearest(text, m_there));
    }

    void addMissing(Weight weight, const char *kind, const QString &text, const QStringList &near)
    {
        const QString name = text.section('(', 0, 0) + '(';
        const bool isOther = !near.isEmpty() && near.first().startsWith(name);
        add(weight, kind, text, isOther ? "exists only with other parameters" : "is missing", near);
    }

    void checkSignals(const QByteArray &className)
    {
        const Weight weight = weightOf(className);
        const QByteArrayList wanted = m_wants.connectedSignals[className];
        if (weight == Weight::Fault && !m_metaObjects.contains(className)) {
            add(weight, "meta-object", className, "is missing: no Q_OBJECT, or not of Qt 5");
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
                "for " + one.value() + "; what only it may have is not judged");
        for (std::size_t i = 0; i < m_platform.given; ++i) {
            QStringList unresolved;
            for (const Symbol &symbol : m_platform.all[i].symbols) {
                const bool isJudged = symbol.file.isEmpty()
                                          ? m_platform.missing.isEmpty()
                                          : !m_platform.missing.contains(symbol.file);
                const QString version = symbol.version.isEmpty() ? "" : '@' + symbol.version;
                if (symbol.isWanted && isJudged && !isProvided(symbol))
                    unresolved.append(demangled(symbol.name) + version);
            }
            unresolved.sort();
            for (const QString &name : unresolved)
                add(Weight::Fault, "unresolved", name, "is missing for " + m_platform.all[i].name);
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

PlatformLibraries::PlatformLibraries(const QStringList &paths, const QStringList &folders,
                                     const ElfLibrary &library)
    : given(std::size_t(paths.size()))
{
    for (const QString &path : paths)
        all.emplace_back(path);
    for (const QByteArray &name : library.needed) {
        if (!platformNames(library).contains(name))
            load(name, library, folders);
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
        const ElfLibrary user = all[i];
        for (const QByteArray &name : user.needed)
            load(name, user, folders + QStringList(QFileInfo(user.path).path()));
    }
}

void PlatformLibraries::load(const QByteArray &name, const ElfLibrary &user,
                             const QStringList &folders)
{
    for (const QString &folder : folders + user.folders) {
        const QString path = folder + '/' + QFile::decodeName(name);
        if (has(name) || !QFileInfo(path).isFile())
            continue;
        try {
            ElfLibrary found(path);
            if (found.processor == user.processor)
                all.push_back(std::move(found));
        } catch (const Refusal &) { // as the dynamic linker, which searches on
        }
    }
    if (!has(name))
        missing.insert(name, user.name);
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
