// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consoleparts.h"
#include "languages.h"

#include <applytheme.h>

#include <korvo/ec/k7dropbutton.h>
#include <korvo/ec/textticker.h>
#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLocale>
#include <QMessageBox>
#include <QMetaProperty>
#include <QSet>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Korvo;

namespace {

// Of the theme's keys: the cap's edge on each side, with a little air. A pressed key sinks by less, but for
// its text by this much more from above.
constexpr int KeyEdge = 4;
constexpr int SinkDepth = 2;

const char HostText[] = "SAVE"; // a word of the console, but here it is the host's

/// What a widget shows in one place, or what it is known by.
struct Trait
{
    const QObject *object = nullptr;
    QByteArray property;
    bool isName = false; // set by its name only: an id, a marker
    QVariant value;

    QString name() const
    {
        const QByteArray className = object->metaObject()->className();
        return QString::fromLatin1(className + ' ' + object->objectName().toLatin1() + ' ' + property);
    }
};

using Traits = QVector<Trait>;

void appendTraits(Traits *traits, const QObject *object)
{
    const QMetaObject *type = object->metaObject();
    for (int i = 0; i < type->propertyCount(); ++i) {
        const QMetaProperty property = type->property(i);
        // Names are made of the captions beside, in the language of those.
        const bool isOfCaptions = qstrcmp(property.name(), "accessibleName") == 0;
        if (property.type() == QVariant::String && !isOfCaptions)
            traits->append({object, property.name(), false, property.read(object)});
    }
    const QList<QByteArray> names = object->dynamicPropertyNames();
    for (const QByteArray &name : names) {
        if (!name.startsWith("_q_"))
            traits->append({object, name, true, object->property(name.constData())});
    }
}

/// Where the word is from that \a trait shows in English; none of a name, of a host's text, of a number.
Word wordOf(const Trait &trait, const Words &words)
{
    if (trait.isName || qobject_cast<const EC::TextTicker *>(trait.object))
        return {};
    const QString text = trait.value.toString();
    for (const QObject *around = trait.object; around; around = around->parent()) {
        const QString className = QString::fromLatin1(around->metaObject()->className());
        for (const QString &context : {className.section(QLatin1String("::"), -1), className}) {
            Word word(context, text);
            if (words.contains(word))
                return word;
        }
    }
    return {};
}

/// Room for the text of a key also while it is held.
QSize roomOnKey(const QWidget *key)
{
    const QRect rect = key->contentsRect();
    return rect.adjusted(KeyEdge, KeyEdge + SinkDepth, -KeyEdge, -KeyEdge).size();
}

bool holds(const QSize &room, const QSize &needed)
{
    return needed.width() <= room.width() && needed.height() <= room.height();
}

/// False when \a widget was pushed over the edge of something that it stands in.
bool isWithinSides(const QWidget *widget)
{
    for (const QWidget *around = widget->parentWidget(); around; around = around->parentWidget()) {
        const int left = widget->mapTo(around, QPoint()).x();
        if (left < 0 || left + widget->width() > around->width())
            return false;
    }
    return true;
}

/// How the text of \a widget does not fit; empty when it does.
QString misfit(const QWidget *widget)
{
    QString text;
    QSize needed;
    QSize room = widget->size();
    if (const auto *key = qobject_cast<const EC::K7DropButton *>(widget)) {
        text = key->text();
        needed = key->fontMetrics().size(Qt::TextShowMnemonic, text);
        room = roomOnKey(key);
    } else if (qobject_cast<const EC::TextTicker *>(widget)) {
        return {}; // scrolls
    } else if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        text = label->text();
        needed = label->sizeHint();
    } else if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
        text = button->text();
        needed = button->sizeHint();
    }
    if (text.isEmpty() || (holds(room, needed) && isWithinSides(widget)))
        return {};
    return QStringLiteral("%1 \"%2\" needs %3 x %4, has %5 x %6, or is pushed aside")
        .arg(widget->objectName(), text)
        .arg(needed.width())
        .arg(needed.height())
        .arg(room.width())
        .arg(room.height());
}

/// Whether there is a font for the writing of \a locale.
bool isWritable(const QString &locale)
{
    const auto isKnown = [](QFontDatabase::WritingSystem system) {
        return !QFontDatabase().families(system).isEmpty();
    };
    switch (QLocale(locale).script()) {
    case QLocale::SimplifiedHanScript:
        return isKnown(QFontDatabase::SimplifiedChinese);
    case QLocale::JapaneseScript:
        return isKnown(QFontDatabase::Japanese);
    default:
        return true;
    }
}

} // namespace

