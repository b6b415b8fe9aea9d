// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "languages.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace {

/// All texts that forms and sources pass through the translation, as Qt's own tool finds them.
TranslationFile readTexts()
{
    TranslationFile read;
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("texts.ts"));
    QProcess tool;
    tool.start(QStringLiteral(K7_LUPDATE),
               {QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none"),
                QStringLiteral(K7_FORMS), QStringLiteral("-ts"), path});
    if (!tool.waitForFinished() || tool.exitStatus() != QProcess::NormalExit || tool.exitCode() != 0) {
        read.error = tool.errorString() + QString::fromLocal8Bit(tool.readAllStandardError());
        return read;
    }
    return readTranslationFile(path);
}

/// What dynamic properties of \a form hold that passes through the translation, but is no word: ids, command
/// families, values of markers.
QSet<QString> namesIn(const QString &form)
{
    QSet<QString> names;
    QFile file(form);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(form));
    QXmlStreamReader xml(&file);
    bool isDynamic = false;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("property"))
            isDynamic = xml.attributes().value(QLatin1String("stdset")) == QLatin1String("0");
        else if (isDynamic && xml.name() == QLatin1String("string") &&
                 xml.attributes().value(QLatin1String("notr")) != QLatin1String("true"))
            names << xml.readElementText();
    }
    return names;
}

QSet<QString> namesInForms()
{
    QSet<QString> names;
    const QDir folder(QStringLiteral(K7_FORMS));
    const QStringList forms = folder.entryList({QStringLiteral("*.ui")});
    for (const QString &form : forms)
        names += namesIn(folder.filePath(form));
    return names;
}

bool hasLetter(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(), [](QChar one) { return one.isLetter(); });
}

/// "%1" and the like, sorted.
QStringList placesIn(const QString &text)
{
    QStringList places;
    QRegularExpressionMatchIterator all =
        QRegularExpression(QStringLiteral("%(?:\\d+|L\\d+|n)")).globalMatch(text);
    while (all.hasNext())
        places << all.next().captured();
    places.sort();
    return places;
}

/// The words of \a some that \a others do not hold.
QString wordsOnlyIn(const Words &some, const Words &others)
{
    QStringList words;
    for (auto it = some.cbegin(); it != some.cend(); ++it) {
        if (!others.contains(it.key()))
            words << nameOf(it.key());
    }
    return inLines(words);
}

} // namespace

/// Compares the translation files, as they are written, with the texts of forms and sources.
class tst_Translations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aFileHoldsEveryWordAndNothingElse_data() { addLanguages(); }
    void aFileHoldsEveryWordAndNothingElse();
    void everyEntryIsFinished_data() { addLanguages(); }
    void everyEntryIsFinished();
    void englishIsTheSource();

private:
    static void addLanguages();

    Words m_words; // that every language has to say
};

void tst_Translations::initTestCase()
{
    const TranslationFile texts = readTexts();
    QCOMPARE(texts.error, QString());
    const QSet<QString> names = namesInForms();
    QVERIFY(names.contains(QStringLiteral("NUMBER_ENTER")));
    QVERIFY(names.contains(QStringLiteral("MixPresetCommand")));
    for (auto it = texts.words.cbegin(); it != texts.words.cend(); ++it) {
        if (hasLetter(it.key().second) && !names.contains(it.key().second))
            m_words.insert(it.key(), QString());
    }
    QVERIFY(m_words.size() > 80);
    QVERIFY(m_words.size() < texts.words.size());
}

void tst_Translations::addLanguages()
{
    QTest::addColumn<QString>("locale");
    const QStringList locales = languages();
    QVERIFY(locales.size() >= 6);
    for (const QString &locale : locales)
        QTest::newRow(qPrintable(locale)) << locale;
}

// An id or a command family in a file would be as wrong as a missing word: a translated id is another key.
void tst_Translations::aFileHoldsEveryWordAndNothingElse()
{
    QFETCH(QString, locale);
    const TranslationFile file = readTranslation(locale);
    QCOMPARE(file.error, QString());
    QCOMPARE(file.language, locale);
    QCOMPARE(wordsOnlyIn(m_words, file.words), QString());
    QCOMPARE(wordsOnlyIn(file.words, m_words), QString());
    QCOMPARE(inLines(file.repeated), QString());
}

void tst_Translations::everyEntryIsFinished()
{
    QFETCH(QString, locale);
    const TranslationFile file = readTranslation(locale);
    QCOMPARE(inLines(file.remarks), QString());
    QVERIFY(!file.words.isEmpty());
    for (auto it = file.words.cbegin(); it != file.words.cend(); ++it) {
        const QByteArray name = nameOf(it.key()).toUtf8();
        QVERIFY2(hasLetter(it.value()), name.constData());
        QVERIFY2(placesIn(it.value()) == placesIn(it.key().second), name.constData());
    }
}

void tst_Translations::englishIsTheSource()
{
    const Words words = readTranslation(QStringLiteral("en")).words;
    QVERIFY(!words.isEmpty());
    for (auto it = words.cbegin(); it != words.cend(); ++it)
        QCOMPARE(it.value(), it.key().second);
}

QTEST_GUILESS_MAIN(tst_Translations)

#include "tst_translations.moc"
