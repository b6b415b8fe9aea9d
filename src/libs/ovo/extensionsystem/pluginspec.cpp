// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "pluginspec.h"

#include "iplugin.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>
#include <QPointer>
#include <QVersionNumber>

namespace Ovo::ExtensionSystem {

namespace {

/// Without trailing zeros: "1.0" and "1" are the same version.
QVersionNumber versionNumber(const QString &version)
{
    return QVersionNumber::fromString(version).normalized();
}

/// The loader's own texts come with and without a full stop.
QString loaderError(const QPluginLoader &loader)
{
    const QString error = loader.errorString();
    return error.endsWith(QLatin1Char('.')) ? error : error + QLatin1Char('.');
}

/// Takes typed values out of a plug-in's metadata and notes the first one that is not as it must be. What
/// is not there is empty.
class MetaDataReader
{
public:
    explicit MetaDataReader(const QJsonObject &metaData)
        : m_metaData(metaData)
    {
    }

    /// The first problem, as the end of a sentence; empty without one.
    QString problem() const { return m_problem; }

    QString text(const QString &key)
    {
        return value(key, QJsonValue::String, QStringLiteral("must be a text")).toString();
    }

    QString name()
    {
        const QString key = QStringLiteral("Name");
        QString name = text(key);
        if (name.isEmpty())
            complain(key, QStringLiteral("is missing"));
        return name;
    }

    QString version(const QString &key)
    {
        QString version = text(key);
        if (!version.isEmpty() && QVersionNumber::fromString(version).isNull())
            complain(key, QStringLiteral("must be numbers with dots, such as 1.0.2"));
        return version;
    }

    bool flag(const QString &key)
    {
        return value(key, QJsonValue::Bool, QStringLiteral("must be true or false")).toBool();
    }

    QStringList texts(const QString &key)
    {
        const QString rule = QStringLiteral("must be a list of texts");
        QStringList texts;
        const QJsonArray entries = value(key, QJsonValue::Array, rule).toArray();
        for (const QJsonValue &entry : entries) {
            if (!entry.isString())
                complain(key, rule);
            texts << entry.toString();
        }
        return texts;
    }

    QVector<PluginDependency> dependencies(const QString &key)
    {
        const QString rule = QStringLiteral("must be a list of objects with a Name and a Version");
        QVector<PluginDependency> dependencies;
        const QJsonArray entries = value(key, QJsonValue::Array, rule).toArray();
        for (const QJsonValue &entry : entries) {
            MetaDataReader reader(entry.toObject());
            dependencies.append({reader.name(), reader.version(QStringLiteral("Version"))});
            if (!reader.problem().isEmpty())
                complain(key, rule);
        }
        return dependencies;
    }

private:
    QJsonValue value(const QString &key, QJsonValue::Type type, const QString &rule)
    {
        QJsonValue value = m_metaData.value(key);
        if (!value.isUndefined() && value.type() != type)
            complain(key, rule);
        return value;
    }

    void complain(const QString &key, const QString &rule)
    {
        if (m_problem.isEmpty())
            m_problem = QStringLiteral("its \"%1\" %2").arg(key, rule);
    }

    QJsonObject m_metaData;
    QString m_problem;
};

} // namespace

class PluginSpecPrivate
{
public:
    /// What the metadata tells.
    struct Description
    {
        QString name;
        QString version;
        QString compatVersion;
        bool required = false;
        QString category;
        QString description;
        QString url;
        QStringList arguments;
        QVector<PluginDependency> dependencies;
    };

    explicit PluginSpecPrivate(const QString &file)
        : filePath(file)
    {
    }

    QString readDescription(const QJsonObject &metaData);

