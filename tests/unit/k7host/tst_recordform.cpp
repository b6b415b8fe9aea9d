// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <recordform.h>

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace K7Host;

class tst_RecordForm : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyOperationCanBeChosen();
    void eachFieldHasItsRange_data();
    void eachFieldHasItsRange();
    void theLineShowsWhatTheFieldsHold_data();
    void theLineShowsWhatTheFieldsHold();
    void anEnteredLineFillsTheForm_data();
    void anEnteredLineFillsTheForm();
    void aWrongLineShowsTheReason_data();
    void aWrongLineShowsTheReason();
    void aWrongLineIsForgottenWhenAFieldChanges();
    void moreTextThanARecordHoldsIsRefused();
    void halfAnAddressIsNotSent();
    void sendingGivesTheRecordAway();
    void enterSends_data();
    void enterSends();
    void bytesThatAreNoTextSurvive();
    void aNullRecordIsSentAsSuch();
    void aColorIsChosenInADialog();
    void onlyColorsHaveAColorButton();
    void aKeyIsPutIntoTheFormAtHand_data();
    void aKeyIsPutIntoTheFormAtHand();
    void aLineOfTheTrafficFillsTheForm();

private:
    template <typename Widget>
    Widget *child(const char *name) const;
    void choose(const char *operation) const;
    void enterLine(const QString &json) const;
    QString shownLine() const;

    QScopedPointer<RecordForm> m_form;
    QVector<CallLine> m_sent;
};

namespace {

QString text(const char *string)
{
    return QString::fromUtf8(string);
}

} // namespace

void tst_RecordForm::init()
{
    m_sent.clear();
    m_form.reset(new RecordForm);
    connect(m_form.data(), &RecordForm::callRequested, this,
            [this](const HostCall &call, std::optional<Half> half) {
                m_sent.append({call, half, {}});
            });
    m_form->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_form.data()));
}

void tst_RecordForm::cleanup()
{
    m_form.reset();
}

template <typename Widget>
Widget *tst_RecordForm::child(const char *name) const
{
    auto *widget = m_form->findChild<Widget *>(text(name));
    if (!widget)
        qFatal("There is no %s", name);
    return widget;
}

void tst_RecordForm::choose(const char *operation) const
{
    child<QComboBox>("operationBox")->setCurrentText(text(operation));
}

void tst_RecordForm::enterLine(const QString &json) const
{
    child<QPlainTextEdit>("jsonEdit")->setPlainText(json);
}

QString tst_RecordForm::shownLine() const
{
    return child<QPlainTextEdit>("jsonEdit")->toPlainText();
}

void tst_RecordForm::everyOperationCanBeChosen()
{
    const QStringList operations = operationNames();
    QCOMPARE(operations.size(), 8);
    QCOMPARE(child<QComboBox>("operationBox")->count(), operations.size());
    for (const QString &operation : operations) {
        choose(qPrintable(operation));
        QVERIFY2(shownLine().startsWith(QStringLiteral("{\"op\":\"%1\"").arg(operation)),
                 qPrintable(shownLine()));
        QTest::mouseClick(child<QPushButton>("sendButton"), Qt::LeftButton);
        QCOMPARE(operationName(m_sent.last().call), operation);
    }
    QCOMPARE(m_sent.size(), operations.size());
}

void tst_RecordForm::eachFieldHasItsRange_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("field");
    QTest::addColumn<double>("highest");

    QTest::newRow("32 bits") << text("updateECButtonColor") << text("ButtonKey") << 4294967295.0;
    QTest::newRow("16 bits") << text("updateECButtonColor") << text("ECKey") << 65535.0;
    QTest::newRow("8 bits") << text("updateECButtonColor") << text("brightness") << 255.0;
    QTest::newRow("lever") << text("updateTBarValue") << text("Value") << 4294967295.0;
}

void tst_RecordForm::eachFieldHasItsRange()
{
    QFETCH(QString, operation);
    QFETCH(QString, field);
    QFETCH(double, highest);
    choose(qPrintable(operation));
    auto *editor = child<QDoubleSpinBox>(qPrintable(field));
    QCOMPARE(editor->minimum(), 0.0);
    QCOMPARE(editor->maximum(), highest);
    editor->setFocus();
    editor->selectAll();
    QTest::keyClicks(editor, QString::number(highest, 'f', 0));
    const QString expected = QStringLiteral("\"%1\":%2").arg(field, QString::number(highest, 'f', 0));
    QVERIFY2(shownLine().contains(expected), qPrintable(shownLine()));
}

