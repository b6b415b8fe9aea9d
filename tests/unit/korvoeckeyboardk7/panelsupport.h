// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "settingsfolder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMap>
#include <QMessageBox>
#include <QMetaMethod>
#include <QObject>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <QTranslator>
#include <QVariant>
#include <QVector>

#include <algorithm>

/// Notes every signal that \a sender itself declares, with its arguments: "signalX(true, 10)". Each is noted
/// on the thread that emits it.
class SignalNotes : public QObject
{
public:
    explicit SignalNotes(const QObject *sender)
        : SignalNotes(sender, sender->metaObject())
    {
    }
    /// Those that \a type declares.
    SignalNotes(const QObject *sender, const QMetaObject *type)
    {
        for (int i = type->methodOffset(); i < type->methodCount(); ++i) {
            const QMetaMethod method = type->method(i);
            if (method.methodType() != QMetaMethod::Signal)
                continue;
            const int slot = QObject::staticMetaObject.methodCount() + m_methods.size();
            if (!QMetaObject::connect(sender, i, this, slot, Qt::DirectConnection))
                qFatal("cannot listen to %s", method.methodSignature().constData());
            m_methods << method;
        }
    }

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        id = QObject::qt_metacall(call, id, arguments);
        if (id < 0 || call != QMetaObject::InvokeMetaMethod)
            return id;
        lines << text(m_methods.at(id), arguments + 1);
        return -1;
    }

    /// Those of the signals with one of \a names, in order.
    QStringList only(const QStringList &names) const
    {
        QStringList some;
        for (const QString &line : lines) {
            if (names.contains(line.section(QLatin1Char('('), 0, 0)))
                some << line;
        }
        return some;
    }
    QStringList take()
    {
        QStringList taken;
        taken.swap(lines);
        return taken;
    }

    static QString text(const QMetaMethod &method, void *const *arguments)
    {
        QStringList values;
        const QList<QByteArray> types = method.parameterTypes();
        for (int i = 0; i < types.size(); ++i)
            values << text(types.at(i), arguments[i]);
        return QLatin1String(method.name()) + QLatin1Char('(') + values.join(QLatin1String(", ")) +
               QLatin1Char(')');
    }

    QStringList lines;

private:
    static QString text(const QByteArray &type, const void *value)
    {
        if (type == "bool")
            return QVariant(*static_cast<const bool *>(value)).toString();
        if (type == "int")
            return QString::number(*static_cast<const int *>(value));
        if (type == "uint")
            return QString::number(*static_cast<const quint32 *>(value));
        if (type == "ushort")
            return QString::number(*static_cast<const quint16 *>(value));
        if (type == "uchar")
            return QString::number(*static_cast<const quint8 *>(value));
        if (type == "QString")
            return *static_cast<const QString *>(value);
        if (type != "QVector<quint16>")
            qFatal("%s is not foreseen", type.constData());
        QStringList numbers;
        for (const quint16 number : *static_cast<const QVector<quint16> *>(value))
            numbers << QString::number(number);
        return QLatin1Char('[') + numbers.join(QLatin1Char(' ')) + QLatin1Char(']');
    }

    QVector<QMetaMethod> m_methods;
};

/// Emits \a signal of \a sender with arguments that differ from each other, and returns them as SignalNotes
/// tells them, in brackets.
inline QString emitSample(QObject *sender, const QMetaMethod &signal)
{
    const bool on = true;
    const int numbers[]{3, 1, 4, 2};
    const quint8 small[]{7, 200, 9, 11};
    const QString texts[]{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third"),
                          QStringLiteral("fourth")};
    const QVector<quint16> sizes{3840, 2160, 800, 65535};

    const QList<QByteArray> types = signal.parameterTypes();
    QGenericArgument given[4];
    void *plain[4]{};
    for (int i = 0; i < types.size(); ++i) {
        const QByteArray &type = types.at(i);
        const void *value = nullptr;
        if (type == "bool")
            value = &on;
        else if (type == "int")
            value = &numbers[i];
        else if (type == "uchar") // quint8
            value = &small[i];
        else if (type == "QString")
            value = &texts[i];
        else if (type == "QVector<quint16>")
            value = &sizes;
        else
            qFatal("%s is not foreseen", type.constData());
        given[i] = QGenericArgument(type.constData(), value);
        plain[i] = const_cast<void *>(value);
    }
    if (!signal.invoke(sender, Qt::DirectConnection, given[0], given[1], given[2], given[3]))
        qFatal("cannot emit %s", signal.methodSignature().constData());
    const QString text = SignalNotes::text(signal, plain);
    return text.mid(text.indexOf(QLatin1Char('(')));
}

/// The signals that \a type itself declares, by name.
inline QMap<QByteArray, QMetaMethod> signalsOf(const QMetaObject &type)
{
    QMap<QByteArray, QMetaMethod> found;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        if (type.method(i).methodType() == QMetaMethod::Signal)
            found.insert(type.method(i).name(), type.method(i));
    }
    return found;
}

/// A message box as it was shown.
struct ShownBox
{
    QString title;
    QString text;
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    const QWidget *parent;
};

/// While it lives, notes every message box and answers it with a click, or with Escape.
class BoxAnswers : public QObject
{
public:
    explicit BoxAnswers(QMessageBox::StandardButton answer)
        : m_answer(answer)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *box = event->type() == QEvent::Show ? qobject_cast<QMessageBox *>(watched) : nullptr;
        if (box) {
            boxes << ShownBox{box->windowTitle(), box->text(), box->icon(), box->standardButtons(),
                              box->parentWidget()};
            QTimer::singleShot(0, box, [this, box] { answer(box); });
        }
        return false;
    }

    QVector<ShownBox> boxes;

private:
    void answer(QMessageBox *box) const
    {
        if (QAbstractButton *button = box->button(m_answer))
            QTest::mouseClick(button, Qt::LeftButton);
        else
            QTest::keyClick(box, Qt::Key_Escape);
    }

    const QMessageBox::StandardButton m_answer;
};

/// A language in which every word begins with an "x". Numbers, and the ids and command families that pass
/// through the translation step without being words, have no translation.
class CrossLanguage : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *disambiguation,
                      int number) const override
    {
        Q_UNUSED(context)
        Q_UNUSED(disambiguation)
        Q_UNUSED(number)
        const QString text = QString::fromUtf8(source);
        return isWord(text) ? QLatin1Char('x') + text : QString();
    }
    bool isEmpty() const override { return false; }

    static bool isWord(const QString &text)
    {
        const bool hasLetter =
            std::any_of(text.cbegin(), text.cend(), [](QChar letter) { return letter.isLetter(); });
        return hasLetter && !text.endsWith(QLatin1String("Command")) && !text.contains(QLatin1Char('_'));
    }
};

/// Speaks CrossLanguage while it lives.
class CrossSpeaking
{
public:
    CrossSpeaking()
    {
        QCoreApplication::installTranslator(&m_language);
        QCoreApplication::processEvents();
    }
    ~CrossSpeaking()
    {
        QCoreApplication::removeTranslator(&m_language);
        QCoreApplication::processEvents();
    }
    Q_DISABLE_COPY(CrossSpeaking)

private:
    CrossLanguage m_language;
};

/// The descendant \a name of \a top, which must be there.
template <typename Widget = QWidget>
Widget *find(const QWidget *top, const char *name)
{
    auto *widget = top->findChild<Widget *>(QLatin1String(name));
    if (!widget)
        qFatal("there is no %s", name);
    return widget;
}
