// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consoledesk.h"

#include <consolewidgets.h>

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

using namespace K7Host;

class tst_ConsoleWidgets : public QObject
{
    Q_OBJECT

private slots:
    void aKeyIsFoundByItsIdOrItsName_data();
    void aKeyIsFoundByItsIdOrItsName();
    void aLabelWithTheIdIsNoKey();
    void aWidgetIsFoundUnderEachOfItsAddresses_data();
    void aWidgetIsFoundUnderEachOfItsAddresses();
    void whatIsNotFoundIsTold_data();
    void whatIsNotFoundIsTold();
    void aLineThatNamesNobodyFindsNobody();
    void theShortestAddressLeadsBack_data();
    void theShortestAddressLeadsBack();
    void withoutAnAddressTheWidgetAroundCounts();
    void popupsBelongToTheHalvesAndMessageBoxesDoNot();
    void halvesThatHaveGoneHaveNoWidgets();
};

namespace {

/// A desk with two panels that call their fields alike.
class Panels : public ConsoleDesk
{
public:
    Panels()
        : first(add<QFrame>("first", {0, 200, 200, 100}))
        , second(add<Korvo::Widgets::tbar>("", {200, 200, 200, 100}))
        , firstField(add<QLineEdit>("address", {0, 0, 100, 30}, first))
        , secondField(add<QLineEdit>("address", {0, 0, 100, 30}, second))
        , unnamed(add<QPushButton>("", {0, 40, 40, 30}, first))
    {
        add<QPushButton>("", {50, 40, 40, 30}, first);
        firstField->setProperty("which", 1);
        secondField->setProperty("which", 2);
        second->setProperty("which", 3);
        field->setProperty("which", 4);
    }

    QFrame *first;
    QWidget *second;
    QLineEdit *firstField;
    QLineEdit *secondField;
    QPushButton *unnamed;
};

} // namespace

void tst_ConsoleWidgets::aKeyIsFoundByItsIdOrItsName_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("id") << QByteArray(R"({"op":"click","key":59})");
    QTest::newRow("name") << QByteArray(R"({"op":"click","key":"PRESET_06"})");
}

void tst_ConsoleWidgets::aKeyIsFoundByItsIdOrItsName()
{
    QFETCH(QByteArray, line);
    const ConsoleDesk desk;
    const auto found = ConsoleWidgets(desk.halves()).find(inputLine(line));
    QCOMPARE(found.widget, desk.other);
    QCOMPARE(found.fault, QString());
}

void tst_ConsoleWidgets::aLabelWithTheIdIsNoKey()
{
    ConsoleDesk desk;
    for (const int id : {58, 77})
        desk.add<QLabel>("", {})->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, id);
    const ConsoleWidgets widgets(desk.halves());
    QCOMPARE(widgets.find(inputLine(R"({"op":"click","key":58})")).widget, desk.key);
    const auto found = widgets.find(inputLine(R"({"op":"click","key":77})"));
    QVERIFY(!found.widget);
    QCOMPARE(found.fault, QStringLiteral("there is no key 77"));
}

void tst_ConsoleWidgets::aWidgetIsFoundUnderEachOfItsAddresses_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<int>("expected");
    QTest::newRow("a name") << QStringLiteral("field") << 4;
    QTest::newRow("after a name") << QStringLiteral("first/address") << 1;
    QTest::newRow("after a class") << QStringLiteral("tbar/address") << 2;
    QTest::newRow("after a whole class") << QStringLiteral("Korvo::Widgets::tbar/address") << 2;
    QTest::newRow("after a far ancestor") << QStringLiteral("left/field") << 4;
    QTest::newRow("a class, unnamed") << QStringLiteral("tbar") << 3;
}

void tst_ConsoleWidgets::aWidgetIsFoundUnderEachOfItsAddresses()
{
    QFETCH(QString, address);
    const Panels desk;
    InputLine line;
    line.widget = address;
    const auto found = ConsoleWidgets(desk.halves()).find(line);
    QVERIFY2(found.widget, qPrintable(found.fault));
    QTEST(found.widget->property("which").toInt(), "expected");
}