void tst_RecordForm::theLineShowsWhatTheFieldsHold_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("half");
    QTest::addColumn<QString>("expectedLine");

    QTest::newRow("number") << text("updateTBarValue") << text("Value") << text("600") << 0
                            << text("{\"op\":\"updateTBarValue\",\"record\":{\"Value\":600,"
                                    "\"IsBottomToTop\":0}}");
    QTest::newRow("text") << text("updateECOledText") << text("OledText") << text("CAM 1") << 1
                          << text("{\"op\":\"updateECOledText\",\"half\":\"left\",\"record\":{"
                                  "\"OledKey\":0,\"ECKey\":0,\"OledText\":\"CAM 1\"}}");
    QTest::newRow("address") << text("updateECDeviceIP") << text("Mask") << text("255.255.0.0") << 2
                             << text("{\"op\":\"updateECDeviceIP\",\"half\":\"right\",\"record\":{"
                                     "\"Index\":0,\"Status\":0,\"IP\":\"0.0.0.0\","
                                     "\"Mask\":\"255.255.0.0\",\"Gateway\":\"0.0.0.0\"}}");
}

void tst_RecordForm::theLineShowsWhatTheFieldsHold()
{
    QFETCH(QString, operation);
    QFETCH(QString, field);
    QFETCH(QString, typed);
    QFETCH(int, half);
    QFETCH(QString, expectedLine);
    choose(qPrintable(operation));
    child<QComboBox>("halfBox")->setCurrentIndex(half);
    auto *editor = child<QWidget>(qPrintable(field));
    editor->setFocus();
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, typed);
    QCOMPARE(shownLine(), expectedLine);
}

void tst_RecordForm::anEnteredLineFillsTheForm_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("expectedHalf");

    QTest::newRow("scenario") << text(
                                     "{\"op\":\"updateECButtonColor\",\"record\":{\"ButtonKey\":58,\"G\":7}}")
                              << text("ButtonKey") << text("58") << text("both");
    QTest::newRow("another operation, a half")
        << text("{\"op\":\"updateECDeviceIP\",\"half\":\"right\",\"record\":{\"IP\":\"10.0.0.1\"}}")
        << text("IP") << text("10.0.0.1") << text("right");
    QTest::newRow("trace") << text("{\"t\":1.5,\"dir\":\"in\",\"op\":\"updateECOledText\",\"half\":\"left\","
                                   "\"record\":{\"OledText\":\"CAM\"},\"result\":true}")
                           << text("OledText") << text("CAM") << text("left");
}

void tst_RecordForm::anEnteredLineFillsTheForm()
{
    QFETCH(QString, line);
    QFETCH(QString, field);
    QFETCH(QString, expected);
    QFETCH(QString, expectedHalf);
    enterLine(line);
    QCOMPARE(shownLine(), line);
    QCOMPARE(child<QWidget>(qPrintable(field))->property("text").toString(), expected);
    QCOMPARE(child<QComboBox>("halfBox")->currentText(), expectedHalf);
    QVERIFY(line.contains(child<QComboBox>("operationBox")->currentText()));
    QCOMPARE(child<QLabel>("faultLabel")->text(), QString());

    QTest::mouseClick(child<QPushButton>("sendButton"), Qt::LeftButton);
    QCOMPARE(m_sent.size(), 1);
    QCOMPARE(m_sent.first().half ? halfName(*m_sent.first().half) : text("both"), expectedHalf);
}

void tst_RecordForm::aWrongLineShowsTheReason_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("reason");

    QTest::newRow("no JSON") << text("{") << text("no JSON");
    QTest::newRow("empty") << QString() << text("no JSON");
    QTest::newRow("no operation") << text("{\"op\":\"polish\"}") << text("no operation \"polish\"");
    QTest::newRow("out of range") << text("{\"op\":\"updateECButtonColor\",\"record\":{\"R\":256}}")
                                  << text("\"R\" is to be a whole number from 0 to 255");
    QTest::newRow("no record") << text("{\"op\":\"wait\",\"ms\":5}") << text("no record");
}

void tst_RecordForm::aWrongLineShowsTheReason()
{
    QFETCH(QString, line);
    QFETCH(QString, reason);
    enterLine(line);
    const QString shown = child<QLabel>("faultLabel")->text();
    QVERIFY2(shown.contains(reason), qPrintable(shown));
    QVERIFY(!child<QPushButton>("sendButton")->isEnabled());
    QTest::keyClick(child<QPlainTextEdit>("jsonEdit"), Qt::Key_Return);
    QCOMPARE(m_sent.size(), 0);
    QCOMPARE(shownLine(), line);
}

void tst_RecordForm::aWrongLineIsForgottenWhenAFieldChanges()
{
    enterLine(text("{"));
    child<QDoubleSpinBox>("ButtonKey")->setValue(4);
    QVERIFY(shownLine().contains(text("\"ButtonKey\":4,")));
    QCOMPARE(child<QLabel>("faultLabel")->text(), QString());
    QVERIFY(child<QPushButton>("sendButton")->isEnabled());
}

