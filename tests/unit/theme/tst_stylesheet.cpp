// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "wholeconsole.h"

#include <applytheme.h>
#include <hardwarepanel.h>
#include <hostwindow.h>
#include <inspector.h>
#include <keypad.h>
#include <powercover.h>

#include <korvo/ec/k7dropbutton.h>
#include <korvo/widgets/datewidget.h>
#include <korvo/widgets/waitingdialog.h>
#include <ovo/widgets/framelessmessagebox.h>

#include <QBoxLayout>
#include <QComboBox>
#include <QDirIterator>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSet>
#include <QSlider>

using namespace K7Host;

namespace {

/// Properties that are no looks: what keys and buttons are to the host.
const QSet<QString> &meanings()
{
    static const QSet<QString> names{
        QStringLiteral("Brisa_VK"), QStringLiteral("KorvoECKey"), QStringLiteral("WanType"),
        QStringLiteral("Wipe"),     QStringLiteral("entry"),      QStringLiteral("key"),
        QStringLiteral("netType"),  QStringLiteral("neyType"),    QStringLiteral("screenFrame")};
    return names;
}

/// Markers of keys, by their sections and jobs. All keys look alike but for the picture that the host asks
/// for, and a rule for one of them would be tried whenever any key changes its colour.
const QSet<QString> &alike()
{
    static const QSet<QString> names{QStringLiteral("CutToolButton"),
                                     QStringLiteral("TakeToolButton"),
                                     QStringLiteral("clearAllPresetToolButton"),
                                     QStringLiteral("isBottomZToolButton"),
                                     QStringLiteral("isClearAllLayerToolButton"),
                                     QStringLiteral("isClearAllPresetToolButton"),
                                     QStringLiteral("isClearPresetToolButton"),
                                     QStringLiteral("isFreezePGMToolButton"),
                                     QStringLiteral("isFtbToolButton"),
                                     QStringLiteral("isInputPageDownToolButton"),
                                     QStringLiteral("isInputPageUpToolButton"),
                                     QStringLiteral("isInputToolButton"),
                                     QStringLiteral("isLayerClearToolButton"),
                                     QStringLiteral("isLayerPageDownToolButton"),
                                     QStringLiteral("isLayerPageUpToolButton"),
                                     QStringLiteral("isLayerReserved1ToolButton"),
                                     QStringLiteral("isLayerReserved2ToolButton"),
                                     QStringLiteral("isLayerToolButton"),
                                     QStringLiteral("isMatchPGMToolButton"),
                                     QStringLiteral("isNumberToolButton"),
                                     QStringLiteral("isPresetToolButton"),
                                     QStringLiteral("isSavePresetToolButton"),
                                     QStringLiteral("isScreenPageDownToolButton"),
                                     QStringLiteral("isScreenPageUpToolButton"),
                                     QStringLiteral("isScreenRreservedToolButton"),
                                     QStringLiteral("isScreenToolButton"),
                                     QStringLiteral("isTopZToolButton")};
    return names;
}

QString contentsOf(const QString &file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

QStringList matchesIn(const QString &text, const char *pattern)
{
    QStringList found;
    auto matches = QRegularExpression(QLatin1String(pattern)).globalMatch(text);
    while (matches.hasNext())
        found << matches.next().captured(1);
    return found;
}

/// A selector of the sheet, with the widgets that it ends in.
struct Selector
{
    QString text;
    QStringList parts; // from ancestor to descendant
};

QString withoutComments(QString sheet)
{
    return sheet.remove(
        QRegularExpression(QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption));
}

QVector<Selector> selectorsIn(const QString &sheet)
{
    QVector<Selector> selectors;
    const QStringList rules = matchesIn(withoutComments(sheet), "([^{}]+)\\{[^}]*\\}");
    for (const QString &rule : rules) {
        const QStringList texts = rule.split(QLatin1Char(','));
        for (const QString &text : texts)
            selectors << Selector{text.simplified(), text.simplified().split(QLatin1Char(' '))};
    }
    return selectors;
}

/// Whether a part of a selector, without its states and sub-controls, is meant for \a widget.
bool fits(const QString &part, const QWidget *widget)
{
    static const QRegularExpression form(QStringLiteral("^([\\w-]*)(#(\\w+))?(\\[(\\w+)(=\"(\\w+)\")?\\])?"));
    const auto match = form.match(part);
    const QString type = match.captured(1).replace(QLatin1String("--"), QLatin1String("::"));
    if (!type.isEmpty() && !widget->inherits(qPrintable(type)))
        return false;
    if (!match.captured(3).isEmpty() && widget->objectName() != match.captured(3))
        return false;
    // The other value of a marker that is a state comes with time.
    return match.captured(5).isEmpty() || widget->property(qPrintable(match.captured(5))).isValid();
}

bool fits(const Selector &selector, const QWidget *widget)
{
    if (!fits(selector.parts.constLast(), widget))
        return false;
    int part = selector.parts.size() - 2;
    for (const QWidget *parent = widget->parentWidget(); parent && part >= 0; parent = parent->parentWidget())
        part -= fits(selector.parts.at(part), parent) ? 1 : 0;
    return part < 0;
}

/// Whether Qt has to look at the rule when \a widget is styled: it finds rules by the name, else by the class
/// of what they end in, and looks at those that tell neither for every widget.
bool isTried(const Selector &selector, const QWidget *widget)
{
    static const QRegularExpression form(QStringLiteral("^([\\w-]*)(#(\\w+))?"));
    const auto match = form.match(selector.parts.constLast());
    if (!match.captured(3).isEmpty())
        return widget->objectName() == match.captured(3);
    const QString type = match.captured(1).replace(QLatin1String("--"), QLatin1String("::"));
    return type.isEmpty() || widget->inherits(qPrintable(type));
}

} // namespace

/// The sheet and what it is for know each other.
class tst_StyleSheet : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyMarkerHasARule();
    void noRuleIsForNothing();
    void noColorIsInTheSheetItself();
    void noRuleIsTriedOnAKeyInVain();

private:
    QSet<QString> markers() const;
    static QList<QWidget *> allWidgets();

