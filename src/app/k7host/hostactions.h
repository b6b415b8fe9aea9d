// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QAction;
class QWidget;
QT_END_NAMESPACE

namespace K7Host {

class ApplicationLanguage;
class Instruments;

// What can be done in every window of the host. Each makes an action of \a window, whose shortcut works
// wherever in the application the focus is; what else it is given outlives the window.

/// Ends the program: Ctrl+Q.
QAction *makeQuitAction(QWidget *window);
/// Goes on to the console's next language: Ctrl+L.
QAction *makeNextLanguageAction(ApplicationLanguage *language, QWidget *window);
/// Opens and closes the inspector: Ctrl+I.
QAction *makeInspectorAction(Instruments *instruments, QWidget *window);

} // namespace K7Host
