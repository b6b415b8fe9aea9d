// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <ovo/widgets/iplineedit.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTouchDevice>
#include <QVBoxLayout>

#include <memory>

using Ovo::Widgets::IPLineEdit;

namespace {

// An editor between two other fields, in an active window.
class Form
{
public:
    Form()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(before);
        layout->addWidget(editor);
        layout->addWidget(after);
        window.resize(240, 140);
        window.show();
        window.activateWindow();
        isReady = QTest::qWaitForWindowActive(&window);
        before->setFocus();
    }

    QList<QLineEdit *> octets() const
    {
        QList<QLineEdit *> found;
        for (int i = 0; i < editor->layout()->count(); ++i) {
            if (auto *octet = qobject_cast<QLineEdit *>(editor->layout()->itemAt(i)->widget()))
                found << octet;
        }
        return found;
    }

    int focusedOctet() const { return octets().indexOf(qobject_cast<QLineEdit *>(window.focusWidget())); }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window.windowHandle(), key, modifiers);
    }

    void type(const QString &text)
    {
        for (const QChar character : text)
            QTest::keyClick(window.windowHandle(), character.toLatin1());
    }

    QWidget window;
    QLineEdit *const before = new QLineEdit;
    IPLineEdit *const editor = new IPLineEdit;
    QLineEdit *const after = new QLineEdit;
    bool isReady = false;
};

} // namespace

class tst_IPLineEdit : public QObject
{
    Q_OBJECT

private slots:
    void itsLayoutHoldsFourOctetsAndThreeDots();
    void textsAreShown_data();
    void textsAreShown();
    void aChangeIsToldOnce();
    void theSameTextChangesNothing();
    void setIPFocusSelectsTheFirstOctet();
    void typingMovesOn_data();
    void typingMovesOn();
    void typingReplacesASelectedOctet();
    void typingOverAnAddressMovesOnAlike_data();
    void typingOverAnAddressMovesOnAlike();
    void aThirdDigitPutInBeforeOthersStays();
    void keysCrossTheDots_data();
    void keysCrossTheDots();
    void backspaceInAFilledOctetDeletes();
    void backspaceDeletesWhatIsSelected();
    void pastingTakesAllOrNothing_data();
    void pastingTakesAllOrNothing();
    void pastingAnAddressIsOneChange();
    void anInputMethodWritesLikeAKeyboard();
    void leadingZerosGoWhenAnOctetIsLeft();
    void returnTidiesAndFinishes();
    void leavingTheOctetsFinishes();
    void theFocusIsAProperty();
    void aStyleSheetSelectsOnTheFocus();
    void theFocusIsSeenWithoutAStyleSheet();
    void tabVisitsEveryOctet();
    void pressesOnDotsAndEdgesGoToTheNearestOctet_data();
    void pressesOnDotsAndEdgesGoToTheNearestOctet();
    void aFingerReachesEveryOctet_data();
    void aFingerReachesEveryOctet();
    void disabledItTakesNoInput();
    void itFitsItsHeights_data();
    void itFitsItsHeights();
    void itReadsFromTheLeftInEveryLanguage();
    void itCanBeDeletedWhileFocused();
};

void tst_IPLineEdit::itsLayoutHoldsFourOctetsAndThreeDots()
{
    const IPLineEdit editor;
    QVERIFY(qobject_cast<QHBoxLayout *>(editor.layout()));
    QCOMPARE(editor.layout()->count(), 7);
    for (int i = 0; i < 7; ++i) {
        QWidget *widget = editor.layout()->itemAt(i)->widget();
        if (i % 2 == 0)
            QVERIFY(qobject_cast<QLineEdit *>(widget));
        else
            QCOMPARE(qobject_cast<QLabel *>(widget)->text(), QStringLiteral("."));
        QCOMPARE(widget->parentWidget(), &editor);
    }
}

