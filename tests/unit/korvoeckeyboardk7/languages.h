// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QFile>
#include <QMap>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>

/// A context, which is a form's class or a class with its namespaces, and an English text in it.
using Word = QPair<QString, QString>;

/// The words of one language.
using Words = QMap<Word, QString>;

inline QString nameOf(const Word &word)
{
    return word.first + QLatin1String(": ") + word.second;
}

/// A list as a failing comparison shows it in full.
inline QString inLines(const QStringList &list)
{
    return list.join(QLatin1Char('\n'));
}

/// A translation file as it is written.
struct TranslationFile
{
    QString language;
    Words words;
    QStringList remarks; // each attribute of an entry, each element that is neither its text nor its words
    QStringList repeated;
    QString error;
};

inline const QString &translationFolder()
{
    static const QString folder = QStringLiteral(K7_FORMS "/translations");
    return folder;
}

/// The languages that there is a translation file for.
inline QStringList languages()
{
    const QString prefix = QStringLiteral("korvoeckeyboardk7_");
    QStringList locales;
    const QStringList files = QDir(translationFolder()).entryList({prefix + QLatin1String("*.ts")});
    for (const QString &file : files)
        locales << file.mid(prefix.size(), file.size() - prefix.size() - 3);
    return locales;
}

inline void readMessage(QXmlStreamReader *xml, const QString &context, TranslationFile *file)
{
    Word word(context, QString());
    QString translation;
    QStringList remarks;
    const auto remarkAttributes = [&] {
        const QXmlStreamAttributes attributes = xml->attributes();
        for (const QXmlStreamAttribute &attribute : attributes)
            remarks << attribute.name() + QLatin1Char('=') + attribute.value();
    };
    remarkAttributes();
    while (xml->readNextStartElement()) {
        remarkAttributes();
        if (xml->name() == QLatin1String("source")) {
            word.second = xml->readElementText();
        } else if (xml->name() == QLatin1String("translation")) {
            translation = xml->readElementText(QXmlStreamReader::IncludeChildElements);
        } else {
            remarks << xml->name().toString();
            xml->skipCurrentElement();
        }
    }
    if (file->words.contains(word))
        file->repeated << nameOf(word);
    file->words.insert(word, translation);
    for (const QString &remark : qAsConst(remarks))
        file->remarks << nameOf(word) + QLatin1String(": ") + remark;
}

inline TranslationFile readTranslationFile(const QString &path)
{
    TranslationFile read;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        read.error = file.errorString();
        return read;
    }
    QXmlStreamReader xml(&file);
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("TS"))
            read.language = xml.attributes().value(QLatin1String("language")).toString();
        else if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("message"))
            readMessage(&xml, context, &read);
    }
    if (xml.hasError())
        read.error = xml.errorString();
    return read;
}

inline TranslationFile readTranslation(const QString &locale)
{
    return readTranslationFile(translationFolder() + QStringLiteral("/korvoeckeyboardk7_%1.ts").arg(locale));
}
