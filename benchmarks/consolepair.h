// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvoeckeyboardk7plugin.h>

#include <QTemporaryDir>
#include <QWidget>

#include <memory>

class PlainPlugin;

/// The halves of a plug-in as any host shows them: side by side in a window that does nothing else, at their
/// native size. The plug-in keeps owning them, and must outlive this.
class ShownConsole
{
public:
    explicit ShownConsole(const Korvo::IKorvoECKeyboardPlugin *plugin);
    ~ShownConsole();
    Q_DISABLE_COPY(ShownConsole)

    const Korvo::IKorvoECKeyboardPlugin *plugin() const { return m_plugin; }
    QWidget *window() { return &m_window; }
    Korvo::IKorvoECKeyboard *left() const { return m_halves.constFirst(); }
    Korvo::IKorvoECKeyboard *right() const { return m_halves.constLast(); }

    /// The key or label of the left half with the object's \a name.
    QWidget *child(const char *name) const;

private:
    void placeHalves();

    const Korvo::IKorvoECKeyboardPlugin *const m_plugin;
    QWidget m_window;
    QList<Korvo::IKorvoECKeyboard *> m_halves;
    QList<QSize> m_formSizes;
};

/// This project's console and its plain copy, in the same theme, each in a window of its own. Settings are
/// kept in a temporary folder. Ends the program when the theme cannot be read.
class ConsolePair
{
public:
    ConsolePair();
    ~ConsolePair();
    Q_DISABLE_COPY(ConsolePair)

    ShownConsole *console(bool isPlain) { return isPlain ? m_plain.get() : m_own.get(); }

    /// The rows of a benchmark that measures both: a column "isPlain".
    static void addRows();

private:
    QTemporaryDir m_settingsDir;
    std::unique_ptr<Korvo::ECKeyboard::K7Plugin> m_ownPlugin;
    std::unique_ptr<PlainPlugin> m_plainPlugin;
    std::unique_ptr<ShownConsole> m_own;
    std::unique_ptr<ShownConsole> m_plain;
};

/// Does all that is left to do after a record or a press: layout and painting are events that were posted. No
/// timers, whose ticks would fall into one count or the other.
void paint();
