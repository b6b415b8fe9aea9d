// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "plainplugin.h"

#include <korvoeckeyboardk7plugin.h>

#include <korvo/ec/k7dropbutton.h>
#include <korvo/ec/textticker.h>
#include <korvo/keyboard/constants.h>
#include <korvo/keyboard/records.h>
#include <korvo/widgets/tbar.h>

#include <QLabel>
#include <QSlider>
#include <QToolButton>
#include <QVariant>

#include <algorithm>

using Korvo::IKorvoECKeyboard;
using Korvo::Constants::PROPERTY_KORVOECKEY;
using Korvo::ECKeyboard::K7Plugin;

namespace {

constexpr quint32 EveryKey = 255;
constexpr quint32 KeyCodeOffset = 0xff0000;
constexpr int LeverSteps = 1200;

quint32 idOf(const QWidget *widget)
{
    return static_cast<quint32>(widget->property(PROPERTY_KORVOECKEY).toInt());
}

template <typename Widget>
Widget *findById(const QList<Widget *> &widgets, quint32 id)
{
    const auto found =
        std::find_if(widgets.cbegin(), widgets.cend(), [id](const Widget *w) { return idOf(w) == id; });
    return found != widgets.cend() ? *found : nullptr;
}

QWidget *makeLike(const QWidget *original, QWidget *parent)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(original)) {
        auto *copy = new QToolButton(parent);
        copy->setText(button->text());
        return copy;
    }
    if (const auto *label = qobject_cast<const QLabel *>(original)) {
        auto *copy = new QLabel(label->text(), parent);
        copy->setAlignment(label->alignment());
        return copy;
    }
    if (qobject_cast<const Korvo::Widgets::tbar *>(original)) {
        auto *copy = new QSlider(Qt::Vertical, parent);
        copy->setRange(0, LeverSteps);
        copy->setEnabled(false);
        return copy;
    }
    return qobject_cast<const QFrame *>(original) ? new QFrame(parent) : new QWidget(parent);
}

/// What of \a original style sheets see, and where it is.
void dressLike(const QWidget *original, QWidget *copy)
{
    copy->setObjectName(original->objectName());
    const QList<QByteArray> names = original->dynamicPropertyNames();
    for (const QByteArray &name : names)
        copy->setProperty(name, original->property(name));
    copy->setGeometry(original->geometry());
    copy->setStyleSheet(original->styleSheet());
}

class PlainSection : public QFrame
{
    Q_OBJECT

public:
    using QFrame::QFrame;

    void copyChildren(const QWidget *original, QWidget *copy);
    void updateECButtonColor(const Korvo::ECButtonColor &color, const QString &styleSheet);
    void updateECOledText(const Korvo::ECOLEDText &text);
    void updateTBarValue(const Korvo::ECTBarValue &value);

Q_SIGNALS:
    void ecButtonPressed(const quint32 &); // the key code
    void ecButtonRelease(const quint32 &);

private:
    void addKey(QToolButton *key);

    QList<QToolButton *> m_keys;
    QList<QLabel *> m_labels;
    QSlider *m_lever = nullptr;
};

void PlainSection::copyChildren(const QWidget *original, QWidget *copy)
{
    const auto children = original->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget *child : children) {
        if (child->isHidden() || child->isWindow())
            continue;
        QWidget *made = makeLike(child, copy);
        dressLike(child, made);
        if (qobject_cast<const Korvo::EC::K7DropButton *>(child))
            addKey(qobject_cast<QToolButton *>(made));
        else if (qobject_cast<const Korvo::EC::TextTicker *>(child))
            m_labels.append(qobject_cast<QLabel *>(made));
        else if (auto *lever = qobject_cast<QSlider *>(made))
            m_lever = lever;
        else
            copyChildren(child, made);
    }
}

void PlainSection::addKey(QToolButton *key)
{
    m_keys.append(key);
    connect(key, &QAbstractButton::pressed, this,
            [this, key] { Q_EMIT ecButtonPressed(idOf(key) + KeyCodeOffset); });
    connect(key, &QAbstractButton::released, this,
            [this, key] { Q_EMIT ecButtonRelease(idOf(key) + KeyCodeOffset); });
}

