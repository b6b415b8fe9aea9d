// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "scenario.h"
#include "sessionobserver.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <functional>

namespace K7Host {

class ConsoleSession;
class Hand;
class MessageBoxes;
class Traffic;

/// Plays a scenario: hands records to the halves, does what a person would, and waits.
///
/// A step that opens a message box returns when that is closed; the next steps are played meanwhile. Of a
/// trace each line waits for its time and for the signals and boxes before it, so that what the console
/// causes comes where it came. GUI thread only.
class ScenarioPlayer : public QObject, public SessionObserver
{
    Q_OBJECT

public:
    static constexpr int GraceMs = 1000;     ///< what a line of a trace may come late before it is given up
    static constexpr int PatienceMs = 10000; ///< the same for one without a time

    static constexpr int PromptMs = 5;         ///< a line that follows another one sooner belongs to it
    static constexpr int LongestBreath = 1000; ///< so many records answer a signal at once, at most

    /// What a scenario acts on. All outlive the player.
    struct Stage
    {
        ConsoleSession *session = nullptr;
        Hand *hand = nullptr;
        MessageBoxes *boxes = nullptr;
        Traffic *traffic = nullptr;
        /// Saves a picture of the console under that name.
        std::function<std::optional<Fault>(const QString &file)> saveScreenshot;
    };

    /// Add it to the session's observers.
    ScenarioPlayer(const Scenario &scenario, const Stage &stage, QObject *parent = nullptr);

    /// Plays from the event loop.
    void start();
    /// Plays nothing more, and says nothing of it.
    void stop();

    void emitted(const SignalLine &signal) override;

Q_SIGNALS:
    /// The last step is done.
    void finished();
    /// A step could not be done, and none follows.
    void failed(const K7Host::Fault &fault);

private:
    void playNext();
    void goOn(int ms = 0);
    bool hasEnded() const;
    void finish();
    void fail(int line, const QString &reason);
    int remainingMs(const ScenarioLine &line) const;
    int graceMs(const ScenarioLine &line) const;

    void noteOutcome(const QString &name);
    bool isNextOutcome(const QString &name) const;
    bool isNextPrompt() const;
    void answerPromptly();
    void releaseAtOnce(const InputLine &press);
    bool isBoxClosing();
    void await(const QString &name, int ms, bool isNeeded);
    bool giveUpWaiting();

    void play(const CallLine &line);
    void play(const InputLine &line);
    void play(const AnswerLine &line);
    void play(const WaitLine &line);
    void play(const WaitForLine &line);
    void play(const ScreenshotLine &line);
    void play(const SignalLine &line);
    void play(const MessageLine &line);
    void play(const GapLine &line);
    void act(const InputLine &line, int number);

    const Scenario m_scenario;
    const Stage m_stage;
    const bool m_isTrace;
    QTimer m_timer;       // runs until the next step, or until what is awaited is given up
    double m_shiftMs = 0; // from times of a trace to those of this run
    int m_next = 0;
    const Scenario::Step *m_step = nullptr; // the last one that began
    int m_answerLine = 0;                   // of the last answer
    QString m_awaited;                      // a signal, or a message box; nothing when empty
    bool m_isNeeded = false;                // whether the scenario fails without it
    bool m_isAnswering = false;
    bool m_isBoxClosing = false;
    int m_boxLevel = 0;            // of event loops, around the last box
    QHash<QString, int> m_outcome; // how often what came out that was not awaited
};

} // namespace K7Host