void tst_ConsoleWidgets::whatIsNotFoundIsTold_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("fault");
    QTest::newRow("key") << QByteArray(R"({"op":"click","key":300})")
                         << QStringLiteral("there is no key 300");
    QTest::newRow("key's name") << QByteArray(R"({"op":"click","key":"PRESET_99"})")
                                << QStringLiteral("there is no key \"PRESET_99\"");
    QTest::newRow("widget") << QByteArray(R"({"op":"click","widget":"nobody"})")
                            << QStringLiteral("there is no widget \"nobody\"");
    QTest::newRow("ancestor") << QByteArray(R"({"op":"click","widget":"right/field"})")
                              << QStringLiteral("there is no widget \"right/field\"");
    QTest::newRow("the host's") << QByteArray(R"({"op":"click","widget":"hosts"})")
                                << QStringLiteral("there is no widget \"hosts\"");
    QTest::newRow("two") << QByteArray(R"({"op":"click","widget":"address"})")
                         << QStringLiteral("\"address\" is the name of 2 widgets: put an ancestor before it, "
                                           "such as \"first/address\"");
    QTest::newRow("two keys") << QByteArray(R"({"op":"click","key":60})")
                              << QStringLiteral("key 60 is there 2 times");
}

void tst_ConsoleWidgets::whatIsNotFoundIsTold()
{
    QFETCH(QByteArray, line);
    Panels desk;
    desk.add<QLineEdit>("hosts", {}, &desk.window);
    desk.addKey(60, "A", {210, 10});
    desk.addKey(60, "B", {310, 10});
    const auto found = ConsoleWidgets(desk.halves()).find(inputLine(line));
    QVERIFY(!found.widget);
    QTEST(found.fault, "fault");
}

void tst_ConsoleWidgets::aLineThatNamesNobodyFindsNobody()
{
    const ConsoleDesk desk;
    const auto found = ConsoleWidgets(desk.halves()).find(inputLine(R"({"op":"type","text":"1"})"));
    QVERIFY(!found.widget);
    QCOMPARE(found.fault, QString());
}

void tst_ConsoleWidgets::theShortestAddressLeadsBack_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QString>("address");
    QTest::newRow("a name") << 4 << QStringLiteral("field");
    QTest::newRow("after a name") << 1 << QStringLiteral("first/address");
    QTest::newRow("after a class") << 2 << QStringLiteral("tbar/address");
    QTest::newRow("a class") << 3 << QStringLiteral("tbar");
}

void tst_ConsoleWidgets::theShortestAddressLeadsBack()
{
    QFETCH(int, which);
    const Panels desk;
    const ConsoleWidgets widgets(desk.halves());
    QWidget *widget = nullptr;
    const auto children = desk.left->findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (child->property("which").toInt() == which)
            widget = child;
    }
    QVERIFY(widget);
    const auto address = widgets.addressOf(widget);
    QTEST(address.widget, "address");
    QCOMPARE(address.owner, widget);
    QVERIFY(!address.keyId);

    const auto key = widgets.addressOf(desk.key);
    QCOMPARE(key.keyId.value_or(0), 58U);
    QCOMPARE(key.widget, QString());
    QCOMPARE(key.owner, desk.key);
}

void tst_ConsoleWidgets::withoutAnAddressTheWidgetAroundCounts()
{
    const Panels desk;
    const auto address = ConsoleWidgets(desk.halves()).addressOf(desk.unnamed);
    QCOMPARE(address.widget, QStringLiteral("first"));
    QCOMPARE(address.owner, desk.first);
}

void tst_ConsoleWidgets::popupsBelongToTheHalvesAndMessageBoxesDoNot()
{
    ConsoleDesk desk;
    QVERIFY(desk.show());
    QFrame popup(desk.field, Qt::Popup);
    popup.setObjectName(QStringLiteral("popup"));
    const QMessageBox box(QMessageBox::Question, {}, QStringLiteral("Sure?"), QMessageBox::Yes, desk.field);
    const ConsoleWidgets widgets(desk.halves());

    QVERIFY(widgets.contain(&popup));
    QVERIFY(!widgets.contain(&desk.window));
    QVERIFY(!widgets.contain(box.button(QMessageBox::Yes)));
    QVERIFY(!widgets.find(inputLine(R"({"op":"click","widget":"qt_msgbox_label"})")).widget);
    QCOMPARE(widgets.find(inputLine(R"({"op":"click","widget":"popup"})")).widget, &popup);

    QVERIFY(!widgets.openPopup());
    popup.show();
    QCOMPARE(widgets.openPopup(), &popup);
}

void tst_ConsoleWidgets::halvesThatHaveGoneHaveNoWidgets()
{
    ConsoleWidgets::Halves halves;
    {
        const ConsoleDesk desk;
        halves = desk.halves();
    }
    const ConsoleWidgets widgets(halves);
    QCOMPARE(widgets.find(inputLine(R"({"op":"click","key":58})")).fault,
             QStringLiteral("there is no key 58"));
    QVERIFY(!widgets.focusWidget());
}

QTEST_MAIN(tst_ConsoleWidgets)

#include "tst_consolewidgets.moc"
