// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "latescrollarea.h"

#include <QLabel>
#include <QTest>
#include <QVBoxLayout>

using Korvo::Internal::LateScrollArea;

namespace {

/// A form with a label, as setupUi() gives it to an area.
QWidget *makeForm()
{
    auto *form = new QWidget;
    auto *layout = new QVBoxLayout(form);
    layout->addWidget(new QLabel(QStringLiteral("a label")));
    form->setMinimumHeight(1000);
    return form;
}

bool isPolished(const QWidget *widget)
{
    return widget->testAttribute(Qt::WA_WState_Polished);
}

} // namespace

class LateScrollAreaTest : public QObject
{
    Q_OBJECT

private slots:
    void theFormIsNotPolishedBeforeTheArea();
    void theFormIsShownAndScrollsOnceTheAreaIsShown();
    void aShownAreaTakesTheFormAtOnce();
    void aFormThatGoesBeforeIsNotTaken();
};

void LateScrollAreaTest::theFormIsNotPolishedBeforeTheArea()
{
    LateScrollArea area;
    QWidget *form = makeForm();
    area.setWidget(form);

    const auto *label = form->findChild<QLabel *>();
    QVERIFY(label);
    QCOMPARE(form->parentWidget(), area.viewport());
    QVERIFY(!isPolished(form));
    QVERIFY(!isPolished(label));

    area.ensurePolished();
    QCOMPARE(area.widget(), form);
    QVERIFY(isPolished(label));
}

void LateScrollAreaTest::theFormIsShownAndScrollsOnceTheAreaIsShown()
{
    LateScrollArea area;
    area.setWidgetResizable(true);
    QWidget *form = makeForm();
    area.setWidget(form);
    area.resize(200, 300);
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));

    QCOMPARE(area.widget(), form);
    QVERIFY(form->isVisible());
    QVERIFY(form->findChild<QLabel *>()->isVisible());
    QCOMPARE(form->height(), 1000);
    area.ensureVisible(0, 999);
    QVERIFY(form->y() < 0);
}

void LateScrollAreaTest::aShownAreaTakesTheFormAtOnce()
{
    LateScrollArea area;
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    QWidget *form = makeForm();
    area.setWidget(form);
    QCOMPARE(area.widget(), form);
    QVERIFY(form->isVisible());
}

void LateScrollAreaTest::aFormThatGoesBeforeIsNotTaken()
{
    LateScrollArea area;
    QWidget *form = makeForm();
    area.setWidget(form);
    delete form;
    area.show();
    QVERIFY(!area.widget());
}

QTEST_MAIN(LateScrollAreaTest)

#include "tst_latescrollarea.moc"
