// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <scenarioline.h>

#include <QTest>

#include <cstring>

using namespace K7Host;

/// The format of scenarios and traces, line by line.
class tst_ScenarioLine : public QObject
{
    Q_OBJECT

private slots:
    void aLineIsWrittenAsItWasRead_data();
    void aLineIsWrittenAsItWasRead();
    void whatIsLeftOutIsZero();
    void addressesAreTextsOrNumbers();
    void anOledTextThatIsNoTextIsWrittenAsBytes_data();
    void anOledTextThatIsNoTextIsWrittenAsBytes();
    void oledTextsOfFullLengthAreTaken();
    void theHighestValuesFit();
    void aNullRecordIsNull();
    void aPictureHasANameUnlessItGetsOne();
    void timesHaveMicroseconds();
    void aWrongLineHasAReason_data();
    void aWrongLineHasAReason();
};

namespace {

ScenarioLine read(const QByteArray &json)
{
    QString error;
    const auto line = scenarioLineFromJson(json, &error);
    if (!line)
        qWarning("%s: %s", json.constData(), qPrintable(error));
    return line.value_or(ScenarioLine());
}

template <typename Record>
std::shared_ptr<Record> recordOf(const QByteArray &json)
{
    const ScenarioLine line = read(json);
    return std::get<std::shared_ptr<Record>>(std::get<CallLine>(line.content).call);
}

QByteArray traced(const HostCall &call)
{
    return toJson({{}, {}, CallLine{call, {}, {}}});
}

} // namespace

void tst_ScenarioLine::aLineIsWrittenAsItWasRead_data()
{
    QTest::addColumn<QByteArray>("json");
    const auto add = [](const char *json) { QTest::newRow(json) << QByteArray(json); };
    add(R"({"op":"updateECButtonColor","half":"left","record":{"ButtonKey":58,"ECKey":1,"ButtonState":2,"R":255,"G":3,"B":4,"brightness":5}})");
    add(R"({"op":"updateECOledText","half":"right","record":{"OledKey":12,"ECKey":0,"OledText":"CAM 1"}})");
    add(R"({"op":"updateECOledText","record":{"OledKey":12,"ECKey":0,"OledText":""}})");
    add(R"({"op":"updateTBarValue","record":{"Value":1200,"IsBottomToTop":1}})");
    add(R"({"op":"updateECDeviceIP","record":{"Index":1,"Status":1,"IP":"192.168.1.13","Mask":"255.255.255.0","Gateway":"0.0.0.0"}})");
    add(R"({"op":"updateDVISignalStatus","record":{"Index":1,"Signal":1}})");
    add(R"({"op":"updatePeripheralVisibleState","record":{"visible":1}})");
    add(R"({"op":"updateKeyboard"})");
    add(R"({"op":"updateKeyboard","half":"right"})");
    add(R"({"op":"applyNoramlStyleSheet","half":"left"})");
    add(R"({"t":12.5,"dir":"in","op":"updateKeyboard","half":"right","result":false})");
    add(R"({"dir":"in","op":"applyNoramlStyleSheet","half":"left"})");
    add(R"({"op":"press","key":58})");
    add(R"({"op":"press","key":0,"finger":0})");
    add(R"({"op":"release","key":"PRESET_05","finger":2})");
    add(R"({"op":"click","key":"PRESET_05"})");
    add(R"({"op":"click","widget":"pushButton_apply"})");
    add(R"({"op":"press","widget":"Frame/slider","at":[12,-3],"double":true})");
    add(R"({"op":"move","key":58,"finger":1,"at":[0,500]})");
    add(R"({"op":"wheel","widget":"hours","at":[3,4],"delta":[0,-120]})");
    add(R"({"op":"type","widget":"lineEdit_IP","text":"192."})");
    add(R"({"op":"type","keys":"Ctrl+A"})");
    add(R"({"op":"type","keys":"Backspace"})");
    add(R"({"op":"set","widget":"lineEdit_IP","value":"192.168.1.13"})");
    add(R"({"op":"set","widget":"spin","value":12})");
    add(R"({"op":"set","widget":"switch","value":false})");
    add(R"({"op":"answer","button":"Yes"})");
    add(R"({"op":"wait","ms":250})");
    add(R"({"op":"waitFor","signal":"signalIPModeChanged","ms":5000})");
    add(R"({"op":"screenshot","file":"name.png"})");
    add(R"({"t":12.5,"dir":"out","signal":"ecButtonPressed","args":[16711738]})");
    add(R"({"dir":"out","signal":"signalSetPeripheralDataChange","args":[1,-1,[1920,1080]]})");
    add(R"({"t":12.7,"dir":"out","message":{"title":"Remind","text":"Ende \u2014 \"gut\"","informative":""}})");
    add(R"({"t":3,"gap":17})");
}