/// The console in each of its languages, and on its way from one to another.
class tst_Languages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyWordIsSomewhereOnTheConsole();
    void wordsAreShownAndAllElseStays_data() { addLanguages(); }
    void wordsAreShownAndAllElseStays();
    void keysSendTheirCodes_data() { addLanguages(); }
    void keysSendTheirCodes();
    void aHeldKeyOutlastsTheChange();
    void messagesAreInTheLanguage_data() { addLanguages(); }
    void messagesAreInTheLanguage();
    void textsFit_data() { addLanguages(); }
    void textsFit();

private:
    static void addLanguages();
    bool switchTo(const QString &locale);
    void handInTexts();
    Traits traits() const;
    template <typename Check>
    void forEachWidget(const Check &check) const;
    QString wrongIn(const Traits &english, const Words &words) const;
    QVector<QRect> placesOfParts() const;

    const QTemporaryDir m_settings;
    Words m_english;
    std::unique_ptr<LivePlugin> m_live;
    QVector<QSharedPointer<IKorvoECKeyboard>> m_halves;
    ConsoleParts m_parts;
    QStringList m_sent;
};

void tst_Languages::initTestCase()
{
    QVERIFY(m_settings.isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
    m_english = readTranslation(QStringLiteral("en")).words;
    QVERIFY(!m_english.isEmpty());

    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), QApplication::font().pointSize()));
    QVERIFY(!K7Host::applyTheme(QStringLiteral(K7_THEME)));
}

void tst_Languages::init()
{
    m_live = std::make_unique<LivePlugin>();
    QVERIFY(m_live->plugin.installTranslator(QStringLiteral("en")));
    const QList<QWeakPointer<IKorvoECKeyboard>> halves = m_live->plugin.keyboards();
    for (const QWeakPointer<IKorvoECKeyboard> &half : halves)
        m_halves << half.toStrongRef();
    QCOMPARE(m_halves.size(), 2);
    m_parts =
        partsOf(m_halves.at(0).data(), leftSections()) + partsOf(m_halves.at(1).data(), rightSections());
    handInTexts();

    m_sent.clear();
    const IKorvoECKeyboardPlugin *plugin = &m_live->plugin;
    connect(plugin, &IKorvoECKeyboardPlugin::ecButtonPressed, this,
            [this](const quint32 &code) { m_sent << QStringLiteral("press %1").arg(code, 0, 16); });
    connect(plugin, &IKorvoECKeyboardPlugin::ecButtonRelease, this,
            [this](const quint32 &code) { m_sent << QStringLiteral("release %1").arg(code, 0, 16); });
}

void tst_Languages::cleanup()
{
    m_parts.clear();
    m_halves.clear();
    m_live.reset();
}

void tst_Languages::addLanguages()
{
    QTest::addColumn<QString>("locale");
    const QStringList locales = languages();
    QVERIFY(locales.size() >= 6);
    for (const QString &locale : locales)
        QTest::newRow(qPrintable(locale)) << locale;
}

/// Switches the running console. Nothing else happens meanwhile: the clock stands still.
bool tst_Languages::switchTo(const QString &locale)
{
    if (!m_live->plugin.installTranslator(locale))
        return false;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    return true;
}

void tst_Languages::handInTexts()
{
    auto address = std::make_shared<ECDeviceIPData>();
    address->Status = 1;
    address->IP = 0x0d01a8c0;
    for (const auto &half : qAsConst(m_halves)) {
        half->applyNoramlStyleSheet();
        half->updateECDeviceIP(address);
        for (const ConsolePart &part : qAsConst(m_parts)) {
            if (part.takesText())
                half->updateECOledText(textRecord(part.id(), HostText));
        }
    }
}

template <typename Check>
void tst_Languages::forEachWidget(const Check &check) const
{
    for (const auto &half : m_halves) {
        check(half.data());
        const QList<QWidget *> widgets = half->findChildren<QWidget *>();
        for (const QWidget *widget : widgets)
            check(widget);
    }
}

Traits tst_Languages::traits() const
{
    Traits all;
    forEachWidget([&all](const QWidget *widget) { appendTraits(&all, widget); });
    return all;
}

/// What the console does not show as it should with \a words, given how it looks in English.
QString tst_Languages::wrongIn(const Traits &english, const Words &words) const
{
    const Traits now = traits();
    if (now.size() != english.size())
        return QStringLiteral("there are %1 texts and names, not %2").arg(now.size()).arg(english.size());
    QStringList wrong;
    for (int i = 0; i < now.size(); ++i) {
        const Word word = wordOf(english.at(i), m_english);
        const QVariant expected = word.first.isEmpty() ? english.at(i).value : words.value(word);
        if (now.at(i).value != expected)
            wrong << QStringLiteral("%1 is \"%2\", not \"%3\"")
                         .arg(now.at(i).name(), now.at(i).value.toString(), expected.toString());
    }
    return inLines(wrong);
}

