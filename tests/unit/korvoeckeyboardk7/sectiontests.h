// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support.h"

#include <QFrame>
#include <QLabel>
#include <QVector>

#include <functional>
#include <memory>

class QAbstractButton;

/// What is particular to a key section, beyond its table of facts. Names are those of widgets.
struct SectionRules
{
    using Names = QVector<const char *>;
    struct Style
    {
        const char *widget;
        const char *styleSheet;
    };
    /// A style-sheet marker, "=false" behind it if that is its value. A label without a name of its own is
    /// given by its text in quotes; "group" stands for all keys of the group.
    struct Marker
    {
        const char *name;
        Names widgets;
    };

    const char *facts = nullptr; // name of the table
    int keys = 0;
    int labels = 0;

    Names silentKeys;        // that send nothing
    Names colorlessKeys;     // that take no colour
    Names unreachableLabels; // that no text finds
    bool knowsBroadcast = true;
    bool takesEveryText = false; // says so, and does nothing

    QVector<Style> formStyles;     // that the form sets itself
    QVector<Marker> markers;       // once it is built
    QVector<Marker> normalMarkers; // that the normal style adds
};

/// What holds for every key section, each by the table of its facts. All input is real input.
class SectionTests : public QObject
{
    Q_OBJECT

public:
    explicit SectionTests(const SectionRules &rules);

private slots:
    void init();
    void cleanup();

    void theTableIsComplete();
    void keysAndLabelsStandInTheirPlaces();
    void theGroupHasTheKeysInOrder();
    void markersAreExactlyTheSections();
    void nothingIsStyledBeforeItIsAsked();
    void labelsAreEmptyAtFirst();

    void keysSendTheirCodeOnPressAndOnRelease_data();
    void keysSendTheirCodeOnPressAndOnRelease();
    void silentKeysSendNothing();
    void fingersHoldAllKeysAtOnce();
    void aPressOfNoKeySendsNothing();
    void aKeyWithoutAnIdSendsTheBareOffset();
    void idsMayChangeAtAnyTime_data();
    void idsMayChangeAtAnyTime();
    void aChangeOfTheLanguageKeepsOrRestoresTheIds();
    void heldKeysAreReleasedOnEveryWayOut_data();
    void heldKeysAreReleasedOnEveryWayOut();

    void idleKeysAreWhiteAndTheIdlePageUpKeyIsBlack();
    void theNormalStyleLeavesLabelsAlone();
    void aColorPaintsOneKey_data();
    void aColorPaintsOneKey();
    void aBroadcastPaintsAllKeysAsOrdinaryOnes();
    void colorsOfOtherKeysAreRefused();
    void colorsThatChangeNothingCostNothing();

    void aTextIsWrittenToOneLabel();
    void textsAreReadUpToTheFirstZeroByte_data();
    void textsAreReadUpToTheFirstZeroByte();
    void textsOfOtherLabelsAreRefused();
    void textsThatChangeNothingCostNothing();

protected:
    using Sender = std::function<void(const char *what, quint32 code)>;

    virtual std::unique_ptr<QFrame> create() = 0;
    virtual void listen(const Sender &sender) = 0;
    virtual void applyNormalStyle() = 0;
    virtual bool updateColor(std::shared_ptr<Korvo::ECButtonColor> color) = 0;
    virtual bool updateText(std::shared_ptr<Korvo::ECOLEDText> text) = 0;

    QFrame *frame() const { return m_section.get(); }
    QWidget *widget(const QString &name) const { return m_section->findChild<QWidget *>(name); }
    QWidget *widget(const Fact &fact) const { return widget(fact.value(QStringLiteral("object"))); }
    QAbstractButton *key(const QString &name) const;
    QLabel *label(const QString &name) const { return m_section->findChild<QLabel *>(name); }
    QStringList sent() const { return m_sent; }
    QStringList keyStyles() const;
    QStringList labelTexts() const;
    QString css(Korvo::ECKeyboard::eECButtonImage image) const
    {
        return m_live.plugin.ecButtonBorderImageCSS(image);
    }
    static QString press(const Fact &fact);
    static QString release(const Fact &fact);

    QVector<Fact> keys() const { return m_keys; }
    QVector<Fact> sendingKeys() const;
    QVector<Fact> reachableLabels() const;

private:
    void followsIdOf(const Fact &key, quint32 id, quint32 formerId);
    void followsIdOfLabel(const Fact &label, quint32 id, quint32 formerId);
    bool isColorless(const Fact &fact) const;
    QString formStyle(const QString &name) const;
    QString ordinaryLook(const Fact &fact, Korvo::ECKeyboard::eECButtonImage otherwise) const;
    QStringList markersFound() const;
    QStringList markersExpected(const QVector<SectionRules::Marker> &markers) const;

    LivePlugin m_live;
    const SectionRules m_rules;
    QVector<Fact> m_facts;
    QVector<Fact> m_keys; // that are K7DropButtons
    QVector<Fact> m_labels;
    std::unique_ptr<QFrame> m_section;
    QStringList m_sent; // "press ff0024", in order
};

/// The same for a class of sections.
template <typename Section>
class SectionTestsOf : public SectionTests
{
public:
    using SectionTests::SectionTests;

protected:
    Section *section() const { return static_cast<Section *>(frame()); }
    std::unique_ptr<QFrame> create() override { return std::make_unique<Section>(nullptr); }
    void listen(const Sender &sender) override
    {
        connect(section(), &Section::ecButtonPressed, this,
                [sender](const quint32 &code) { sender("press", code); });
        connect(section(), &Section::ecButtonRelease, this,
                [sender](const quint32 &code) { sender("release", code); });
    }
    void applyNormalStyle() override { section()->applyNoramlStyleSheet(); }
    bool updateColor(std::shared_ptr<Korvo::ECButtonColor> color) override
    {
        return section()->updateECButtonColor(color);
    }
    bool updateText(std::shared_ptr<Korvo::ECOLEDText> text) override
    {
        return section()->updateECOledText(text);
    }
};