void tst_RecordForm::moreTextThanARecordHoldsIsRefused()
{
    choose("updateECOledText");
    auto *editor = child<QLineEdit>("OledText");
    QTest::keyClicks(editor, QString(40, QLatin1Char('x')));
    QCOMPARE(editor->text(), QString(32, QLatin1Char('x')));
    // Bytes count, not letters.
    editor->clear();
    QTest::keyClicks(editor, QString(31, QLatin1Char('x')));
    QTest::sendKeyEvent(QTest::Click, editor, Qt::Key_unknown, text("\u00e4"), Qt::NoModifier);
    QCOMPARE(editor->text().size(), 31);
    QTest::keyClick(editor, Qt::Key_Backspace);
    QTest::sendKeyEvent(QTest::Click, editor, Qt::Key_unknown, text("\u00e4"), Qt::NoModifier);
    QCOMPARE(editor->text().size(), 31);
    QVERIFY(editor->text().endsWith(text("\u00e4")));
}

void tst_RecordForm::halfAnAddressIsNotSent()
{
    choose("updateECDeviceIP");
    auto *editor = child<QLineEdit>("Gateway");
    editor->selectAll();
    QTest::keyClicks(editor, text("10.x0.0"));
    QCOMPARE(editor->text(), text("10.0.0"));
    QCOMPARE(child<QLabel>("faultLabel")->text(), text("\"Gateway\" is to be four numbers from 0 to 255"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(m_sent.size(), 0);
    QTest::keyClicks(editor, text(".138"));
    QCOMPARE(child<QLabel>("faultLabel")->text(), QString());
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(m_sent.size(), 1);
    const auto record = std::get<std::shared_ptr<Korvo::ECDeviceIPData>>(m_sent.first().call);
    QCOMPARE(record->Gateway, 0x8a00000aU);
}

void tst_RecordForm::sendingGivesTheRecordAway()
{
    auto *key = child<QDoubleSpinBox>("ButtonKey");
    key->setValue(1);
    QTest::mouseClick(child<QPushButton>("sendButton"), Qt::LeftButton);
    key->setValue(2);
    QTest::mouseClick(child<QPushButton>("sendButton"), Qt::LeftButton);
    QCOMPARE(m_sent.size(), 2);
    const auto first = std::get<std::shared_ptr<Korvo::ECButtonColor>>(m_sent.at(0).call);
    const auto second = std::get<std::shared_ptr<Korvo::ECButtonColor>>(m_sent.at(1).call);
    QCOMPARE(first->ButtonKey, 1U);
    QCOMPARE(second->ButtonKey, 2U);
}

void tst_RecordForm::enterSends_data()
{
    QTest::addColumn<QString>("widget");

    QTest::newRow("number") << text("ECKey");
    QTest::newRow("text") << text("OledText");
    QTest::newRow("line") << text("jsonEdit");
    QTest::newRow("operation") << text("operationBox");
}

void tst_RecordForm::enterSends()
{
    QFETCH(QString, widget);
    choose("updateECOledText");
    auto *editor = child<QWidget>(qPrintable(widget));
    editor->setFocus();
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(m_sent.size(), 1);
    QTest::keyClick(editor, Qt::Key_Enter);
    QCOMPARE(m_sent.size(), 2);
    QVERIFY(!shownLine().contains(QLatin1Char('\n')));
}

void tst_RecordForm::bytesThatAreNoTextSurvive()
{
    enterLine(text("{\"op\":\"updateECOledText\",\"record\":{\"OledText\":[255,65]}}"));
    child<QDoubleSpinBox>("OledKey")->setValue(3);
    QTest::mouseClick(child<QPushButton>("sendButton"), Qt::LeftButton);
    QCOMPARE(m_sent.size(), 1);
    const auto record = std::get<std::shared_ptr<Korvo::ECOLEDText>>(m_sent.first().call);
    QCOMPARE(QByteArray(record->OledText), QByteArray("\xff\x41"));
    QCOMPARE(record->OledKey, 3U);
}

void tst_RecordForm::aNullRecordIsSentAsSuch()
{
    auto *box = child<QCheckBox>("nullBox");
    child<QDoubleSpinBox>("ButtonKey")->setValue(5);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, {10, box->height() / 2});
    QVERIFY(box->isChecked());
    QVERIFY(!child<QDoubleSpinBox>("ButtonKey")->isEnabled());
    QCOMPARE(shownLine(), text("{\"op\":\"updateECButtonColor\",\"record\":null}"));
    QTest::mouseClick(child<QPushButton>("sendButton"), Qt::LeftButton);
    QCOMPARE(m_sent.size(), 1);
    QVERIFY(!std::get<std::shared_ptr<Korvo::ECButtonColor>>(m_sent.first().call));

    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, {10, box->height() / 2});
    QCOMPARE(child<QDoubleSpinBox>("ButtonKey")->value(), 5.0);
    QVERIFY(child<QDoubleSpinBox>("ButtonKey")->isEnabled());

    enterLine(text("{\"op\":\"updateTBarValue\",\"record\":null}"));
    QVERIFY(box->isChecked());
    choose("updateKeyboard");
    QVERIFY(!box->isEnabled());
    QCOMPARE(shownLine(), text("{\"op\":\"updateKeyboard\"}"));
}