void tst_Languages::everyWordIsSomewhereOnTheConsole()
{
    QSet<Word> shown;
    const Traits all = traits();
    for (const Trait &trait : all)
        shown << wordOf(trait, m_english);
    QStringList missing;
    for (auto it = m_english.cbegin(); it != m_english.cend(); ++it) {
        const bool isMessage = it.key().first.contains(QLatin1String("::"));
        if (!isMessage && !shown.contains(it.key()))
            missing << nameOf(it.key());
    }
    QCOMPARE(inLines(missing), QString());

    const auto hasHostText = [](const ConsolePart &part) { return part.look() == QLatin1String(HostText); };
    QVERIFY(partsThat(m_parts, hasHostText).size() > 80);
}

void tst_Languages::wordsAreShownAndAllElseStays()
{
    QFETCH(QString, locale);
    const Traits english = traits();
    QVERIFY(english.size() > 2000);
    QCOMPARE(wrongIn(english, m_english), QString());

    const QStringList others = languages();
    for (const QString &other : others) {
        QVERIFY(switchTo(locale));
        QCOMPARE(wrongIn(english, readTranslation(locale).words), QString());
        QVERIFY(switchTo(other));
        QCOMPARE(wrongIn(english, readTranslation(other).words), QString());
    }
}

void tst_Languages::keysSendTheirCodes()
{
    QFETCH(QString, locale);
    QVERIFY(switchTo(locale));
    const ConsoleParts keys = partsThat(m_parts, [](const ConsolePart &part) { return part.sends(); });
    QVERIFY(keys.size() > 100);
    QStringList expected;
    for (const ConsolePart &key : keys) {
        QTest::mouseClick(key.widget, Qt::LeftButton);
        expected << QStringLiteral("press %1").arg(key.code(), 0, 16)
                 << QStringLiteral("release %1").arg(key.code(), 0, 16);
    }
    QCOMPARE(m_sent, expected);
}

void tst_Languages::aHeldKeyOutlastsTheChange()
{
    const auto isTake = [](const ConsolePart &part) {
        return part.fact.value(QStringLiteral("text")) == QLatin1String("TAKE");
    };
    const ConsolePart take = partsThat(m_parts, isTake).value(0);
    QVERIFY(take.widget);
    QTest::mousePress(take.widget, Qt::LeftButton);
    const QStringList locales = languages();
    for (const QString &locale : locales)
        QVERIFY(switchTo(locale));
    QVERIFY(qobject_cast<QAbstractButton *>(take.widget)->isDown());
    QTest::mouseRelease(take.widget, Qt::LeftButton);
    QCOMPARE(m_sent, (QStringList{QStringLiteral("press %1").arg(take.code(), 0, 16),
                                  QStringLiteral("release %1").arg(take.code(), 0, 16)}));
}

// The panel asks to choose a screen when there is none: it stands for all messages, which are made on demand.
void tst_Languages::messagesAreInTheLanguage()
{
    QFETCH(QString, locale);
    QVERIFY(switchTo(locale));
    m_halves.at(1)->show();
    auto *apply = m_halves.at(1)->findChild<QAbstractButton *>(QStringLiteral("peripheralApply"));
    QVERIFY(apply);

    QString title;
    QString text;
    QTimer::singleShot(0, this, [&] {
        const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        title = box->windowTitle();
        text = box->text();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    QTest::mouseClick(apply, Qt::LeftButton);

    const Words words = readTranslation(locale).words;
    const QString context = QStringLiteral("Korvo::Internal::ConsoleFloatWidget");
    QCOMPARE(title, words.value({context, QStringLiteral("Remind")}));
    QCOMPARE(text, words.value({context, QStringLiteral("Please select %1 operation screen.")})
                       .arg(QStringLiteral("q6")));
}

QVector<QRect> tst_Languages::placesOfParts() const
{
    QVector<QRect> places;
    for (const ConsolePart &part : m_parts)
        places << part.placeIn(part.widget->window());
    return places;
}

void tst_Languages::textsFit()
{
    QFETCH(QString, locale);
    if (QFontInfo(QApplication::font()).family() != QLatin1String("DejaVu Sans"))
        QSKIP("DejaVu Sans is not installed: whether texts fit was not checked");
    if (!isWritable(locale))
        QSKIP("no font for this language is installed: whether its texts fit was not checked");

    for (const auto &half : qAsConst(m_halves)) {
        half->show();
        settle(half.data());
    }
    const QVector<QRect> places = placesOfParts();
    QVERIFY(switchTo(locale));
    for (const auto &half : qAsConst(m_halves))
        settle(half.data());

    QStringList wrong;
    int visible = 0;
    forEachWidget([&](const QWidget *widget) {
        if (!widget->isVisible())
            return;
        ++visible;
        const QString one = misfit(widget);
        if (!one.isEmpty())
            wrong << one;
    });
    QVERIFY(visible > 200);
    QCOMPARE(inLines(wrong), QString());
    QCOMPARE(placesOfParts(), places); // however long the titles around them
}

QTEST_MAIN(tst_Languages)

#include "tst_languages.moc"