void tst_IPLineEdit::textsAreShown_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const QString none = QStringLiteral("...");
    QTest::newRow("an address") << "192.168.1.13"
                                << "192.168.1.13";
    QTest::newRow("zeros") << "0.0.0.0"
                           << "0.0.0.0";
    QTest::newRow("the last") << "255.255.255.255"
                              << "255.255.255.255";
    QTest::newRow("leading zeros") << "010.000.009.1"
                                   << "10.0.9.1";
    QTest::newRow("blanks around") << " 10.0.0.1\n"
                                   << "10.0.0.1";
    QTest::newRow("nothing") << QString() << none;
    QTest::newRow("dots") << none << none;
    QTest::newRow("three octets") << "10.0.0" << none;
    QTest::newRow("an empty octet") << "10..0.1" << none;
    QTest::newRow("five octets") << "10.0.0.1.2" << none;
    QTest::newRow("too large") << "10.0.0.256" << none;
    QTest::newRow("too long") << "10.0.0.0001" << none;
    QTest::newRow("signed") << "10.0.0.-1" << none;
    QTest::newRow("letters") << "ten.0.0.1" << none;
    QTest::newRow("blanks within") << "10. 0.0.1" << none;
    QTest::newRow("digits of another script") << QStringLiteral("\u0661.0.0.1") << none;
    QTest::newRow("a line more") << "10.0\n.0.1" << none;
}

void tst_IPLineEdit::textsAreShown()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    IPLineEdit editor;
    editor.setText(QStringLiteral("1.2.3.4"));
    editor.setText(text);
    QCOMPARE(editor.text(), expected);
}

void tst_IPLineEdit::aChangeIsToldOnce()
{
    IPLineEdit editor;
    QCOMPARE(editor.text(), QStringLiteral("..."));
    const QSignalSpy changed(&editor, &IPLineEdit::textChanged);
    editor.setText(QStringLiteral("192.168.1.13"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.last().first().toString(), QStringLiteral("192.168.1.13"));
    editor.setText(QStringLiteral("192.168.1.14"));
    QCOMPARE(changed.count(), 2);
    editor.setText(QStringLiteral("no address"));
    QCOMPARE(changed.count(), 3);
    QCOMPARE(changed.last().first().toString(), QStringLiteral("..."));
}

void tst_IPLineEdit::theSameTextChangesNothing()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(QStringLiteral("192.168.1.13"));
    form.editor->setIPFocus();
    const QSignalSpy changed(form.editor, &IPLineEdit::textChanged);
    form.editor->setText(QStringLiteral("192.168.001.13"));
    QCOMPARE(changed.count(), 0);
    QVERIFY(form.octets().at(0)->hasSelectedText());
}

void tst_IPLineEdit::setIPFocusSelectsTheFirstOctet()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(QStringLiteral("192.168.1.13"));
    form.octets().at(2)->setFocus();
    form.editor->setIPFocus();
    QCOMPARE(form.focusedOctet(), 0);
    QCOMPARE(form.octets().at(0)->selectedText(), QStringLiteral("192"));
}

void tst_IPLineEdit::typingMovesOn_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("octet");
    QTest::newRow("two digits stay") << "26"
                                     << "26..." << 0;
    QTest::newRow("three move on") << "192"
                                   << "192..." << 1;
    QTest::newRow("a dot moves on") << "10."
                                    << "10..." << 1;
    QTest::newRow("a comma moves on") << "10,0"
                                      << "10.0.." << 1;
    QTest::newRow("the dot after three digits is one step") << "192.168.1.13"
                                                            << "192.168.1.13" << 3;
    QTest::newRow("and need not be typed") << "192168001013"
                                           << "192.168.1.013" << 3;
    QTest::newRow("short octets") << "10.0.0.1"
                                  << "10.0.0.1" << 3;
    QTest::newRow("a dot in an empty octet stays") << ".."
                                                   << "..." << 0;
    QTest::newRow("a second dot stays") << "10..1"
                                        << "10.1.." << 1;
    QTest::newRow("too large a digit is refused") << "267"
                                                  << "26..." << 0;
    QTest::newRow("over 299") << "300"
                              << "30..." << 0;
    QTest::newRow("letters and signs are refused") << "1a-+ b2"
                                                   << "12..." << 0;
    QTest::newRow("nothing follows the last") << "1.2.3.255.9"
                                              << "1.2.3.255" << 3;
}

void tst_IPLineEdit::typingMovesOn()
{
    QFETCH(QString, typed);
    QFETCH(QString, expected);
    QFETCH(int, octet);
    Form form;
    QVERIFY(form.isReady);
    form.editor->setIPFocus();
    form.type(typed);
    QCOMPARE(form.editor->text(), expected);
    QCOMPARE(form.focusedOctet(), octet);
}