    QString m_sheet;
};

void tst_StyleSheet::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("korvo.k7.*.debug=false"));
    QVERIFY(!applyTheme(QStringLiteral(KORVO_THEME)));
    m_sheet = contentsOf(QStringLiteral(KORVO_THEME "/console.qss"));
    QVERIFY(!selectorsIn(m_sheet).isEmpty());
}

/// Those that forms and sources set.
QSet<QString> tst_StyleSheet::markers() const
{
    QSet<QString> names;
    QDirIterator files(QStringLiteral(K7_SOURCES), {QStringLiteral("*.cpp"), QStringLiteral("*.ui")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString text = contentsOf(files.next());
        if (files.fileName().endsWith(QLatin1String(".ui"))) {
            const QStringList set =
                matchesIn(text, "<property name=\"(\\w+)\" stdset=\"0\">\\s*<(?:bool|string)");
            names += set.toSet();
            continue;
        }
        for (const char *pattern :
             {"\\bmark(?:All)?\\([^;]*?\"(\\w+)\"\\)", "\\bsetMarker\\([^;]*?\"(\\w+)\"",
              "\\bsetProperty\\(\"(\\w+)\"", "const char \\w*Marker\\[\\] = \"(\\w+)\"",
              "\"(in\\dStatus|eth\\dStatusButton|\\w+ToolButton)\""}) {
            const QStringList set = matchesIn(text, pattern);
            names += set.toSet();
        }
    }
    return names;
}

void tst_StyleSheet::everyMarkerHasARule()
{
    const QSet<QString> found = markers();
    for (const char *known : {"isTitleBar", "apply", "isDateButton", "isScreenButtonCheckStatus", "q6logo",
                              "in2Status", "eth1StatusButton", "isPresetToolButton", "keypadKey"})
        QVERIFY2(found.contains(QLatin1String(known)), known);
    const QStringList selected = matchesIn(withoutComments(m_sheet), "\\[(\\w+)");
    const QSet<QString> rules = selected.toSet();

    QStringList missing = (found - rules - meanings() - alike()).values();
    missing.sort();
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char(' '))));
    const QSet<QString> inVariable{QStringLiteral("screenFrame")};
    QStringList stale = ((meanings() | alike()) - found - inVariable).values();
    stale += (alike() & rules).values();
    QVERIFY2(stale.isEmpty(), qPrintable(stale.join(QLatin1Char(' '))));
}

