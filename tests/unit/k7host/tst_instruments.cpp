// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakekeyboard.h"

#include <consolesession.h>
#include <inspector.h>
#include <instruments.h>
#include <simulatedprocessor.h>

#include <QAbstractItemModel>
#include <QApplication>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <memory>

using K7Host::ConsoleSession;
using K7Host::FakeKeyboardPlugin;
using K7Host::IdleLook;
using K7Host::Inspector;
using K7Host::Instruments;
using K7Host::Options;
using K7Host::SimulatedProcessor;

/// The inspector, which comes and goes at run time. What scenarios and traces do is seen on the program.
class tst_Instruments : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theInspectorWaitsForTheConsole();
    void withoutBeingAskedThereIsNoInspector();
    void theInspectorShowsWhatPassesWhileItIsOpen();
    void closingTheInspectorsWindowEndsInspecting();

private:
    void make(const Options &options = {});
    Inspector *inspector() const;
    int lineCount() const;

    std::unique_ptr<FakeKeyboardPlugin> m_plugin;
    SimulatedProcessor m_processor;
    std::unique_ptr<Instruments> m_instruments; // outlives the session
    std::unique_ptr<ConsoleSession> m_session;
};

void tst_Instruments::init()
{
    m_plugin = std::make_unique<FakeKeyboardPlugin>();
}

void tst_Instruments::cleanup()
{
    m_session.reset();
    m_instruments.reset();
    m_plugin.reset();
}

void tst_Instruments::make(const Options &options)
{
    m_instruments = std::make_unique<Instruments>(options, K7Host::Scenario());
    m_session = std::make_unique<ConsoleSession>(m_plugin.get(), &m_processor);
    m_session->prepare();
    QVERIFY(!m_instruments->watch(m_session.get()));
}

Inspector *tst_Instruments::inspector() const
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *result = qobject_cast<Inspector *>(window))
            return result;
    }
    return nullptr;
}

int tst_Instruments::lineCount() const
{
    return inspector()->findChild<QTableView *>(QStringLiteral("trafficView"))->model()->rowCount();
}

void tst_Instruments::theInspectorWaitsForTheConsole()
{
    Options options;
    options.inspect = true;
    make(options);
    QVERIFY(m_instruments->isInspecting());
    QVERIFY(inspector() && !inspector()->isVisible());
    m_session->call(IdleLook());
    m_instruments->start([](qreal) { return QImage(); });
    QVERIFY(inspector()->isVisible());
    QTRY_COMPARE(lineCount(), 2); // one a half
}

void tst_Instruments::withoutBeingAskedThereIsNoInspector()
{
    make();
    m_instruments->start([](qreal) { return QImage(); });
    QVERIFY(!m_instruments->isInspecting());
    QVERIFY(!inspector());
}

void tst_Instruments::theInspectorShowsWhatPassesWhileItIsOpen()
{
    make();
    m_instruments->start([](qreal) { return QImage(); });
    const QSignalSpy changed(m_instruments.get(), &Instruments::inspectingChanged);
    m_session->call(IdleLook());

    m_instruments->setInspecting(true);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.last().first().toBool(), true);
    QVERIFY(inspector()->isVisible());
    m_session->call(IdleLook());
    QTRY_COMPARE(lineCount(), 2);

    m_instruments->setInspecting(false);
    QCOMPARE(changed.count(), 2);
    QVERIFY(!inspector()->isVisible());
    m_session->call(IdleLook());

    m_instruments->setInspecting(true);
    m_session->call(IdleLook(), K7Host::Half::Left);
    QTRY_COMPARE(lineCount(), 3); // what it showed before is still there
    m_instruments->setInspecting(true);
    QCOMPARE(changed.count(), 3);
}

void tst_Instruments::closingTheInspectorsWindowEndsInspecting()
{
    make();
    m_instruments->start([](qreal) { return QImage(); });
    m_instruments->setInspecting(true);
    const QSignalSpy changed(m_instruments.get(), &Instruments::inspectingChanged);
    QVERIFY(inspector()->close());
    QCOMPARE(changed.count(), 1);
    QVERIFY(!m_instruments->isInspecting());
}

QTEST_MAIN(tst_Instruments)

#include "tst_instruments.moc"