void tst_IPLineEdit::typingReplacesASelectedOctet()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(QStringLiteral("192.168.1.13"));
    form.editor->setIPFocus();
    const QSignalSpy changed(form.editor, &IPLineEdit::textChanged);
    form.type(QStringLiteral("10.0.."));
    QCOMPARE(form.editor->text(), QStringLiteral("10.0.1.13"));
    QCOMPARE(form.focusedOctet(), 3);
    QCOMPARE(form.octets().at(3)->selectedText(), QStringLiteral("13"));
    QCOMPARE(changed.count(), 3); // 1, 10, 0
}

void tst_IPLineEdit::typingOverAnAddressMovesOnAlike_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("octet");
    QTest::newRow("with all dots") << "192.168.1.13"
                                   << "192.168.1.13" << 3;
    QTest::newRow("the dot after a third digit") << "192."
                                                 << "192.2.3.4" << 1;
    QTest::newRow("and a second one") << "192.."
                                      << "192.2.3.4" << 2;
    QTest::newRow("a digit between") << "1925."
                                     << "192.5.3.4" << 2;
}

void tst_IPLineEdit::typingOverAnAddressMovesOnAlike()
{
    QFETCH(QString, typed);
    QFETCH(QString, expected);
    QFETCH(int, octet);
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(QStringLiteral("1.2.3.4"));
    form.editor->setIPFocus();
    form.type(typed);
    QCOMPARE(form.editor->text(), expected);
    QCOMPARE(form.focusedOctet(), octet);
}

void tst_IPLineEdit::aThirdDigitPutInBeforeOthersStays()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(QStringLiteral("13.2.3.4"));
    form.editor->setIPFocus();
    form.key(Qt::Key_Home);
    form.type(QStringLiteral("1"));
    QCOMPARE(form.editor->text(), QStringLiteral("113.2.3.4"));
    QCOMPARE(form.focusedOctet(), 0);
}

void tst_IPLineEdit::keysCrossTheDots_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("octet");
    QTest::addColumn<int>("cursor");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("expectedOctet");
    QTest::addColumn<int>("expectedCursor");
    const QString address = QStringLiteral("192.168.1.13");
    const QString empty;
    QTest::newRow("Right at the end") << address << 0 << 3 << int(Qt::Key_Right) << 1 << 0;
    QTest::newRow("Right within") << address << 0 << 1 << int(Qt::Key_Right) << 0 << 2;
    QTest::newRow("Right at the very end") << address << 3 << 2 << int(Qt::Key_Right) << 3 << 2;
    QTest::newRow("Left at the start") << address << 2 << 0 << int(Qt::Key_Left) << 1 << 3;
    QTest::newRow("Left within") << address << 1 << 2 << int(Qt::Key_Left) << 1 << 1;
    QTest::newRow("Left at the very start") << address << 0 << 0 << int(Qt::Key_Left) << 0 << 0;
    QTest::newRow("Right in an empty octet") << empty << 1 << 0 << int(Qt::Key_Right) << 2 << 0;
    QTest::newRow("Left in an empty octet") << empty << 1 << 0 << int(Qt::Key_Left) << 0 << 0;
    QTest::newRow("Backspace in an empty octet") << empty << 2 << 0 << int(Qt::Key_Backspace) << 1 << 0;
    QTest::newRow("Backspace at the start") << address << 2 << 0 << int(Qt::Key_Backspace) << 1 << 3;
    QTest::newRow("Backspace at the very start") << address << 0 << 0 << int(Qt::Key_Backspace) << 0 << 0;
}

void tst_IPLineEdit::keysCrossTheDots()
{
    QFETCH(QString, text);
    QFETCH(int, octet);
    QFETCH(int, cursor);
    QFETCH(int, key);
    QFETCH(int, expectedOctet);
    QFETCH(int, expectedCursor);
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(text);
    form.octets().at(octet)->setFocus();
    form.octets().at(octet)->setCursorPosition(cursor);
    const QSignalSpy changed(form.editor, &IPLineEdit::textChanged);
    form.key(Qt::Key(key));
    QCOMPARE(form.focusedOctet(), expectedOctet);
    QCOMPARE(form.octets().at(expectedOctet)->cursorPosition(), expectedCursor);
    QVERIFY(!form.octets().at(expectedOctet)->hasSelectedText());
    QCOMPARE(changed.count(), 0);
}

