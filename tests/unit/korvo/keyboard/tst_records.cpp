// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/keyboard/constants.h>
#include <korvo/keyboard/ikorvoeckeyboard.h>
#include <korvo/keyboard/ikorvoeckeyboardplugin.h>
#include <korvo/keyboard/records.h>

#include <QMetaMethod>
#include <QTest>

#include <algorithm>
#include <cstddef>
#include <type_traits>

using namespace Korvo;

class tst_Records : public QObject
{
    Q_OBJECT

private slots:
    void recordsArePlainAndStartAtZero();
    void fieldsAreInTheAgreedOrder();
    void constantsHaveTheirValues();
    void bothInterfacesDeclareTheSameSignals();
};

void tst_Records::recordsArePlainAndStartAtZero()
{
    static_assert(std::is_trivially_copyable<ECButtonColor>::value, "records are copied as they stand");
    static_assert(std::is_trivially_copyable<ECOLEDText>::value, "records are copied as they stand");
    static_assert(std::is_trivially_copyable<ECDeviceIPData>::value, "records are copied as they stand");
    static_assert(std::is_same<decltype(ECTBarValue::Value), quint32>::value, "32 bits");
    static_assert(std::is_same<decltype(ECTBarValue::IsBottomToTop), quint8>::value, "8 bits");
    static_assert(std::is_same<decltype(ECDeviceIPData::Index), quint8>::value, "8 bits");
    static_assert(std::is_same<decltype(ECDeviceIPData::Status), quint8>::value, "8 bits");
    static_assert(std::is_same<decltype(ECDeviceIPData::IP), quint32>::value, "32 bits");
    static_assert(std::is_same<decltype(ECDeviceIPData::Mask), quint32>::value, "32 bits");
    static_assert(std::is_same<decltype(ECDeviceIPData::Gateway), quint32>::value, "32 bits");
    static_assert(std::is_same<decltype(DVIInSignal::Index), quint8>::value, "8 bits");
    static_assert(std::is_same<decltype(DVIInSignal::Signal), quint8>::value, "8 bits");
    static_assert(std::is_same<decltype(PeripheralControlVisibleState::visible), quint8>::value, "8 bits");

    const ECButtonColor color;
    QCOMPARE(color.ButtonKey, 0u);
    QCOMPARE(color.ECKey, quint16(0));
    QCOMPARE(int(color.ButtonState | color.R | color.G | color.B | color.brightness), 0);

    const ECOLEDText text;
    QCOMPARE(text.OledKey, 0u);
    QCOMPARE(sizeof(text.OledText), size_t(32));
    QVERIFY(std::all_of(std::begin(text.OledText), std::end(text.OledText), [](char c) { return c == 0; }));

    const ECTBarValue bar;
    QCOMPARE(bar.Value, 0u);
    QCOMPARE(int(bar.IsBottomToTop), 0);

    const ECDeviceIPData address;
    QCOMPARE(address.IP | address.Mask | address.Gateway, 0u);
    QCOMPARE(int(address.Index | address.Status), 0);

    QCOMPARE(int(DVIInSignal().Index | DVIInSignal().Signal), 0);
    QCOMPARE(int(PeripheralControlVisibleState().visible), 0);
}

void tst_Records::fieldsAreInTheAgreedOrder()
{
    // Braces fill fields in the order of their declaration; a swapped pair would be seen in the values.
    const auto color = [] {
        ECButtonColor record{1, 2, 3, 4, 5, 6, 7};
        return record;
    }();
    QCOMPARE(color.ButtonKey, 1u);
    QCOMPARE(color.ECKey, quint16(2));
    QCOMPARE(int(color.ButtonState), 3);
    QCOMPARE(int(color.R), 4);
    QCOMPARE(int(color.G), 5);
    QCOMPARE(int(color.B), 6);
    QCOMPARE(int(color.brightness), 7);

    QVERIFY(offsetof(ECOLEDText, OledKey) < offsetof(ECOLEDText, ECKey));
    QVERIFY(offsetof(ECOLEDText, ECKey) < offsetof(ECOLEDText, OledText));
    QVERIFY(offsetof(ECTBarValue, Value) < offsetof(ECTBarValue, IsBottomToTop));
    QVERIFY(offsetof(ECDeviceIPData, Index) < offsetof(ECDeviceIPData, Status));
    QVERIFY(offsetof(ECDeviceIPData, Status) < offsetof(ECDeviceIPData, IP));
    QVERIFY(offsetof(ECDeviceIPData, IP) < offsetof(ECDeviceIPData, Mask));
    QVERIFY(offsetof(ECDeviceIPData, Mask) < offsetof(ECDeviceIPData, Gateway));
    QVERIFY(offsetof(DVIInSignal, Index) < offsetof(DVIInSignal, Signal));
    QCOMPARE(int(Restart), 0);
    QCOMPARE(int(Shutdown), 1);
}

void tst_Records::constantsHaveTheirValues()
{
    QCOMPARE(QLatin1String(Constants::PROPERTY_KORVOECKEY), QLatin1String("KorvoECKey"));
    QCOMPARE(Constants::DEFAULTRGBVALUE, QColor(50, 50, 50, 255));
    QCOMPARE(Constants::LAYERDEFAULTCOLOR, QColor(0, 0, 0, 255));
    QCOMPARE(Constants::LABEL_ADJUST_LENGTH, QStringLiteral("qq"));
    QCOMPARE(Constants::EC_KEYBOARD_LEFT_NAME, QStringLiteral("Left keyboard"));
    QCOMPARE(Constants::EC_KEYBOARD_RIGHT_NAME, QStringLiteral("Right keyboard"));
}

static QStringList ownSignals(const QMetaObject &type)
{
    QStringList signatures;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        if (type.method(i).methodType() == QMetaMethod::Signal)
            signatures << QString::fromLatin1(type.method(i).methodSignature());
    }
    signatures.sort();
    return signatures;
}

void tst_Records::bothInterfacesDeclareTheSameSignals()
{
    // The meta-object names the plain types behind quint8, quint16 and quint32.
    const QList<const char *> declared{
        "ecButtonPressed(uint)",
        "ecButtonRelease(uint)",
        "signalKorvoPluginModeChanged()",
        "signalGrooseneckLightStatusChanged(bool,uchar)",
        "signalFrontLightStatusChanged(bool,uchar)",
        "signalSideLightStatusChanged(bool,uchar)",
        "signalLogoLightStatusChanged(bool,uchar)",
        "signalSetPeripheralDataChange(int,int,QVector<quint16>)",
        "signalUpdateSystemTime(QString,QString)",
        "signalUpdateSystemIP(QString,QString,QString,QString)",
        "ecTBarValueChanged(ushort,bool)",
        "signalReqECDeviceIP(uchar)",
        "signalRestartControlEvent(uchar)",
        "signalTimeTypeChanged(int)",
        "signalIPModeChanged(uchar,uchar)",
    };
    QCOMPARE(declared.size(), 15);
    QStringList expected;
    for (const char *signature : declared)
        expected << QString::fromLatin1(signature);
    expected.sort();
    QCOMPARE(ownSignals(IKorvoECKeyboard::staticMetaObject), expected);
    QCOMPARE(ownSignals(IKorvoECKeyboardPlugin::staticMetaObject), expected);
}

QTEST_APPLESS_MAIN(tst_Records)

#include "tst_records.moc"