void tst_ScenarioLine::aLineIsWrittenAsItWasRead()
{
    QFETCH(QByteArray, json);
    QString error;
    const auto line = scenarioLineFromJson(json, &error);
    QVERIFY2(line, qPrintable(error));
    QCOMPARE(toJson(*line), json.replace("\\u2014", "\u2014"));
}

void tst_ScenarioLine::whatIsLeftOutIsZero()
{
    const auto color =
        recordOf<Korvo::ECButtonColor>(R"({"op":"updateECButtonColor","record":{"ButtonKey":58,"R":255}})");
    QCOMPARE(color->ButtonKey, 58U);
    QCOMPARE(color->ECKey, quint16(0));
    QCOMPARE(color->ButtonState, quint8(0));
    QCOMPARE(color->R, quint8(255));
    QCOMPARE(color->G, quint8(0));
    QCOMPARE(color->B, quint8(0));
    QCOMPARE(color->brightness, quint8(0));
    const auto line = read(R"({"op":"updateECButtonColor","record":{}})");
    QVERIFY(!std::get<CallLine>(line.content).half);
}

void tst_ScenarioLine::addressesAreTextsOrNumbers()
{
    const auto ip = recordOf<Korvo::ECDeviceIPData>(
        R"({"op":"updateECDeviceIP","record":{"IP":"192.168.1.13","Mask":4294967295,"Gateway":1}})");
    QCOMPARE(ip->IP, 0x0d01a8c0U);
    QCOMPARE(ip->Mask, 0xffffffffU);
    QCOMPARE(ip->Gateway, 1U);
    QCOMPARE(traced(ip), QByteArray(R"({"op":"updateECDeviceIP","record":{"Index":0,"Status":0,)"
                                    R"("IP":"192.168.1.13","Mask":"255.255.255.255","Gateway":"1.0.0.0"}})"));
}

void tst_ScenarioLine::anOledTextThatIsNoTextIsWrittenAsBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("expectedText");
    QTest::newRow("no UTF-8") << QByteArray("A\xff") << QByteArray("[65,255]");
    QTest::newRow("half a character") << QByteArray("\xe4\xb8") << QByteArray("[228,184]");
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf") << QByteArray("[239,187,191]");
    QTest::newRow("what cannot be decoded, encoded")
        << QByteArray("\xef\xbf\xbd") << QByteArray("\"\xef\xbf\xbd\"");
    QTest::newRow("control characters") << QByteArray("\x01\n") << QByteArray("\"\\u0001\\n\"");
    QTest::newRow("beyond the zero byte") << QByteArray("A\0B", 3) << QByteArray("\"A\"");
}

void tst_ScenarioLine::anOledTextThatIsNoTextIsWrittenAsBytes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, expectedText);
    auto text = std::make_shared<Korvo::ECOLEDText>();
    std::memcpy(text->OledText, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    const QByteArray json = traced(text);
    QCOMPARE(json,
             R"({"op":"updateECOledText","record":{"OledKey":0,"ECKey":0,"OledText":)" + expectedText + "}}");
    const auto back = recordOf<Korvo::ECOLEDText>(json);
    QCOMPARE(QByteArray(back->OledText), QByteArray(text->OledText));
}

void tst_ScenarioLine::oledTextsOfFullLengthAreTaken()
{
    const QByteArray full(32, 'x');
    const auto text =
        recordOf<Korvo::ECOLEDText>(R"({"op":"updateECOledText","record":{"OledText":")" + full + "\"}}");
    QCOMPARE(QByteArray(text->OledText, sizeof text->OledText), full);
    QVERIFY(traced(text).contains(full));
}