void tst_IPLineEdit::backspaceInAFilledOctetDeletes()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setIPFocus();
    form.type(QStringLiteral("10.3"));
    form.key(Qt::Key_Backspace);
    QCOMPARE(form.editor->text(), QStringLiteral("10..."));
    QCOMPARE(form.focusedOctet(), 1);
    form.key(Qt::Key_Backspace);
    QCOMPARE(form.editor->text(), QStringLiteral("10..."));
    QCOMPARE(form.focusedOctet(), 0);
    form.key(Qt::Key_Backspace);
    QCOMPARE(form.editor->text(), QStringLiteral("1..."));
}

void tst_IPLineEdit::backspaceDeletesWhatIsSelected()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(QStringLiteral("192.168.1.13"));
    form.octets().at(1)->setFocus();
    form.key(Qt::Key_End);
    form.key(Qt::Key_Home, Qt::ShiftModifier); // the cursor is at the start now
    form.key(Qt::Key_Backspace);
    QCOMPARE(form.editor->text(), QStringLiteral("192..1.13"));
    QCOMPARE(form.focusedOctet(), 1);
}

void tst_IPLineEdit::pastingTakesAllOrNothing_data()
{
    QTest::addColumn<int>("octet");
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("expectedOctet");
    const QString before = QStringLiteral("1.2.3.4");
    for (int octet = 0; octet < 4; ++octet)
        QTest::newRow(qPrintable(QStringLiteral("an address into octet %1").arg(octet)))
            << octet << "192.168.001.13"
            << "192.168.1.13" << 3;
    QTest::newRow("blanks around") << 1 << "  10.0.0.1\n"
                                   << "10.0.0.1" << 3;
    QTest::newRow("a number") << 1 << "25"
                              << "1.25.3.4" << 1;
    QTest::newRow("a number of three digits") << 1 << "255"
                                              << "1.255.3.4" << 2;
    QTest::newRow("too large a number") << 1 << "256" << before << 1;
    QTest::newRow("too long a number") << 1 << "1921" << before << 1;
    QTest::newRow("too large an octet") << 0 << "10.0.0.256" << before << 0;
    QTest::newRow("part of an address") << 0 << "10.0" << before << 0;
    QTest::newRow("a network") << 0 << "10.0.0.0/8" << before << 0;
    QTest::newRow("words") << 2 << "ten" << before << 2;
}

void tst_IPLineEdit::pastingTakesAllOrNothing()
{
    QFETCH(int, octet);
    QFETCH(QString, pasted);
    QFETCH(QString, expected);
    QFETCH(int, expectedOctet);
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(QStringLiteral("1.2.3.4"));
    form.octets().at(octet)->setFocus();
    form.octets().at(octet)->selectAll();
    QApplication::clipboard()->setText(pasted);
    form.key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(form.editor->text(), expected);
    QCOMPARE(form.focusedOctet(), expectedOctet);
}

void tst_IPLineEdit::pastingAnAddressIsOneChange()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setIPFocus();
    const QSignalSpy changed(form.editor, &IPLineEdit::textChanged);
    QApplication::clipboard()->setText(QStringLiteral("192.168.1.13"));
    form.key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toString(), QStringLiteral("192.168.1.13"));
}

void tst_IPLineEdit::anInputMethodWritesLikeAKeyboard()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setIPFocus();
    const auto commit = [&form](const QString &text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(form.window.focusWidget(), &event);
    };
    for (const char *text : {"1", "0", ".", "168", ".", "x", "1"})
        commit(QLatin1String(text));
    QCOMPARE(form.editor->text(), QStringLiteral("10.168.1."));
    QCOMPARE(form.focusedOctet(), 2);
    commit(QStringLiteral("10.0.0"));
    QCOMPARE(form.editor->text(), QStringLiteral("10.168.1."));
    commit(QStringLiteral("10.0.0.1"));
    QCOMPARE(form.editor->text(), QStringLiteral("10.0.0.1"));
}

