// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <QTest>

#include <cstring>

using Korvo::IKorvoECKeyboard;
using Korvo::IKorvoECKeyboardPlugin;
using Ovo::ExtensionSystem::IPlugin;

namespace {

// Under the C++ ABI of every platform the console knows, a pointer to a virtual member function is the
// function's offset in the virtual table; which of its two words is marked as "virtual" differs. So the
// numbers come from the compiler itself, as it lays out calls.
template <typename Member>
int slotOf(Member member)
{
    std::ptrdiff_t words[2];
    static_assert(sizeof(member) == sizeof(words), "a plain pointer to member is two words");
    std::memcpy(words, &member, sizeof(words));
#if defined(__aarch64__) || defined(__arm__)
    const std::ptrdiff_t offset = words[0];
#else
    const std::ptrdiff_t offset = words[0] - 1;
#endif
    return int(offset / std::ptrdiff_t(sizeof(void *))) + 1;
}

// The first slot after those of a base class.
template <typename Base>
struct Probe : Base
{
    virtual void firstNewVirtual();
};

} // namespace

class tst_VirtualOrder : public QObject
{
    Q_OBJECT

private slots:
    void slotsAreInTheAgreedOrder_data();
    void slotsAreInTheAgreedOrder();
    void nothingFollowsTheLastVirtual();
};

void tst_VirtualOrder::slotsAreInTheAgreedOrder_data()
{
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("expectedSlot");

    using OneText = bool (IPlugin::*)(const QString &);
    using ThreeTexts = bool (IPlugin::*)(const QString &, const QString &, const QString &);
    QTest::newRow("QObject::metaObject") << slotOf(&QObject::metaObject) << 1;
    QTest::newRow("initialize") << slotOf(&IPlugin::initialize) << 13;
    QTest::newRow("extensionsInitialized") << slotOf(&IPlugin::extensionsInitialized) << 14;
    QTest::newRow("delayedInitialize") << slotOf(&IPlugin::delayedInitialize) << 15;
    QTest::newRow("aboutToShutdown") << slotOf(&IPlugin::aboutToShutdown) << 16;
    QTest::newRow("remoteCommand") << slotOf(&IPlugin::remoteCommand) << 17;
    QTest::newRow("createTestObjects") << slotOf(&IPlugin::createTestObjects) << 18;
    QTest::newRow("installTranslator 1") << slotOf(static_cast<OneText>(&IPlugin::installTranslator)) << 19;
    QTest::newRow("installTranslator 3")
        << slotOf(static_cast<ThreeTexts>(&IPlugin::installTranslator)) << 20;

    using Plugin = IKorvoECKeyboardPlugin;
    QTest::newRow("plug-in displayName") << slotOf(&Plugin::displayName) << 21;
    QTest::newRow("plug-in keyboards") << slotOf(&Plugin::keyboards) << 22;
    QTest::newRow("plug-in initStyleSheet") << slotOf(&Plugin::initStyleSheet) << 23;
    QTest::newRow("plug-in modeId") << slotOf(&Plugin::modeId) << 24;
    QTest::newRow("plug-in updateKeyboard") << slotOf(&Plugin::updateKeyboard) << 25;

    using Half = IKorvoECKeyboard;
    const int first = slotOf(&Probe<QFrame>::firstNewVirtual);
    QTest::newRow("half displayName") << slotOf(&Half::displayName) << first;
    QTest::newRow("half keyboardId") << slotOf(&Half::keyboardId) << first + 1;
    QTest::newRow("half applyNoramlStyleSheet") << slotOf(&Half::applyNoramlStyleSheet) << first + 2;
    QTest::newRow("half updateECButtonColor") << slotOf(&Half::updateECButtonColor) << first + 3;
    QTest::newRow("half updateECOledText") << slotOf(&Half::updateECOledText) << first + 4;
    QTest::newRow("half updateTBarValue") << slotOf(&Half::updateTBarValue) << first + 5;
    QTest::newRow("half updateECDeviceIP") << slotOf(&Half::updateECDeviceIP) << first + 6;
    QTest::newRow("half updateKeyboard") << slotOf(&Half::updateKeyboard) << first + 7;
    QTest::newRow("half updateDVISignalStatus") << slotOf(&Half::updateDVISignalStatus) << first + 8;
    QTest::newRow("half updatePeripheralVisibleState")
        << slotOf(&Half::updatePeripheralVisibleState) << first + 9;
}

void tst_VirtualOrder::slotsAreInTheAgreedOrder()
{
    QFETCH(int, slot);
    QFETCH(int, expectedSlot);
    QCOMPARE(slot, expectedSlot);
}

void tst_VirtualOrder::nothingFollowsTheLastVirtual()
{
    QCOMPARE(slotOf(&Probe<IPlugin>::firstNewVirtual), 21);
    QCOMPARE(slotOf(&Probe<IKorvoECKeyboardPlugin>::firstNewVirtual), 26);
    QCOMPARE(slotOf(&Probe<IKorvoECKeyboard>::firstNewVirtual), slotOf(&Probe<QFrame>::firstNewVirtual) + 10);
}

QTEST_APPLESS_MAIN(tst_VirtualOrder)

#include "tst_virtualorder.moc"
