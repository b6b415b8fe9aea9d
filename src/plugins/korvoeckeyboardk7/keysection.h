// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "idindex.h"
#include "markers.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QEvent>
#include <QList>
#include <QObject>

#include <memory>

namespace Korvo {
struct ECButtonColor;
struct ECOLEDText;
} // namespace Korvo

/// What all key sections do alike. A section adds its form, its lists, its markers and its slots.
/// GUI thread only.
namespace Korvo::ECKeyboard::K7::Internal {

using KeyList = QList<Korvo::EC::K7DropButton *>;
using LabelList = QList<Korvo::EC::TextTicker *>;

/// The keys of a section that carry arrows; both null where a section has none.
struct PageKeys
{
    QAbstractButton *up = nullptr;
    QAbstractButton *down = nullptr;
};

/// What the host knows \a key by, which may be one of \a keys or another: its id plus 0xff0000.
quint32 keyCode(const KeyIndex &keys, const QObject *key);

/// For the destructor of a section or a half: keys that are held come up while their releases still have a
/// way to the host.
void letGoOfKeys(QWidget *keyboard);

/// Connects a group of keys, or one key, to a pair of slots of \a receiver.
template <typename Receiver>
void connectGroup(const QButtonGroup *group, const Receiver *receiver,
                  void (Receiver::*pressed)(QAbstractButton *), void (Receiver::*released)(QAbstractButton *))
{
    QObject::connect(group, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonPressed), receiver,
                     pressed);
    QObject::connect(group, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonReleased), receiver,
                     released);
}

template <typename Receiver>
void connectKey(const QAbstractButton *key, const Receiver *receiver, void (Receiver::*pressed)(),
                void (Receiver::*released)())
{
    QObject::connect(key, &QAbstractButton::pressed, receiver, pressed);
    QObject::connect(key, &QAbstractButton::released, receiver, released);
}

/// Takes \a button, which does nothing, out of the way of the keyboard; \a name is what it is told as.
void leaveOutOfTabOrder(QWidget *button, const QString &name);

/// Appends the buttons of \a group in the group's order. A button that is no key leaves a null entry.
void appendKeys(KeyList *keys, const QButtonGroup *group);

/// Appends all OLED labels below \a holder, in child order.
void appendLabels(LabelList *labels, const QObject *holder);

/// Paints \a key with \a styleSheet; costs nothing when it looks so already.
void paintKey(QWidget *key, const QString &styleSheet);

/// Gives \a key the idle look of ordinary keys.
void paintIdle(QAbstractButton *key);
/// The same for every button of \a group.
void paintIdle(const QButtonGroup *group);
/// Gives both page keys their idle look; neither is null.
void paintIdle(const PageKeys &pageKeys);

/// Paints every entry of \a keys in the look of an ordinary key, page keys included, when \a color is a
/// broadcast. False for all other records and for null.
bool paintAllKeys(const KeyList &keys, const std::shared_ptr<ECButtonColor> &color);

/// Paints the first of \a keys that has the id of \a color. False when there is none, and for null.
bool paintMatchingKey(KeyIndex *keys, const std::shared_ptr<ECButtonColor> &color,
                      const PageKeys &pageKeys = PageKeys());

/// Writes \a text to the first of \a labels that has its id. False when there is none, and for null.
bool writeMatchingLabel(LabelIndex *labels, const std::shared_ptr<ECOLEDText> &text);

/// The private part of the key section \a Keyboard with the form \a Form: a section's own adds its slots.
template <typename Keyboard, typename Form>
class KeySection : public QObject
{
public:
    explicit KeySection(Keyboard *keyboard)
        : m_pKeyboard(keyboard)
    {
    }
    ~KeySection() override { delete ui; }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::LanguageChange)
            ui->retranslateUi(m_pKeyboard);
        return QObject::eventFilter(watched, event);
    }

    Keyboard *m_pKeyboard; // owns this
    Form *ui = nullptr;
    KeyList m_pECButtons;
    KeyIndex m_keyIndex; // of the list before

protected:
    void createForm()
    {
        ui = new Form;
        ui->setupUi(m_pKeyboard);
        mark(m_pKeyboard, "contentFrame");
        m_pKeyboard->installEventFilter(this);
    }

    /// Sends the code of \a key as pressed or released; nothing for null.
    void press(const QAbstractButton *key)
    {
        if (key)
            Q_EMIT m_pKeyboard->ecButtonPressed(keyCode(m_keyIndex, key));
    }
    void release(const QAbstractButton *key)
    {
        if (key)
            Q_EMIT m_pKeyboard->ecButtonRelease(keyCode(m_keyIndex, key));
    }
};

} // namespace Korvo::ECKeyboard::K7::Internal