void PlainSection::updateECButtonColor(const Korvo::ECButtonColor &color, const QString &styleSheet)
{
    if (color.ButtonKey == EveryKey) {
        for (QToolButton *key : qAsConst(m_keys))
            key->setStyleSheet(styleSheet);
    } else if (QToolButton *key = findById(m_keys, color.ButtonKey)) {
        key->setStyleSheet(styleSheet);
    }
}

void PlainSection::updateECOledText(const Korvo::ECOLEDText &text)
{
    if (QLabel *label = findById(m_labels, text.OledKey)) {
        const int length = static_cast<int>(qstrnlen(text.OledText, sizeof(text.OledText)));
        label->setText(QString::fromUtf8(text.OledText, length));
    }
}

void PlainSection::updateTBarValue(const Korvo::ECTBarValue &value)
{
    if (!m_lever)
        return;
    m_lever->setInvertedAppearance(value.IsBottomToTop == 0);
    m_lever->setValue(static_cast<int>(value.Value));
}

class PlainHalf : public IKorvoECKeyboard
{
    Q_OBJECT

public:
    PlainHalf(const IKorvoECKeyboard *original, const K7Plugin *pictures);

    QString displayName() const override { return objectName(); }
    Ovo::Utils::Id keyboardId() const override { return {}; }
    void applyNoramlStyleSheet() override {}
    bool updateECButtonColor(std::shared_ptr<Korvo::ECButtonColor> color) override;
    bool updateECOledText(std::shared_ptr<Korvo::ECOLEDText> text) override;
    bool updateTBarValue(std::shared_ptr<Korvo::ECTBarValue> value) override;
    void updateECDeviceIP(std::shared_ptr<Korvo::ECDeviceIPData>) override {}
    bool updateKeyboard() override { return true; }
    void updateDVISignalStatus(std::shared_ptr<Korvo::DVIInSignal>) override {}
    void updatePeripheralVisibleState(std::shared_ptr<Korvo::PeripheralControlVisibleState>) override {}

private:
    const K7Plugin *const m_pictures;
    QList<PlainSection *> m_sections;
};

PlainHalf::PlainHalf(const IKorvoECKeyboard *original, const K7Plugin *pictures)
    : m_pictures(pictures)
{
    dressLike(original, this);
    setFixedSize(original->size());
    const auto children = original->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget *child : children) {
        if (child->isHidden() || child->isWindow())
            continue;
        auto *section = new PlainSection(this);
        dressLike(child, section);
        section->copyChildren(child, section);
        connect(section, &PlainSection::ecButtonPressed, this, &IKorvoECKeyboard::ecButtonPressed);
        connect(section, &PlainSection::ecButtonRelease, this, &IKorvoECKeyboard::ecButtonRelease);
        m_sections.append(section);
    }
}

bool PlainHalf::updateECButtonColor(std::shared_ptr<Korvo::ECButtonColor> color)
{
    const QString styleSheet = m_pictures->ecButtonBorderImageCSS(color);
    for (PlainSection *section : qAsConst(m_sections))
        section->updateECButtonColor(*color, styleSheet);
    return true;
}

bool PlainHalf::updateECOledText(std::shared_ptr<Korvo::ECOLEDText> text)
{
    for (PlainSection *section : qAsConst(m_sections))
        section->updateECOledText(*text);
    return true;
}

bool PlainHalf::updateTBarValue(std::shared_ptr<Korvo::ECTBarValue> value)
{
    for (PlainSection *section : qAsConst(m_sections))
        section->updateTBarValue(*value);
    return true;
}

} // namespace

PlainPlugin::PlainPlugin(const K7Plugin *original)
{
    const auto originals = original->keyboards();
    for (const auto &half : originals) {
        m_halves.append(QSharedPointer<PlainHalf>::create(half.toStrongRef().data(), original));
        const IKorvoECKeyboard *copy = m_halves.constLast().data();
        connect(copy, &IKorvoECKeyboard::ecButtonPressed, this, &IKorvoECKeyboardPlugin::ecButtonPressed);
        connect(copy, &IKorvoECKeyboard::ecButtonRelease, this, &IKorvoECKeyboardPlugin::ecButtonRelease);
    }
}

PlainPlugin::~PlainPlugin() = default;

QList<QWeakPointer<IKorvoECKeyboard>> PlainPlugin::keyboards() const
{
    QList<QWeakPointer<IKorvoECKeyboard>> halves;
    for (const auto &half : m_halves)
        halves.append(half);
    return halves;
}

#include "plainplugin.moc"
