// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/ec/k7dropbutton.h>

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

using Korvo::EC::K7DropButton;

namespace {

bool isListening = false;
int descriptionChanges = 0;

QString pictureStyle(const QString &name)
{
    return QStringLiteral("border-image:url(\"/somewhere/images/%1.svg\")").arg(name);
}

QAccessibleInterface *interfaceOf(K7DropButton *key)
{
    return QAccessible::queryAccessibleInterface(key);
}

} // namespace

// They stand before Qt's own, which no platform without a desktop can be made to listen with.

bool QAccessible::isActive()
{
    return isListening;
}

void QAccessible::updateAccessibility(QAccessibleEvent *event)
{
    if (event->type() == QAccessible::DescriptionChanged)
        ++descriptionChanges;
}

class tst_K7DropButtonAccessible : public QObject
{
    Q_OBJECT

private slots:
    void theNameIsReadFromTheData_data();
    void theNameIsReadFromTheData();
    void thePictureTellsTheLight_data();
    void thePictureTellsTheLight();
    void withoutAPictureTheKeyDescribesItself();
    void theStateIsTheKeys();
    void thePressActionIsOneTap();
    void aKeyThatCannotBePressedIsNot_data();
    void aKeyThatCannotBePressedIsNot();
    void aChangeOfTheLightIsTold_data();
    void aChangeOfTheLightIsTold();

    void cleanup() { isListening = false; }
};

void tst_K7DropButtonAccessible::theNameIsReadFromTheData_data()
{
    QTest::addColumn<QString>("accessibleName");
    QTest::addColumn<QString>("consoleName");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("its own name") << "SCREEN 01"
                                  << "PRESET_05"
                                  << "CLEAR"
                                  << "SCREEN 01";
    QTest::newRow("the console's name") << ""
                                        << "PRESET_05"
                                        << "CLEAR"
                                        << "PRESET 05";
    QTest::newRow("every underscore") << ""
                                      << "LAYER_EDIT_RESERVE01"
                                      << ""
                                      << "LAYER EDIT RESERVE01";
    QTest::newRow("the text on one line") << ""
                                          << ""
                                          << "MATCH\n PGM "
                                          << "MATCH PGM";
    QTest::newRow("the name of the object") << ""
                                            << ""
                                            << ""
                                            << "theKey";
}

void tst_K7DropButtonAccessible::theNameIsReadFromTheData()
{
    QFETCH(QString, accessibleName);
    QFETCH(QString, consoleName);
    QFETCH(QString, text);
    QFETCH(QString, expected);

    K7DropButton key;
    key.setObjectName(QStringLiteral("theKey"));
    key.setAccessibleName(accessibleName);
    key.setProperty("key", consoleName);
    key.setText(text);
    QCOMPARE(interfaceOf(&key)->text(QAccessible::Name), expected);
    QCOMPARE(interfaceOf(&key)->role(), QAccessible::Button);
}

void tst_K7DropButtonAccessible::thePictureTellsTheLight_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QString>("expected");
    for (const char *color : {"red", "green", "blue", "yellow", "purple", "orange"}) {
        const QString name = QString::fromLatin1(color);
        QTest::newRow(color) << QStringLiteral("ecbutton_") + name << QStringLiteral("lit ") + name;
    }
    QTest::newRow("white") << "ecbutton_white"
                           << "unlit";
    QTest::newRow("black") << "ecbutton_black"
                           << "unlit";
    QTest::newRow("double width") << "ecbutton_double_width_green"
                                  << "lit green";
    QTest::newRow("page up") << "ecbutton_page_up_blue"
                             << "lit blue";
    QTest::newRow("page up at rest") << "ecbutton_page_up_black"
                                     << "unlit";
    QTest::newRow("page down") << "ecbutton_page_down_yellow"
                               << "lit yellow";
    QTest::newRow("page down at rest") << "ecbutton_page_down_white"
                                       << "unlit";
    QTest::newRow("another picture") << "red"
                                     << "";
    QTest::newRow("another color") << "ecbutton_brown"
                                   << "";
}