QList<QWidget *> tst_StyleSheet::allWidgets()
{
    QList<QWidget *> all;
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        all << window;
        all += window->findChildren<QWidget *>();
    }
    return all;
}

void tst_StyleSheet::noRuleIsForNothing()
{
    WholeConsole console(QStringLiteral(KORVO_PLUGINS));
    QVERIFY(console.show());
    console.panel()->findChild<Korvo::Widgets::DateWidget *>()->click();
    QWidget *calendar = QApplication::activePopupWidget();
    QVERIFY(calendar);
    Ovo::Widgets::FramelessMessageBox box(console.panel());
    box.setText(QStringLiteral("?"));
    box.addButton(QMessageBox::Ok);
    box.setInformativeText(QStringLiteral("!"));
    Korvo::Widgets::WaitingDialog waiting(console.window.data(), Qt::WindowFlags());
    Keypad keypad(console.window.data());
    ConsoleWindow empty({});
    HostWindow host(&empty, &console.settings);
    host.addLanguages(console.language.data());
    PowerCover cover;
    Inspector inspector(console.session->halves());
    // As while a finger is on them.
    console.panel()->findChild<QComboBox *>()->setProperty("isTouched", true);
    console.panel()->findChild<QSlider *>()->setProperty("isTouched", true);
    const QList<QWidget *> all = allWidgets();
    QVERIFY(all.size() > 500);

    // Those of windows that the console's own parts are not in.
    const QStringList elsewhere{QStringLiteral("QToolTip"),     QStringLiteral("QMainWindow"),
                                QStringLiteral("QRadioButton"), QStringLiteral("QProgressBar"),
                                QStringLiteral("QTabBar"),      QStringLiteral("QTableWidget#latencyTable"),
                                QStringLiteral("QFileDialog"),  QStringLiteral("QWidget#kioskWindow")};
    QStringList idle;
    const auto selectors = selectorsIn(m_sheet);
    for (const Selector &selector : selectors) {
        const bool isElsewhere = std::any_of(elsewhere.begin(), elsewhere.end(), [&](const QString &name) {
            return selector.text.startsWith(name);
        });
        const bool isMet = std::any_of(all.begin(), all.end(),
                                       [&](const QWidget *widget) { return fits(selector, widget); });
        if (!isMet && !isElsewhere)
            idle << selector.text;
    }
    calendar->close();
    QVERIFY2(idle.isEmpty(), qPrintable(idle.join(QLatin1Char('\n'))));
}

/// Each new colour of a key makes Qt try its rules again.
void tst_StyleSheet::noRuleIsTriedOnAKeyInVain()
{
    WholeConsole console(QStringLiteral(KORVO_PLUGINS));
    QVERIFY(console.show());
    const auto keys = console.window->findChildren<Korvo::EC::K7DropButton *>();
    QVERIFY(keys.size() > 130);
    QSet<QString> lettered; // some keys share a name with a lettered one
    for (const auto *key : keys) {
        if (!key->text().isEmpty())
            lettered << key->objectName();
    }
    const auto selectors = selectorsIn(m_sheet);
    for (const auto *key : keys) {
        QStringList tried;
        for (const Selector &selector : selectors) {
            if (isTried(selector, key))
                tried << selector.text;
        }
        const int wanted = lettered.contains(key->objectName()) ? 1 : 0;
        QVERIFY2(tried.size() == wanted,
                 qPrintable(key->objectName() + QLatin1String(": ") + tried.join(QLatin1String(", "))));
    }
}

void tst_StyleSheet::noColorIsInTheSheetItself()
{
    QFile sheet(QStringLiteral(KORVO_THEME "/console.qss"));
    QVERIFY(sheet.open(QIODevice::ReadOnly));
    const QRegularExpression color(QStringLiteral(":[^;{]*(#[0-9a-fA-F]{3}|rgba?\\(|hsva?\\()[^;]*;"));
    QCOMPARE(color.match(QString::fromUtf8(sheet.readAll())).captured(), QString());
    QVERIFY(color.match(QStringLiteral("QLabel { color: #123456; }")).hasMatch());
}

QTEST_MAIN(tst_StyleSheet)

#include "tst_stylesheet.moc"
