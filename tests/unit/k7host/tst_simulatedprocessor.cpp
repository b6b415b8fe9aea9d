// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <simulatedprocessor.h>

#include <QTest>

using K7Host::DeviceLink;
using K7Host::InputModel;
using K7Host::KeyCodeOffset;
using K7Host::SimulatedProcessor;

class tst_SimulatedProcessor : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void nothingIsSentUnasked();
    void refreshSendsEveryRecord();
    void refreshSendsTheCurrentState();
    void aPressIsAnsweredWithWhatChanged_data();
    void aPressIsAnsweredWithWhatChanged();
    void turningThePageSendsLabelsAndColors();
    void releasesChangeNothing();
    void unknownCodesAreIgnored_data();
    void unknownCodesAreIgnored();
    void recordsCarryNothingElse();

private:
    QScopedPointer<SimulatedProcessor> m_processor;
    QVector<std::shared_ptr<Korvo::ECButtonColor>> m_colors;
    QVector<std::shared_ptr<Korvo::ECOLEDText>> m_texts;
};

namespace {

using Colors = QMap<quint32, QRgb>;

Colors toMap(const QVector<std::shared_ptr<Korvo::ECButtonColor>> &records)
{
    Colors colors;
    for (const auto &record : records)
        colors.insert(record->ButtonKey, qRgb(record->R, record->G, record->B));
    return colors;
}

QMap<quint32, QString> toMap(const QVector<std::shared_ptr<Korvo::ECOLEDText>> &records)
{
    QMap<quint32, QString> texts;
    for (const auto &record : records)
        texts.insert(record->OledKey, QString::fromUtf8(record->OledText));
    return texts;
}

} // namespace

Q_DECLARE_METATYPE(Colors)

void tst_SimulatedProcessor::init()
{
    m_colors.clear();
    m_texts.clear();
    m_processor.reset(new SimulatedProcessor);
    connect(m_processor.data(), &DeviceLink::buttonColorReported, this,
            [this](const std::shared_ptr<Korvo::ECButtonColor> &record) { m_colors << record; });
    connect(m_processor.data(), &DeviceLink::oledTextReported, this,
            [this](const std::shared_ptr<Korvo::ECOLEDText> &record) { m_texts << record; });
}

void tst_SimulatedProcessor::cleanup()
{
    m_processor.reset();
}

void tst_SimulatedProcessor::nothingIsSentUnasked()
{
    QVERIFY(m_colors.isEmpty());
    QVERIFY(m_texts.isEmpty());
}

void tst_SimulatedProcessor::refreshSendsEveryRecord()
{
    for (int i = 0; i < 2; ++i) {
        m_colors.clear();
        m_texts.clear();
        m_processor->refresh();
        QCOMPARE(m_colors.size(), 18);
        QCOMPARE(m_texts.size(), 17);
        QCOMPARE(toMap(m_colors), InputModel().keyColors());
        QCOMPARE(toMap(m_texts), InputModel().labelTexts());
    }
}

void tst_SimulatedProcessor::refreshSendsTheCurrentState()
{
    m_processor->keyPressed(KeyCodeOffset + 38);
    m_processor->keyPressed(KeyCodeOffset + 38);
    m_processor->refresh();
    QCOMPARE(toMap(m_colors).value(38), qRgb(255, 0, 0));
    QCOMPARE(toMap(m_colors).value(36), qRgb(0, 255, 0));
}

void tst_SimulatedProcessor::aPressIsAnsweredWithWhatChanged_data()
{
    QTest::addColumn<quint32>("code");
    QTest::addColumn<Colors>("expectedColors");
    QTest::newRow("an idle input goes on preview")
        << 0xff0026U << Colors{{37, qRgb(0, 0, 0)}, {38, qRgb(0, 255, 0)}};
    QTest::newRow("the input on preview goes on program")
        << 0xff0025U << Colors{{36, qRgb(0, 255, 0)}, {37, qRgb(255, 0, 0)}};
    QTest::newRow("the input on program stays") << 0xff0024U << Colors{};
    QTest::newRow("no page to turn up to") << 0xff0034U << Colors{};
}

void tst_SimulatedProcessor::aPressIsAnsweredWithWhatChanged()
{
    QFETCH(quint32, code);
    QFETCH(Colors, expectedColors);
    m_processor->keyPressed(code);
    QCOMPARE(m_colors.size(), expectedColors.size());
    QCOMPARE(toMap(m_colors), expectedColors);
    QCOMPARE(m_texts.size(), 0);
}

void tst_SimulatedProcessor::turningThePageSendsLabelsAndColors()
{
    m_processor->keyPressed(0xff0035);
    const Colors expectedColors{
        {36, qRgb(0, 0, 0)}, {37, qRgb(0, 0, 0)}, {52, qRgb(0, 0, 255)}, {53, qRgb(0, 0, 0)}};
    QCOMPARE(m_colors.size(), expectedColors.size());
    QCOMPARE(toMap(m_colors), expectedColors);
    QCOMPARE(m_texts.size(), 17);
    QCOMPARE(toMap(m_texts).value(51), QStringLiteral("Page 2/2"));
}

void tst_SimulatedProcessor::releasesChangeNothing()
{
    for (quint32 key = 0; key < 256; ++key)
        m_processor->keyReleased(KeyCodeOffset + key);
    QVERIFY(m_colors.isEmpty());
    QVERIFY(m_texts.isEmpty());
    m_processor->refresh();
    QCOMPARE(toMap(m_colors), InputModel().keyColors());
}

void tst_SimulatedProcessor::unknownCodesAreIgnored_data()
{
    QTest::addColumn<quint32>("code");
    QTest::newRow("0") << 0U;
    QTest::newRow("a key id without the offset") << 38U;
    QTest::newRow("no key") << KeyCodeOffset;
    QTest::newRow("another section") << KeyCodeOffset + 54;
    QTest::newRow("largest") << 0xffffffffU;
}

void tst_SimulatedProcessor::unknownCodesAreIgnored()
{
    QFETCH(quint32, code);
    m_processor->keyPressed(code);
    m_processor->keyReleased(code);
    QVERIFY(m_colors.isEmpty());
    QVERIFY(m_texts.isEmpty());
}

void tst_SimulatedProcessor::recordsCarryNothingElse()
{
    m_processor->refresh();
    QVERIFY(!m_colors.isEmpty());
    for (const auto &record : qAsConst(m_colors)) {
        QCOMPARE(record->ECKey, quint16(0));
        QCOMPARE(record->ButtonState, quint8(0));
        QCOMPARE(record->brightness, quint8(0));
    }
    QVERIFY(!m_texts.isEmpty());
    for (const auto &record : qAsConst(m_texts))
        QCOMPARE(record->OledText[sizeof record->OledText - 1], '\0');
}

QTEST_GUILESS_MAIN(tst_SimulatedProcessor)

#include "tst_simulatedprocessor.moc"