void tst_ScenarioLine::theHighestValuesFit()
{
    const auto color = recordOf<Korvo::ECButtonColor>(
        R"({"op":"updateECButtonColor","record":{"ButtonKey":4294967295,"ECKey":65535,"ButtonState":255}})");
    QCOMPARE(color->ButtonKey, 0xffffffffU);
    QCOMPARE(color->ECKey, quint16(0xffff));
    QCOMPARE(color->ButtonState, quint8(0xff));
    QVERIFY(traced(color).contains(R"("ButtonKey":4294967295,"ECKey":65535)"));
}

void tst_ScenarioLine::aNullRecordIsNull()
{
    const QByteArray json = R"({"op":"updateTBarValue","record":null})";
    QVERIFY(!recordOf<Korvo::ECTBarValue>(json));
    QCOMPARE(traced(std::shared_ptr<Korvo::ECTBarValue>()), json);
}

void tst_ScenarioLine::aPictureHasANameUnlessItGetsOne()
{
    QCOMPARE(toJson(read(R"({"op":"screenshot"})")),
             QByteArray(R"({"op":"screenshot","file":"console.png"})"));
}

void tst_ScenarioLine::timesHaveMicroseconds()
{
    QCOMPARE(toJson({1234.56789, {}, GapLine{1}}), QByteArray(R"({"t":1234.568,"gap":1})"));
    QCOMPARE(toJson({0.0, {}, GapLine{1}}), QByteArray(R"({"t":0,"gap":1})"));
}

