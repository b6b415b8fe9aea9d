// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "options.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <limits>

namespace K7Host {

namespace {

constexpr qreal SmallestScale = 0.25;
constexpr qreal LargestScale = 4.0;

QString autoScale()
{
    return QStringLiteral("auto");
}

/// Reads one command line: the options once as a table, then value by value into Options.
class Reader
{
public:
    explicit Reader(const QString &programDir);

    CommandLine read(const QStringList &arguments);

private:
    QString defaultDir(const char *pathFromProgram) const;
    bool readValues(Options *options, QString *error) const;
    bool readText(const QCommandLineOption &option, QString *value, QString *error) const;
    bool readLanguage(Options *options, QString *error) const;
    bool readScale(Options *options, QString *error) const;
    bool readFaults(Options *options, QString *error) const;
    bool checkTrace(const Options &options, QString *error) const;

    const QString m_programDir;
    QCommandLineParser m_parser;

    const QCommandLineOption m_pluginDir{QStringLiteral("plugin-dir"),
                                         QStringLiteral("Folder of the plug-ins."), QStringLiteral("DIR"),
                                         defaultDir(KORVO_PLUGIN_PATH)};
    const QCommandLineOption m_theme{QStringLiteral("theme"),
                                     QStringLiteral("Folder of the console's looks."), QStringLiteral("DIR"),
                                     defaultDir(KORVO_THEME_PATH)};
    const QCommandLineOption m_language{QStringLiteral("lang"),
                                        QStringLiteral("Language of this run, such as en."),
                                        QStringLiteral("LOCALE")};
    const QCommandLineOption m_scale{
        QStringLiteral("scale"),
        QStringLiteral("Size of the console: auto fits it to the screen, 0.25 to 4 is a factor."),
        QStringLiteral("auto|FACTOR")};
    const QCommandLineOption m_kiosk{
        QStringLiteral("kiosk"),
        QStringLiteral(
            "Fill the screens with the console: a half on each of the first two, or both on one.")};
    const QCommandLineOption m_screenshot{QStringLiteral("screenshot"),
                                          QStringLiteral("Write pictures to DIR: those of the scenario, or "
                                                         "console.png once the console is shown."),
                                          QStringLiteral("DIR")};
    const QCommandLineOption m_scenario{
        QStringLiteral("scenario"), QStringLiteral("Play the scenario or trace FILE, - for standard input."),
        QStringLiteral("FILE")};
    const QCommandLineOption m_trace{
        QStringLiteral("trace"),
        QStringLiteral("Record what passes between host and console into FILE, - for standard output."),
        QStringLiteral("FILE")};
    const QCommandLineOption m_inspect{QStringLiteral("inspect"), QStringLiteral("Open the inspector.")};
    const QCommandLineOption m_latency{
        QStringLiteral("latency"),
        QStringLiteral("Measure how long keys and records take, and show it at the end.")};
    const QCommandLineOption m_faults{
        QStringLiteral("faults"),
        QStringLiteral("Make the link bad every other two seconds: late, lost, duplicate, garbled, storm, "
                       "with commas between them."),
        QStringLiteral("LIST")};
    const QCommandLineOption m_seed{QStringLiteral("seed"),
                                    QStringLiteral("What the faults' chances begin with, 1 by default."),
                                    QStringLiteral("NUMBER")};
    const QCommandLineOption m_exit{
        QStringLiteral("exit"), QStringLiteral("Leave once the scenario is over, or the console is shown.")};
    const QCommandLineOption m_listPlugins{
        QStringLiteral("list-plugins"),
        QStringLiteral("Show name, version, state and file of each plug-in.")};
    const QCommandLineOption m_verbose{QStringLiteral("verbose"), QStringLiteral("Show debug messages.")};
    const QCommandLineOption m_help{{QStringLiteral("h"), QStringLiteral("help")},
                                    QStringLiteral("Show this help.")};
    const QCommandLineOption m_version{QStringLiteral("version"), QStringLiteral("Show the version.")};
};

Reader::Reader(const QString &programDir)
    : m_programDir(programDir)
{
    m_parser.setApplicationDescription(
        QStringLiteral("Shows the K7 console on screen, answered by a simulated video processor."));
    m_parser.addOptions({m_pluginDir, m_theme, m_language, m_scale, m_kiosk, m_screenshot, m_scenario,
                         m_trace, m_inspect, m_latency, m_faults, m_seed, m_exit, m_listPlugins, m_verbose,
                         m_help, m_version});
}

QString Reader::defaultDir(const char *pathFromProgram) const
{
    return QDir::cleanPath(m_programDir + QLatin1Char('/') + QLatin1String(pathFromProgram));
}

CommandLine Reader::read(const QStringList &arguments)
{
    CommandLine result;
    const auto refuse = [&result](const QString &text) {
        result.outcome = CommandLine::Refused;
        result.text = text;
        return result;
    };
    const auto answer = [&result](const QString &text) {
        result.outcome = CommandLine::Answered;
        result.text = text;
        return result;
    };

    if (!m_parser.parse(arguments))
        return refuse(m_parser.errorText());
    if (m_parser.isSet(m_help))
        return answer(m_parser.helpText());
    if (m_parser.isSet(m_version))
        return answer(QStringLiteral("k7host " KORVO_VERSION "\n"));

    const QStringList leftOver = m_parser.positionalArguments();
    if (!leftOver.isEmpty())
        return refuse(QStringLiteral("Unexpected argument '%1'.").arg(leftOver.first()));
    QString error;
    if (!readValues(&result.options, &error))
        return refuse(error);
    return result;
}

bool Reader::readValues(Options *options, QString *error) const
{
    options->kiosk = m_parser.isSet(m_kiosk);
    options->themeGiven = m_parser.isSet(m_theme);
    options->exit = m_parser.isSet(m_exit);
    options->listPlugins = m_parser.isSet(m_listPlugins);
    options->verbose = m_parser.isSet(m_verbose);
    options->inspect = m_parser.isSet(m_inspect);
    options->latency = m_parser.isSet(m_latency);
    return readText(m_pluginDir, &options->pluginDir, error) &&
           readText(m_theme, &options->themeDir, error) &&
           readText(m_screenshot, &options->screenshotDir, error) &&
           readText(m_scenario, &options->scenario, error) && readText(m_trace, &options->trace, error) &&
           readLanguage(options, error) && readScale(options, error) && readFaults(options, error) &&
           checkTrace(*options, error);
}

bool Reader::readText(const QCommandLineOption &option, QString *value, QString *error) const
{
    *value = m_parser.value(option);
    // The parser takes whatever follows for the value, be it the next option.
    const bool isOption = value->startsWith(QLatin1Char('-')) && value->size() > 1;
    const bool isMissing = value->isEmpty() || isOption;
    if (m_parser.isSet(option) && isMissing) {
        *error = QStringLiteral("Missing value after '--%1'.").arg(option.names().constFirst());
        return false;
    }
    return true;
}

bool Reader::readLanguage(Options *options, QString *error) const
{
    if (!readText(m_language, &options->language, error))
        return false;
    const QString &name = options->language;
    // QLocale answers C for names that it does not know.
    if (name.isEmpty() || name == QLatin1String("C") || QLocale(name).language() != QLocale::C)
        return true;
    *error = QStringLiteral("'%1' after '--lang' is no known language.").arg(name);
    return false;
}

bool Reader::readScale(Options *options, QString *error) const
{
    options->scaleGiven = m_parser.isSet(m_scale);
    const QString text = m_parser.value(m_scale);
    if (!options->scaleGiven)
        return true;
    if (const auto scale = scaleFromText(text)) {
        options->scale = *scale;
        return true;
    }
    *error = QStringLiteral("'%1' after '--scale' is neither auto nor a factor from %2 to %3.")
                 .arg(text, QString::number(SmallestScale), QString::number(LargestScale));
    return false;
}

bool Reader::readFaults(Options *options, QString *error) const
{
    QString list;
    if (!readText(m_faults, &list, error))
        return false;
    if (!list.isEmpty()) {
        const auto faults = linkFaultsFromText(list, error);
        if (!faults)
            return false;
        options->faults = *faults;
    }
    if (!m_parser.isSet(m_seed))
        return true;
    bool isNumber = false;
    options->seed = m_parser.value(m_seed).toUInt(&isNumber);
    if (isNumber)
        return true;
    *error = QStringLiteral("'%1' after '--seed' is no number from 0 to %2.")
                 .arg(m_parser.value(m_seed), QString::number(std::numeric_limits<quint32>::max()));
    return false;
}

bool Reader::checkTrace(const Options &options, QString *error) const
{
    const QString scenario = QFileInfo(options.scenario).canonicalFilePath(); // empty unless it is there
    if (scenario.isEmpty() || scenario != QFileInfo(options.trace).canonicalFilePath())
        return true;
    *error = QStringLiteral("'--trace' would overwrite the scenario %1.").arg(options.scenario);
    return false;
}

} // namespace

std::optional<qreal> scaleFromText(const QString &text)
{
    if (text == autoScale())
        return 0;
    bool isNumber = false;
    const qreal scale = text.toDouble(&isNumber);
    // Not a number is neither.
    const bool isInRange = scale >= SmallestScale && scale <= LargestScale;
    return isNumber && isInRange ? std::make_optional(scale) : std::nullopt;
}

QString textOfScale(qreal scale)
{
    return scale > 0 ? QString::number(scale) : autoScale();
}

CommandLine parseCommandLine(const QStringList &arguments, const QString &programDir)
{
    return Reader(programDir).read(arguments);
}

} // namespace K7Host