void tst_K7DropButtonAccessible::thePictureTellsTheLight()
{
    QFETCH(QString, picture);
    QFETCH(QString, expected);

    K7DropButton key;
    key.setStyleSheet(pictureStyle(picture));
    QCOMPARE(interfaceOf(&key)->text(QAccessible::Description), expected);
}

void tst_K7DropButtonAccessible::withoutAPictureTheKeyDescribesItself()
{
    K7DropButton key;
    QCOMPARE(interfaceOf(&key)->text(QAccessible::Description), QString());
    key.setAccessibleDescription(QStringLiteral("types a digit"));
    QCOMPARE(interfaceOf(&key)->text(QAccessible::Description), QStringLiteral("types a digit"));
}

void tst_K7DropButtonAccessible::theStateIsTheKeys()
{
    K7DropButton key;
    key.show();
    QApplication::setActiveWindow(&key);
    QVERIFY(QTest::qWaitForWindowActive(&key));
    const QAccessibleInterface *interface = interfaceOf(&key);
    QVERIFY(interface->state().focusable);
    QVERIFY(!interface->state().pressed);
    QVERIFY(!interface->state().checkable);
    QVERIFY(!interface->state().disabled);

    key.setFocus();
    QVERIFY(interface->state().focused);
    QTest::mousePress(&key, Qt::LeftButton);
    QVERIFY(interface->state().pressed);
    QTest::mouseRelease(&key, Qt::LeftButton);
    QVERIFY(!interface->state().pressed);

    key.setCheckable(true);
    QVERIFY(interface->state().checkable);
    QVERIFY(!interface->state().checked);
    key.setChecked(true);
    QVERIFY(interface->state().checked);
    key.setEnabled(false);
    QVERIFY(interface->state().disabled);
}

void tst_K7DropButtonAccessible::thePressActionIsOneTap()
{
    K7DropButton key;
    key.show();
    QAccessibleActionInterface *actions = interfaceOf(&key)->actionInterface();
    QVERIFY(actions);
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));

    QStringList told;
    connect(&key, &QAbstractButton::pressed, &key, [&told] { told << QStringLiteral("pressed"); });
    connect(&key, &QAbstractButton::released, &key, [&told] { told << QStringLiteral("released"); });
    connect(&key, &QAbstractButton::clicked, &key, [&told] { told << QStringLiteral("clicked"); });
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(told.join(QLatin1Char(' ')), QStringLiteral("pressed released clicked"));
}

void tst_K7DropButtonAccessible::aKeyThatCannotBePressedIsNot_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("hidden") << QByteArray("visible");
    QTest::newRow("disabled") << QByteArray("enabled");
}

void tst_K7DropButtonAccessible::aKeyThatCannotBePressedIsNot()
{
    QFETCH(QByteArray, property);

    K7DropButton key;
    key.show();
    QVERIFY(key.setProperty(property.constData(), false));
    const QSignalSpy pressed(&key, &QAbstractButton::pressed);
    interfaceOf(&key)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(pressed.count(), 0);
}

void tst_K7DropButtonAccessible::aChangeOfTheLightIsTold_data()
{
    QTest::addColumn<bool>("listening");
    QTest::addColumn<int>("expected");
    QTest::newRow("to who listens") << true << 1;
    QTest::newRow("to nobody") << false << 0;
}

void tst_K7DropButtonAccessible::aChangeOfTheLightIsTold()
{
    QFETCH(bool, listening);
    QFETCH(int, expected);

    K7DropButton key;
    key.show();
    isListening = listening;
    descriptionChanges = 0;
    key.setStyleSheet(pictureStyle(QStringLiteral("ecbutton_red")));
    QCOMPARE(descriptionChanges, expected);
    key.setStyleSheet(pictureStyle(QStringLiteral("ecbutton_page_up_red"))); // is told alike
    QCOMPARE(descriptionChanges, expected);
    key.setStyleSheet(pictureStyle(QStringLiteral("ecbutton_green")));
    QCOMPARE(descriptionChanges, 2 * expected);
}

QTEST_MAIN(tst_K7DropButtonAccessible)

#include "tst_k7dropbuttonaccessible.moc"