void tst_IPLineEdit::leadingZerosGoWhenAnOctetIsLeft()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setIPFocus();
    const QSignalSpy changed(form.editor, &IPLineEdit::textChanged);
    form.type(QStringLiteral("00"));
    QCOMPARE(form.editor->text(), QStringLiteral("00..."));
    form.type(QStringLiteral("7"));
    QCOMPARE(form.editor->text(), QStringLiteral("7..."));
    QCOMPARE(changed.count(), 3); // 0, 00, 7
    form.type(QStringLiteral("00"));
    form.after->setFocus();
    QCOMPARE(form.editor->text(), QStringLiteral("7.0.."));
}

void tst_IPLineEdit::returnTidiesAndFinishes()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setIPFocus();
    form.type(QStringLiteral("01"));
    const QSignalSpy finished(form.editor, &IPLineEdit::editingFinished);
    form.key(Qt::Key_Return);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(form.editor->text(), QStringLiteral("1..."));
}

void tst_IPLineEdit::leavingTheOctetsFinishes()
{
    Form form;
    QVERIFY(form.isReady);
    const QSignalSpy finished(form.editor, &IPLineEdit::editingFinished);
    form.editor->setIPFocus();
    form.octets().at(2)->setFocus();
    QCOMPARE(finished.count(), 0);
    form.after->setFocus();
    QCOMPARE(finished.count(), 1);
}

void tst_IPLineEdit::theFocusIsAProperty()
{
    Form form;
    QVERIFY(form.isReady);
    QCOMPARE(form.editor->property("focused"), QVariant(false));
    const QList<QLineEdit *> octets = form.octets();
    QCOMPARE(octets.size(), 4);
    for (QLineEdit *octet : octets) {
        octet->setFocus();
        QCOMPARE(form.editor->property("focused"), QVariant(true));
    }
    form.after->setFocus();
    QCOMPARE(form.editor->property("focused"), QVariant(false));
}

void tst_IPLineEdit::aStyleSheetSelectsOnTheFocus()
{
    Form form;
    QVERIFY(form.isReady);
    form.window.setStyleSheet(
        QStringLiteral("Ovo--Widgets--IPLineEdit { background: #102030; border: 2px solid #304050; }"
                       "QLineEdit { background: white; border: 5px solid white; padding: 9px; }"
                       "Ovo--Widgets--IPLineEdit[focused=\"true\"] { border-color: #ff0000; }"));
    const auto border = [&form] { return form.editor->grab().toImage().pixelColor(1, 1); };
    QCOMPARE(border(), QColor(0x30, 0x40, 0x50));
    QCOMPARE(form.editor->grab().toImage().pixelColor(4, form.editor->height() / 2),
             QColor(0x10, 0x20, 0x30));
    form.editor->setIPFocus();
    QCOMPARE(border(), QColor(Qt::red));
    form.after->setFocus();
    QCOMPARE(border(), QColor(0x30, 0x40, 0x50));
}

void tst_IPLineEdit::theFocusIsSeenWithoutAStyleSheet()
{
    Form form;
    QVERIFY(form.isReady);
    const auto edge = [&form] { return form.editor->grab().toImage().copy(0, 0, form.editor->width(), 2); };
    const QImage unfocused = edge();
    form.octets().at(1)->setFocus();
    QVERIFY(edge() != unfocused);
    form.after->setFocus();
    QCOMPARE(edge(), unfocused);
}

void tst_IPLineEdit::tabVisitsEveryOctet()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(QStringLiteral("192.168.1.13"));
    const QList<QLineEdit *> octets = form.octets();
    QCOMPARE(octets.size(), 4);
    for (QLineEdit *octet : octets) {
        form.key(Qt::Key_Tab);
        QVERIFY(octet->hasFocus());
        QCOMPARE(octet->selectedText(), octet->text());
    }
    form.key(Qt::Key_Tab);
    QVERIFY(form.after->hasFocus());
}

void tst_IPLineEdit::pressesOnDotsAndEdgesGoToTheNearestOctet_data()
{
    QTest::addColumn<int>("item"); // of the layout, -1 the left edge, 7 the right one
    QTest::addColumn<QVector<int>>("octets");
    QTest::newRow("left edge") << -1 << QVector<int>{0};
    QTest::newRow("first dot") << 1 << QVector<int>{0, 1};
    QTest::newRow("last dot") << 5 << QVector<int>{2, 3};
    QTest::newRow("right edge") << 7 << QVector<int>{3};
}