    const QString filePath;
    Description description;
    PluginSpec::State state = PluginSpec::Invalid;
    QString error;
    QPointer<IPlugin> plugin; // ours; a plug-in may still be deleted by what it has given itself to
};

/// Returns the first problem, as the end of a sentence.
QString PluginSpecPrivate::readDescription(const QJsonObject &metaData)
{
    MetaDataReader reader(metaData);
    const QString name = reader.name();
    if (!name.isEmpty())
        description.name = name;
    description.version = reader.version(QStringLiteral("Version"));
    description.compatVersion = reader.version(QStringLiteral("CompatVersion"));
    if (description.compatVersion.isEmpty())
        description.compatVersion = description.version;
    description.required = reader.flag(QStringLiteral("Required"));
    description.category = reader.text(QStringLiteral("Category"));
    description.description = reader.text(QStringLiteral("Description"));
    description.url = reader.text(QStringLiteral("Url"));
    description.arguments = reader.texts(QStringLiteral("Arguments"));
    description.dependencies = reader.dependencies(QStringLiteral("Dependencies"));
    return reader.problem();
}

PluginSpec::PluginSpec(const QString &filePath)
    : d(new PluginSpecPrivate(filePath))
{
}

PluginSpec::~PluginSpec() = default;

QString PluginSpec::filePath() const
{
    return d->filePath;
}

QString PluginSpec::name() const
{
    return d->description.name;
}

QString PluginSpec::version() const
{
    return d->description.version;
}

QString PluginSpec::compatVersion() const
{
    return d->description.compatVersion;
}

bool PluginSpec::isRequired() const
{
    return d->description.required;
}

QString PluginSpec::category() const
{
    return d->description.category;
}

QString PluginSpec::description() const
{
    return d->description.description;
}

QString PluginSpec::url() const
{
    return d->description.url;
}

QStringList PluginSpec::arguments() const
{
    return d->description.arguments;
}

QVector<PluginDependency> PluginSpec::dependencies() const
{
    return d->description.dependencies;
}

bool PluginSpec::provides(const QString &name, const QString &version) const
{
    if (name != d->description.name)
        return false;
    if (version.isEmpty())
        return true;
    const QVersionNumber wanted = versionNumber(version);
    return versionNumber(d->description.compatVersion) <= wanted &&
           wanted <= versionNumber(d->description.version);
}

PluginSpec::State PluginSpec::state() const
{
    return d->state;
}

bool PluginSpec::hasError() const
{
    return !d->error.isEmpty();
}

QString PluginSpec::errorString() const
{
    return d->error;
}

IPlugin *PluginSpec::plugin() const
{
    return d->plugin;
}

void PluginSpec::read(const QString &iid)
{
    d->state = Invalid;
    d->error.clear();
    d->description = PluginSpecPrivate::Description();
    d->description.name = QFileInfo(d->filePath).baseName();

    const QString file = QDir::toNativeSeparators(d->filePath);
    const QPluginLoader loader(d->filePath);
    const QJsonObject metaData = loader.metaData();
    if (metaData.isEmpty()) {
        fail(QStringLiteral("%1 is not a plug-in: %2 Replace the file, or remove it from the plug-in folder.")
                 .arg(file, loaderError(loader)));
        return;
    }

    const QString problem = d->readDescription(metaData.value(QStringLiteral("MetaData")).toObject());
    const QString foundIid = metaData.value(QStringLiteral("IID")).toString();
    if (!iid.isEmpty() && foundIid != iid) {
        fail(QStringLiteral(
                 "%1 is made for another program: its interface is \"%2\" instead of \"%3\". Remove it "
                 "from the plug-in folder.")
                 .arg(file, foundIid, iid));
    } else if (!problem.isEmpty()) {
        fail(QStringLiteral("The metadata of %1 cannot be used: %2. Correct it and build the plug-in again.")
                 .arg(file, problem));
    } else {
        d->state = Read;
    }
}

void PluginSpec::fail(const QString &error)
{
    if (hasError())
        d->error += QLatin1Char('\n');
    d->error += error;
    if (d->plugin)
        deletePlugin();
}

void PluginSpec::setState(State state)
{
    d->state = state;
}

void PluginSpec::load()
{
    // A library stays in memory once it is loaded: texts and types that came from it may live on.
    QPluginLoader loader(d->filePath);
    loader.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    QObject *object = loader.instance();
    if (!object) {
        fail(QStringLiteral("\"%1\" cannot be loaded: %2 Install a build that fits this program.")
                 .arg(name(), loaderError(loader)));
        return;
    }

    d->plugin = qobject_cast<IPlugin *>(object);
    if (!d->plugin) {
        delete object;
        fail(QStringLiteral(
                 "\"%1\" cannot be used: %2 holds no object of the type that this program works with. "
                 "Install a build that fits this program.")
                 .arg(name(), QDir::toNativeSeparators(d->filePath)));
        return;
    }
    d->state = Loaded;
}

void PluginSpec::initialize()
{
    QString reason;
    if (d->plugin->initialize(arguments(), &reason)) {
        d->state = Initialized;
        return;
    }
    if (reason.isEmpty())
        reason = QStringLiteral("it gave no reason. See the log for what it reported.");
    fail(QStringLiteral("\"%1\" could not be started: %2").arg(name(), reason));
}

void PluginSpec::deletePlugin()
{
    delete d->plugin;
    d->state = Deleted;
}

} // namespace Ovo::ExtensionSystem
