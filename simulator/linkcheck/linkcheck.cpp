#include "linkcheck.h"

#include "catalogue.h"
#include "refusal.h"

#include <QFileInfo>

#include <algorithm>

namespace mcusim {

namespace {

constexpr const char *fault = "fault";
constexpr const char *wanted = "wanted";
constexpr const char *note = "note";

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

/// What a method may be taken for: those of the same name with other parameters, else those of a
/// similar name in the same class, else the one of the same name in the most similar class.
QStringList nearest(const QString &method, const QStringList &there)
{
    const auto nameOf = [](const QString &text) { return text.section('(', 0, 0); };
    const auto shortName = [](const QString &name) { return name.section("::", -1).toLower(); };
    const QString name = nameOf(method);
    QStringList same;
    QMultiMap<int, QString> similar, elsewhere;
    for (const QString &one : there) {
        const QString other = nameOf(one);
        const int away = distance(shortName(other), shortName(name));
        if (other == name)
            same.append(one);
        else if (classOf(one) == classOf(method) && away <= std::max(1, shortName(name).size() / 3))
            similar.insert(away, one);
        else if (away == 0)
            elsewhere.insert(distance(other, name), one);
    }
    if (!same.isEmpty())
        return same;
    const QStringList others = similar.isEmpty() ? elsewhere.values() : similar.values();
    return others.mid(0, similar.isEmpty() ? 1 : 3);
}

class Check {
public:
    Check(const Wants &wants, const PlatformLibraries &platform)
        : m_wants(wants), m_platform(platform), m_hasServices(platform.given > 1)
    {
        for (const ElfLibrary &library : platform.all) {
            provide(library);
            // What only looks like a meta-object has less in it than the real one.
            const QVector<MetaObject> found = metaObjects(library);
            for (const MetaObject &object : found) {
                MetaObject &known = m_metaObjects[object.className];
                if (known.className.isEmpty() || known.signatures.size() < object.signatures.size())
                    known = object;
            }
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
        checkLibraries();
        checkOperations();
        const auto &classes = m_wants.connectedSignals;
        for (auto row = classes.cbegin(); row != classes.cend(); ++row)
            checkSignals(row.key());
        for (std::size_t i = 0; i < m_platform.given; ++i) {
            // What another processor has is not what this one needs.
            if (m_platform.all[i].processor == m_wants.library.processor)
                checkItself(m_platform.all[i]);
        }
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

    /// As the dynamic linker: any version fulfils a want without one, and a library without
    /// versions fulfils any. What only a library has that was not found is taken to be there.
    bool isUnresolved(const Symbol &symbol) const
    {
        const QByteArrayList versions = m_provided.values(symbol.name);
        const bool isProvided = symbol.version.isEmpty() ? !versions.isEmpty()
                                                         : versions.contains(symbol.version) ||
                                                               versions.contains(QByteArray());
        return symbol.isWanted && !isProvided && !m_platform.missing.contains(symbol.file);
    }

    const char *weightOf(const QString &className) const
    {
        return className == m_wants.linkClass || m_hasServices ? fault : wanted;
    }

    void add(const char *weight, const char *kind, const QString &what, const QString &why)
    {
        m_findings.append({weight, kind, what, why, {}});
    }

    void addMissing(const char *weight, const char *kind, const QString &text,
                    const QStringList &there)
    {
        const QStringList near = weight == fault ? nearest(text, there) : QStringList();
        const bool isOther =
            !near.isEmpty() && near.first().startsWith(text.section('(', 0, 0) + '(');
        m_findings.append({weight, kind, text,
                           weight == wanted ? "from the services"
                           : isOther        ? "exists only with other parameters"
                                            : "is missing",
                           near});
    }

    void checkLibraries()
    {
        const ElfLibrary &library = m_wants.library;
        for (std::size_t i = 0; i < m_platform.given; ++i) {
            const ElfLibrary &given = m_platform.all[i];
            if (given.processor != library.processor)
                add(fault, "processor", given.path,
                    "is for " + given.processor + ", the library for " + library.processor);
        }
        const ElfLibrary &link = m_platform.all.front();
        if (!library.needed.contains(link.name))
            add(fault, "name", link.name,
                "is not loaded by the library; that loads " + library.needed.join(", "));
        for (auto one = m_platform.missing.cbegin(); one != m_platform.missing.cend(); ++one) {
            // Qt and the system, which other machines than the head unit may not have, have
            // versions.
            const bool isPlatforms =
                one.value() == library.name &&
                std::none_of(library.symbols.begin(), library.symbols.end(),
                             [&one](const Symbol &symbol) { return symbol.file == one.key(); });
            const QString why = "is loaded by " + one.value() + ", and was not found";
            if (isPlatforms)
                add(m_hasServices ? fault : wanted, "library", one.key(), why);
            else
                add(note, "library", one.key(), why + "; what only it may have is not judged");
            m_isAllKnown = m_isAllKnown && isPlatforms;
        }
    }

    void checkOperations()
    {
        QMap<QString, QStringList> classes;
        for (const Symbol &symbol : m_wants.library.symbols) {
            if (isUnresolved(symbol))
                classes[classOf(demangled(symbol.name))].append(demangled(symbol.name));
        }
        for (auto one = classes.begin(); one != classes.end(); ++one) {
            const char *weight = weightOf(one.key());
            if (weight == fault &&
                m_there.filter(QRegularExpression('^' + one.key() + "::")).isEmpty())
                add(weight, "class", one.key(), "exports nothing");
            one.value().sort();
            for (const QString &operation : std::as_const(one.value()))
                addMissing(weight, "operation", operation, m_there);
        }
    }

    void checkSignals(const QByteArray &className)
    {
        const char *weight = weightOf(className);
        if (weight == fault && !m_metaObjects.contains(className))
            add(weight, "meta-object", className, "is missing: no Q_OBJECT, or not of Qt 5");
        QStringList declared;
        MetaObject object = m_metaObjects.value(className);
        // A library that is damaged may lead in a circle.
        for (int depth = 0; depth < 20 && !object.className.isEmpty(); ++depth) {
            for (const QByteArray &signal : std::as_const(object.signatures))
                declared.append(className + "::" + signal);
            object = m_metaObjects.value(object.superClass);
        }
        for (const QByteArray &signal : m_wants.connectedSignals[className]) {
            const QString text = className + "::" + signal;
            if (!declared.contains(text))
                addMissing(weight, "signal", text, declared);
        }
    }

    void checkItself(const ElfLibrary &library)
    {
        QStringList unresolved;
        for (const Symbol &symbol : library.symbols) {
            const bool isJudged = !symbol.version.isEmpty() || m_isAllKnown;
            if (isJudged && isUnresolved(symbol))
                unresolved.append(demangled(symbol.name) +
                                  (symbol.version.isEmpty() ? "" : '@' + symbol.version));
        }
        unresolved.sort();
        for (const QString &name : unresolved)
            add(fault, "unresolved", name, "is missing for " + library.name);
    }

    const Wants &m_wants;
    const PlatformLibraries &m_platform;
    const bool m_hasServices;
    bool m_isAllKnown = true; ///< no library is missing that may have any symbol
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
    load(library, folders);
    std::size_t next = 0;
    while (next < all.size()) {
        const ElfLibrary user = all[next++];
        load(user, folders + QStringList(QFileInfo(user.path).path()));
    }
}

void PlatformLibraries::load(const ElfLibrary &user, const QStringList &folders)
{
    const QStringList searched = folders + user.folders;
    for (const QByteArray &name : user.needed) {
        for (const QString &folder : searched) {
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
        if (!has(name) && !missing.contains(name))
            missing.insert(name, user.name);
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
