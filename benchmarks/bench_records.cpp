// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolepair.h"

#include <korvo/keyboard/records.h>

#include <korvo/widgets/tbar.h>

#include <QAbstractButton>
#include <QSlider>
#include <QTest>

#include <array>
#include <cstring>
#include <functional>
#include <numeric>

namespace {

// Of the last section of the left half: the others are asked for it in vain.
constexpr quint32 Key = 58;
constexpr char KeyName[] = "presetToolButton_5";
constexpr quint32 Label = 67;
constexpr char LabelName[] = "presetLabel_5";
constexpr quint32 EveryKey = 255;
constexpr int WarmUps = 4; // an even number: what alternates is as it was

using Color = std::shared_ptr<Korvo::ECButtonColor>;
using Text = std::shared_ptr<Korvo::ECOLEDText>;
using Lever = std::shared_ptr<Korvo::ECTBarValue>;

std::array<Color, 2> redAndGreen(quint32 key)
{
    std::array<Color, 2> colors;
    for (Color &color : colors) {
        color = std::make_shared<Korvo::ECButtonColor>();
        color->ButtonKey = key;
    }
    colors[0]->R = 255;
    colors[1]->G = 255;
    return colors;
}

Text labelText(const char *text)
{
    auto record = std::make_shared<Korvo::ECOLEDText>();
    record->OledKey = Label;
    std::strncpy(record->OledText, text, sizeof(record->OledText));
    return record;
}

/// \a percent of a lever that travels upwards.
Lever leverAt(quint32 percent)
{
    auto record = std::make_shared<Korvo::ECTBarValue>();
    record->Value = percent * 12;
    record->IsBottomToTop = 1;
    return record;
}

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

int countDifferences(const QStringList &before, const QStringList &after)
{
    return static_cast<int>(std::inner_product(before.cbegin(), before.cend(), after.cbegin(), 0,
                                               std::plus<>(), std::not_equal_to<>()));
}

/// Pictures are loaded, and both states were painted before: what is measured is the same each time.
template <typename Work>
void measure(const Work &work)
{
    for (int i = 0; i < WarmUps; ++i)
        work();
    QBENCHMARK
    {
        work();
    }
}

template <typename Work>
bool paints(QWidget *widget, const Work &work)
{
    const PaintCounter paints(widget);
    work();
    return paints.count > 0;
}

} // namespace

/// What records cost, from the call of a half on; no host is in between.
class bench_Records : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_consoles = std::make_unique<ConsolePair>(); }
    void init();
    void cleanupTestCase() { m_consoles.reset(); }

    void aColorThatChangesNothing_data() { ConsolePair::addRows(); }
    void aColorThatChangesNothing();
    void aColorThatChangesOneKey_data() { ConsolePair::addRows(); }
    void aColorThatChangesOneKey();
    void aColorThatChangesOneKeyPainted_data() { ConsolePair::addRows(); }
    void aColorThatChangesOneKeyPainted();
    void aTextThatChangesNothing_data() { ConsolePair::addRows(); }
    void aTextThatChangesNothing();
    void aShortTextPainted_data() { ConsolePair::addRows(); }
    void aShortTextPainted();
    void aBroadcastThatChangesNothing_data() { ConsolePair::addRows(); }
    void aBroadcastThatChangesNothing();
    void aBroadcastPainted_data() { ConsolePair::addRows(); }
    void aBroadcastPainted();
    void aLeverThatStays_data() { ConsolePair::addRows(); }
    void aLeverThatStays();
    void aLeverThatMovesPainted_data() { ConsolePair::addRows(); }
    void aLeverThatMovesPainted();

private:
    Korvo::IKorvoECKeyboard *half() const { return m_console->left(); }
    QStringList styleSheets() const;
    QWidget *lever() const;

    std::unique_ptr<ConsolePair> m_consoles;
    ShownConsole *m_console = nullptr;
};

void bench_Records::init()
{
    QFETCH(bool, isPlain);
    m_console = m_consoles->console(isPlain);
}

QStringList bench_Records::styleSheets() const
{
    QStringList styleSheets;
    const auto buttons = half()->findChildren<QAbstractButton *>();
    for (const QAbstractButton *button : buttons)
        styleSheets.append(button->styleSheet());
    return styleSheets;
}

QWidget *bench_Records::lever() const
{
    QWidget *lever = m_console->right()->findChild<Korvo::Widgets::tbar *>();
    return lever ? lever : m_console->right()->findChild<QSlider *>();
}

void bench_Records::aColorThatChangesNothing()
{
    const Color red = redAndGreen(Key)[0];
    half()->updateECButtonColor(red);
    paint();
    measure([&] { half()->updateECButtonColor(red); });
}

void bench_Records::aColorThatChangesOneKey()
{
    const auto colors = redAndGreen(Key);
    size_t turn = 0;
    measure([&] { half()->updateECButtonColor(colors[++turn % 2]); });
    paint();
}

void bench_Records::aColorThatChangesOneKeyPainted()
{
    const auto colors = redAndGreen(Key);
    size_t turn = 0;
    const auto work = [&] {
        half()->updateECButtonColor(colors[++turn % 2]);
        paint();
    };
    measure(work);
    QVERIFY(paints(m_console->child(KeyName), work));
}

void bench_Records::aTextThatChangesNothing()
{
    const Text text = labelText("CAM 1");
    half()->updateECOledText(text);
    paint();
    measure([&] { half()->updateECOledText(text); });
}

void bench_Records::aShortTextPainted()
{
    const std::array<Text, 2> texts = {labelText("CAM 1"), labelText("CAM 2")};
    size_t turn = 0;
    const auto work = [&] {
        half()->updateECOledText(texts[++turn % 2]);
        paint();
    };
    measure(work);
    QVERIFY(paints(m_console->child(LabelName), work));
}

void bench_Records::aBroadcastThatChangesNothing()
{
    const Color red = redAndGreen(EveryKey)[0];
    half()->updateECButtonColor(red);
    paint();
    measure([&] { half()->updateECButtonColor(red); });
    paint();
}

void bench_Records::aBroadcastPainted()
{
    const auto colors = redAndGreen(EveryKey);
    size_t turn = 0;
    const auto work = [&] {
        half()->updateECButtonColor(colors[++turn % 2]);
        paint();
    };
    measure(work);
    const QStringList before = styleSheets();
    QVERIFY(paints(m_console->child(KeyName), work));
    // Read by who makes the table: the count above is of all keys.
    qInfo("keys: %d", countDifferences(before, styleSheets()));
}

void bench_Records::aLeverThatStays()
{
    const Lever half = leverAt(50);
    m_console->right()->updateTBarValue(half);
    paint();
    measure([&] { m_console->right()->updateTBarValue(half); });
}

void bench_Records::aLeverThatMovesPainted()
{
    const std::array<Lever, 2> values = {leverAt(50), leverAt(51)}; // a step of a transition of some seconds
    size_t turn = 0;
    const auto work = [&] {
        m_console->right()->updateTBarValue(values[++turn % 2]);
        paint();
    };
    measure(work);
    QVERIFY(paints(lever(), work));
}

QTEST_MAIN(bench_Records)

#include "bench_records.moc"
