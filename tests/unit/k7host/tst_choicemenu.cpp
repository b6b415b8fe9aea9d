// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <choicemenu.h>

#include <QSignalSpy>
#include <QTest>

using K7Host::ChoiceMenu;

class tst_ChoiceMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void nothingIsChosenAtTheStart();
    void aClickChoosesAndTells();
    void choosingFromCodeTellsNobody();
    void aValueWithoutAnEntryChoosesNone();

private:
    QList<int> chosen() const;

    QScopedPointer<ChoiceMenu> m_menu;
};

void tst_ChoiceMenu::init()
{
    m_menu.reset(new ChoiceMenu(QStringLiteral("&Size")));
    for (const int value : {10, 20, 30})
        m_menu->addChoice(QStringLiteral("size %1").arg(value), value);
}

/// The values of the entries that are checked.
QList<int> tst_ChoiceMenu::chosen() const
{
    QList<int> values;
    const QList<QAction *> entries = m_menu->actions();
    for (const QAction *entry : entries) {
        if (entry->isChecked())
            values << entry->data().toInt();
    }
    return values;
}

void tst_ChoiceMenu::nothingIsChosenAtTheStart()
{
    QCOMPARE(m_menu->title(), QStringLiteral("&Size"));
    QCOMPARE(m_menu->actions().size(), 3);
    QCOMPARE(m_menu->actions().at(1)->text(), QStringLiteral("size 20"));
    QCOMPARE(chosen(), QList<int>());
}

void tst_ChoiceMenu::aClickChoosesAndTells()
{
    const QSignalSpy told(m_menu.data(), &ChoiceMenu::chosen);
    m_menu->popup(QPoint());
    for (const int index : {1, 2}) {
        QAction *entry = m_menu->actions().at(index);
        QTest::mouseClick(m_menu.data(), Qt::LeftButton, {}, m_menu->actionGeometry(entry).center());
        QCOMPARE(told.count(), index);
        QCOMPARE(told.last().first().toInt(), (index + 1) * 10);
        QCOMPARE(chosen(), QList<int>{(index + 1) * 10});
        m_menu->popup(QPoint());
    }
}

void tst_ChoiceMenu::choosingFromCodeTellsNobody()
{
    const QSignalSpy told(m_menu.data(), &ChoiceMenu::chosen);
    m_menu->setChosen(10);
    m_menu->setChosen(30);
    QCOMPARE(chosen(), QList<int>{30});
    QCOMPARE(told.count(), 0);
}

void tst_ChoiceMenu::aValueWithoutAnEntryChoosesNone()
{
    m_menu->setChosen(20);
    m_menu->setChosen(7);
    QCOMPARE(chosen(), QList<int>());
    m_menu->actions().at(0)->trigger();
    m_menu->actions().at(1)->trigger();
    QCOMPARE(chosen(), QList<int>{20}); // one at most
}

QTEST_MAIN(tst_ChoiceMenu)

#include "tst_choicemenu.moc"
