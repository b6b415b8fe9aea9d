// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consoleparts.h"
#include "panelsupport.h"

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <memory>

/// What holds for both halves of the console, of all their keys and labels. All input is real input.
class HalfTests : public QObject
{
    Q_OBJECT

public:
    HalfTests(const QVector<PlacedSection> &sections, int keys, int labels);

private slots:
    void init();
    void cleanup();

    void sectionsAreOfTheirClasses();
    void keysAndLabelsFitTheirSections();
    void everyKeyIsRelayedOnce_data();
    void everyKeyIsRelayedOnce();
    void silentKeysSendNothing();
    void fingersHoldKeysOfAllSectionsAtOnce();
    void aHandOnTheFrameTakesNoFinger();
    void sectionsAreServedInOrder_data();
    void sectionsAreServedInOrder();
    void theNormalStyleReachesEveryKey();
    void aColorPaintsOneKeyOfTheHalf();
    void aBroadcastPaintsAllKeysAsOrdinaryOnes();
    void aTextIsWrittenToOneLabelOfTheHalf();
    void recordsForNoPartOfTheHalfChangeNothing();
    void recordsThatChangeNothingCostNothing();
    void heldKeysAreReleasedOnEveryWayOut_data();
    void heldKeysAreReleasedOnEveryWayOut();
    void anotherLanguageRelabelsTheWords();
    void anotherLanguageKeepsIdsAndRecords();

protected:
    virtual std::unique_ptr<Korvo::IKorvoECKeyboard> create() = 0;

    const ConsoleParts &parts() const { return m_parts; }
    const ConsolePart &part(const QString &name) const;
    QString css(Korvo::ECKeyboard::eECButtonImage image) const
    {
        return m_live.plugin.ecButtonBorderImageCSS(image);
    }
    bool show();

    const SettingsFolder m_folder; // of the settings panel
    LivePlugin m_live;
    std::unique_ptr<Korvo::IKorvoECKeyboard> m_keyboard;
    QStringList m_sent; // "press ff0024", in order

private:
    const QVector<PlacedSection> m_sections;
    const int m_keys;
    const int m_labels;
    ConsoleParts m_parts;
};
