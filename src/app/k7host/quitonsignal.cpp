// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "quitonsignal.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <unistd.h>

namespace K7Host {

namespace {

// A signal handler may do no more than write to this pipe; the event loop reads it.
int pipeEnds[2] = {-1, -1};

void passOn(int /*signal*/)
{
    const char byte = 0;
    const auto written = ::write(pipeEnds[1], &byte, 1);
    static_cast<void>(written);
}

} // namespace

QuitOnSignal::QuitOnSignal(QObject *parent)
    : QObject(parent)
{
    if (::pipe(pipeEnds) != 0)
        return;
    const auto *notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &QuitOnSignal::readSignal);
    std::signal(SIGINT, passOn);
    std::signal(SIGTERM, passOn);
}

QuitOnSignal::~QuitOnSignal()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}

void QuitOnSignal::readSignal()
{
    char byte = 0;
    if (::read(pipeEnds[0], &byte, 1) == 1)
        QCoreApplication::quit();
}

} // namespace K7Host