void tst_RecordForm::aColorIsChosenInADialog()
{
    enterLine(text("{\"op\":\"updateECButtonColor\",\"record\":{\"R\":1,\"G\":2,\"B\":3}}"));
    QTest::mouseClick(child<QPushButton>("colorButton"), Qt::LeftButton);
    auto *dialog = m_form->findChild<QColorDialog *>();
    QVERIFY(dialog);
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->currentColor(), QColor(1, 2, 3));
    dialog->setCurrentColor(QColor(10, 20, 30));
    QTest::keyClick(dialog, Qt::Key_Return);
    QTRY_VERIFY(!m_form->findChild<QColorDialog *>());
    QVERIFY2(shownLine().contains(text("\"R\":10,\"G\":20,\"B\":30")), qPrintable(shownLine()));
    const auto *button = child<QPushButton>("colorButton");
    const QImage swatch = button->icon().pixmap(button->iconSize()).toImage();
    QCOMPARE(swatch.pixelColor(swatch.rect().center()), QColor(10, 20, 30));
}

void tst_RecordForm::onlyColorsHaveAColorButton()
{
    const auto *button = child<QPushButton>("colorButton");
    QVERIFY(button->isVisible());
    choose("updateECOledText");
    QVERIFY(!button->isVisible());
    choose("updateECButtonColor");
    QVERIFY(button->isVisible());
}

void tst_RecordForm::aKeyIsPutIntoTheFormAtHand_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("isLabel");
    QTest::addColumn<QString>("expectedPart");

    QTest::newRow("key into a colour")
        << text("{\"op\":\"updateECButtonColor\",\"half\":\"left\",\"record\":{\"R\":9}}") << false
        << text("\"half\":\"left\",\"record\":{\"ButtonKey\":58,\"ECKey\":0,\"ButtonState\":0,\"R\":9");
    QTest::newRow("key into something else") << text("{\"op\":\"updateKeyboard\"}") << false
                                             << text("\"updateECButtonColor\",\"record\":{\"ButtonKey\":58");
    QTest::newRow("key into no record") << text("{\"op\":\"updateECButtonColor\",\"record\":null}") << false
                                        << text("\"record\":{\"ButtonKey\":58");
    QTest::newRow("label into a text")
        << text("{\"op\":\"updateECOledText\",\"record\":{\"OledText\":\"a\"}}") << true
        << text("\"record\":{\"OledKey\":58,\"ECKey\":0,\"OledText\":\"a\"");
    QTest::newRow("label into a colour")
        << text("{\"op\":\"updateECButtonColor\",\"record\":{\"ButtonKey\":1}}") << true
        << text("\"updateECOledText\",\"record\":{\"OledKey\":58");
}

void tst_RecordForm::aKeyIsPutIntoTheFormAtHand()
{
    QFETCH(QString, line);
    QFETCH(bool, isLabel);
    QFETCH(QString, expectedPart);
    enterLine(line);
    if (isLabel)
        m_form->setLabel(58);
    else
        m_form->setKey(58);
    QVERIFY2(shownLine().contains(expectedPart), qPrintable(shownLine()));
}

void tst_RecordForm::aLineOfTheTrafficFillsTheForm()
{
    auto record = std::make_shared<Korvo::DVIInSignal>();
    record->Signal = 3;
    m_form->setLine({1.0, Direction::In, CallLine{record, Half::Right, {}}});
    QCOMPARE(shownLine(), text("{\"op\":\"updateDVISignalStatus\",\"half\":\"right\",\"record\":{\"Index\":0,"
                               "\"Signal\":3}}"));
    child<QDoubleSpinBox>("Signal")->setValue(4);
    QCOMPARE(int(record->Signal), 3);

    m_form->setLine({1.0, Direction::Out, SignalLine{text("ecButtonPressed"), {1}}});
    QVERIFY(shownLine().contains(text("\"Signal\":4")));
}

QTEST_MAIN(tst_RecordForm)

#include "tst_recordform.moc"