void tst_IPLineEdit::pressesOnDotsAndEdgesGoToTheNearestOctet()
{
    QFETCH(int, item);
    QFETCH(QVector<int>, octets);
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(QStringLiteral("192.168.1.13"));
    QPoint position(item < 0 ? 0 : form.editor->width() - 1, form.editor->height() / 2);
    if (item >= 0 && item < 7)
        position = form.editor->layout()->itemAt(item)->geometry().center();
    QTest::mouseClick(form.window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      form.editor->mapTo(&form.window, position));
    QVERIFY(octets.contains(form.focusedOctet()));
    QVERIFY(form.octets().at(form.focusedOctet())->hasSelectedText());
}

void tst_IPLineEdit::aFingerReachesEveryOctet_data()
{
    QTest::addColumn<int>("octet");
    for (int octet = 0; octet < 4; ++octet)
        QTest::newRow(qPrintable(QString::number(octet))) << octet;
}

void tst_IPLineEdit::aFingerReachesEveryOctet()
{
    QFETCH(int, octet);
    static QTouchDevice *const screen = QTest::createTouchDevice();
    Form form;
    QVERIFY(form.isReady);
    const QLineEdit *target = form.octets().at(octet);
    QVERIFY(target->height() >= form.editor->height() - 6);
    QVERIFY(target->width() >= form.editor->width() / 5);

    const QPoint position = target->mapTo(&form.window, target->rect().center());
    QTest::touchEvent(&form.window, screen).press(0, position, &form.window);
    QTest::touchEvent(&form.window, screen).release(0, position, &form.window);
    QCOMPARE(form.focusedOctet(), octet);
}

void tst_IPLineEdit::disabledItTakesNoInput()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setText(QStringLiteral("192.168.1.13"));
    form.editor->setIPFocus();
    form.editor->setEnabled(false);
    QCOMPARE(form.editor->property("focused"), QVariant(false));
    const QList<QLineEdit *> octets = form.octets();
    QCOMPARE(octets.size(), 4);
    for (const QLineEdit *octet : octets)
        QVERIFY(!octet->isEnabled());
    QTest::mouseClick(form.window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      form.editor->geometry().center());
    QCOMPARE(form.focusedOctet(), -1);
    form.editor->setText(QStringLiteral("10.0.0.1"));
    QCOMPARE(form.editor->text(), QStringLiteral("10.0.0.1"));
}

void tst_IPLineEdit::itFitsItsHeights_data()
{
    QTest::addColumn<int>("height");
    for (const int height : {24, 30, 40})
        QTest::newRow(qPrintable(QString::number(height))) << height;
}

void tst_IPLineEdit::itFitsItsHeights()
{
    QFETCH(int, height);
    IPLineEdit editor;
    editor.setText(QStringLiteral("255.255.255.255"));
    QVERIFY(editor.minimumSizeHint().height() <= 30);
    editor.resize(editor.minimumSizeHint().width(), height);
    editor.show();
    const QList<QLineEdit *> octets = editor.findChildren<QLineEdit *>();
    QCOMPARE(octets.size(), 4);
    for (const QLineEdit *octet : octets) {
        QVERIFY(editor.contentsRect().contains(octet->geometry()));
        QVERIFY(octet->width() >= octet->fontMetrics().boundingRect(octet->text()).width() + 4);
        QVERIFY(octet->height() >= octet->fontMetrics().ascent());
    }
}

void tst_IPLineEdit::itReadsFromTheLeftInEveryLanguage()
{
    QWidget parent;
    parent.setLayoutDirection(Qt::RightToLeft);
    IPLineEdit editor(&parent);
    editor.resize(200, 30);
    parent.show();
    const QList<QLineEdit *> octets = editor.findChildren<QLineEdit *>();
    QCOMPARE(octets.size(), 4);
    QVERIFY(octets.first()->x() < octets.last()->x());
}

void tst_IPLineEdit::itCanBeDeletedWhileFocused()
{
    Form form;
    QVERIFY(form.isReady);
    form.editor->setIPFocus();
    form.type(QStringLiteral("007"));
    const QSignalSpy finished(form.editor, &IPLineEdit::editingFinished);
    delete form.editor;
    QCOMPARE(finished.count(), 0);

    auto window = std::make_unique<IPLineEdit>();
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    window->setIPFocus();
    window.reset();
}

QTEST_MAIN(tst_IPLineEdit)

#include "tst_iplineedit.moc"