void tst_ScenarioLine::aWrongLineHasAReason_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("expectedPart");
    const auto add = [](const char *json, const char *part) {
        QTest::newRow(json) << QByteArray(json) << QString::fromUtf8(part);
    };
    add(R"({"op":"press","key":58)", "no JSON");
    add("{\"op\":\"press\",\"key\":\"\xff\"}", "no JSON");
    add(R"(["op"])", "no JSON object");
    add(R"({})", "\"op\" is missing");
    add(R"({"key":58})", "\"op\" is missing");
    add(R"({"op":""})", "\"op\" is to be a text");
    add(R"({"op":3})", "\"op\" is to be a text");
    add(R"({"op":"jump"})", "no operation \"jump\"");
    add(R"({"op":"updateECButtonColor"})", "\"record\" is missing");
    add(R"({"op":"updateECButtonColor","record":3})", "\"record\" is to be an object");
    add(R"({"op":"updateECButtonColor","record":{"Key":3}})", "unknown field \"Key\"");
    add(R"({"op":"updateECButtonColor","record":{"R":256}})", "\"R\" is to be a whole number from 0 to 255");
    add(R"({"op":"updateECButtonColor","record":{"R":-1}})", "\"R\" is to be");
    add(R"({"op":"updateECButtonColor","record":{"R":1.5}})", "\"R\" is to be");
    add(R"({"op":"updateECButtonColor","record":{"R":"red"}})", "\"R\" is to be");
    add(R"({"op":"updateECButtonColor","record":{"R":null}})", "\"R\" is to be");
    add(R"({"op":"updateECButtonColor","record":{"ButtonKey":4294967296}})", "4294967295");
    add(R"({"op":"updateECButtonColor","half":"middle","record":{}})", "\"middle\" is no value of \"half\"");
    add(R"({"op":"updateECButtonColor","record":{},"result":true})", "unknown field \"result\"");
    add(R"({"op":"updateKeyboard","record":{}})", "unknown field \"record\"");
    add(R"({"op":"updateKeyboard","t":3})", "unknown field \"t\"");
    add(R"({"op":"updateECOledText","record":{"OledText":3}})", "\"OledText\" is to be a text");
    add(R"({"op":"updateECOledText","record":{"OledText":"123456789012345678901234567890123"}})", "32 bytes");
    add(R"({"op":"updateECOledText","record":{"OledText":"a\u0000b"}})", "zero byte");
    add(R"({"op":"updateECOledText","record":{"OledText":[65,256]}})", "\"OledText\" is to be");
    add(R"({"op":"updateECDeviceIP","record":{"IP":"192.168.1"}})", "\"192.168.1\" is no address");
    add(R"({"op":"updateECDeviceIP","record":{"IP":-1}})", "\"IP\" is to be");
    add(R"({"op":"updateTBarValue","record":{"IsBottomToTop":true}})", "\"IsBottomToTop\" is to be");
    add(R"({"op":"press"})", "\"key\" or \"widget\" is missing");
    add(R"({"op":"press","key":58,"widget":"x"})", "exclude each other");
    add(R"({"op":"press","key":-1})", "\"key\" is to be");
    add(R"({"op":"press","key":""})", "\"key\" is to be");
    add(R"({"op":"press","widget":""})", "\"widget\" is to be a text");
    add(R"({"op":"press","key":58,"finger":-1})", "\"finger\" is to be");
    add(R"({"op":"press","key":58,"at":[1]})", "\"at\" is to be two numbers");
    add(R"({"op":"press","key":58,"at":[1,2.5]})", "\"at\" is to be");
    add(R"({"op":"press","key":58,"value":1})", "unknown field \"value\"");
    add(R"({"op":"release","key":58,"double":true})", "unknown field \"double\"");
    add(R"({"op":"move","key":58})", "\"at\" is missing");
    add(R"({"op":"wheel","key":58})", "\"delta\" is missing");
    add(R"({"op":"type","widget":"x"})", "\"text\" or \"keys\"");
    add(R"({"op":"type","text":"a","keys":"B"})", "\"text\" or \"keys\"");
    add(R"({"op":"type","keys":"Shift+Nothing"})", "\"Shift+Nothing\" is no key");
    add(R"({"op":"type","keys":"A, B"})", "is no key");
    add(R"({"op":"set","widget":"x"})", "\"value\" is missing");
    add(R"({"op":"set","widget":"x","value":[1]})", "\"value\" is to be");
    add(R"({"op":"answer"})", "\"button\" is missing");
    add(R"({"op":"answer","button":"Perhaps"})", "\"Perhaps\" is no button");
    add(R"({"op":"wait"})", "\"ms\" is missing");
    add(R"({"op":"wait","ms":-1})", "\"ms\" is to be");
    add(R"({"op":"wait","ms":86400001})", "\"ms\" is to be");
    add(R"({"op":"waitFor","signal":"destroyed","ms":1})", "\"destroyed\" is no signal");
    add(R"({"op":"waitFor","signal":"initStyleSheet","ms":1})", "no signal of the plug-in");
    add(R"({"op":"waitFor","signal":"ecButtonPressed"})", "\"ms\" is missing");
    add(R"({"op":"screenshot","file":""})", "\"file\" is to be a text");
    add(R"({"op":"screenshot","file":"../x.png"})", ".png file without folder");
    add(R"({"op":"screenshot","file":"x.exe"})", ".png file");
    add(R"({"signal":"ecButtonPressed","args":[]})", "\"dir\":\"out\"");
    add(R"({"dir":"in","signal":"ecButtonPressed","args":[]})", "\"dir\":\"out\"");
    add(R"({"dir":"out","signal":"ecButtonPressed"})", "\"args\" is missing");
    add(R"({"dir":"out","signal":"nobody","args":[]})", "\"nobody\" is no signal");
    add(R"({"dir":"out","message":{"title":"a","text":"b"}})", "\"informative\" is missing");
    add(R"({"dir":"out","message":{"title":"a","text":5,"informative":""}})", "\"text\" is to be a text");
    add(R"({"dir":"out","message":{"title":"","text":"","informative":"","x":1}})", "unknown field \"x\"");
    add(R"({"dir":"in","t":1e300,"op":"updateKeyboard"})", "\"t\" is to be");
    add(R"({"op":"screenshot","file":"a\u0000.png"})", ".png file without folder");
    add(R"({"dir":"out","message":"Remind"})", "\"message\" is to be an object");
    add(R"({"dir":"out","op":"updateKeyboard"})", "an operation goes in");
    add(R"({"dir":"up","op":"updateKeyboard"})", "no value of \"dir\"");
    add(R"({"dir":"in","t":-1,"op":"updateKeyboard"})", "\"t\" is to be");
    add(R"({"dir":"in","t":"soon","op":"updateKeyboard"})", "\"t\" is to be");
    add(R"({"gap":0})", "\"gap\" is to be");
}

void tst_ScenarioLine::aWrongLineHasAReason()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, expectedPart);
    QString error;
    QVERIFY(!scenarioLineFromJson(json, &error));
    QVERIFY2(error.contains(expectedPart), qPrintable(error));
    QVERIFY(!error.contains(QLatin1Char('\n')));
}

QTEST_GUILESS_MAIN(tst_ScenarioLine)

#include "tst_scenarioline.moc"
