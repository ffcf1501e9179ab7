// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/Translation.h"

#include "engine/CoordinatedMachine.h"
#include "engine/StatusText.h"
#include "engine/TrayPresenter.h"
#include "fakes/FakeTrayItem.h"
#include "hotkey/LockScreen.h"
#include "support/TestSupport.h"

#include <QRegularExpression>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

const auto directory = QStringLiteral(TARVIK_TRANSLATIONS);

/// What of a text is not marked as translated, without numbers, what stands between parts, and proper names.
QString untranslated(QString text)
{
    static const QRegularExpression marked(u"⟦[^⟦⟧]*⟧"_s);
    static const QRegularExpression neutral(u"Claude Code|Codex|Gemini CLI|Tarvik( — )?|[\\s,·|\\[\\]-]"_s);
    while (text.contains(marked))
        text.remove(marked);
    return text.remove(neutral);
}

QString title(bool isEnabled, bool isPaused, bool isAwake)
{
    return StatusText::title({.isEnabled = isEnabled, .isPaused = isPaused, .isAwake = isAwake});
}

} // namespace

class TranslationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void withoutItsLanguageTheTextsStayEnglish_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<QString>("where");
        QTest::newRow("English") << QStringList{u"en"_s} << directory;
        QTest::newRow("American English") << QStringList{u"en-US"_s, u"en"_s} << directory;
        QTest::newRow("English before German") << QStringList{u"en-GB"_s, u"de"_s} << directory;
        QTest::newRow("no language at all") << QStringList{u"C"_s, u"de"_s} << directory;
        QTest::newRow("a language that is not there") << QStringList{u"eo"_s} << directory;
        QTest::newRow("a bundle without translations") << QStringList{u"de"_s} << u"/nowhere"_s;
    }

    void withoutItsLanguageTheTextsStayEnglish()
    {
        QFETCH(QStringList, languages);
        QFETCH(QString, where);
        const Translation translation(where, languages);
        QCOMPARE(title(false, false, false), u"Off"_s);
    }

    void theFirstLanguageThatIsThereIsTaken_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::newRow("the language") << QStringList{u"de"_s};
        QTest::newRow("with a country") << QStringList{u"de-CH"_s};
        QTest::newRow("after one that is not there") << QStringList{u"eo"_s, u"de"_s};
    }

    void theFirstLanguageThatIsThereIsTaken()
    {
        QFETCH(QStringList, languages);
        {
            const Translation translation(directory, languages);
            QCOMPARE(title(false, false, false), u"⟦Off~⟧"_s);
        }
        QCOMPARE(title(false, false, false), u"Off"_s);
    }

    void everyStatusTextIsTranslated()
    {
        const Translation translation(directory, {u"de"_s});
        const QStringList texts = titles() + pauses() + reasons() + subtitles() + details();
        for (const QString& text : texts) {
            QVERIFY(!text.isEmpty());
            QCOMPARE(untranslated(text), QString());
        }
    }

    void namesAndNumbersStandWhereTheTranslationPutsThem()
    {
        const Translation translation(directory, {u"de"_s});
        StatusText::ReasonInputs reason;
        reason.awake = true;
        reason.agentCount = 2;
        reason.appCount = 1;
        QCOMPARE(StatusText::reason(reason), u"⟦Awake · ⟦⟦2 agents~~~~⟧, ⟦1 app~~⟧~~⟧~~~~⟧"_s);
        StatusText::SubtitleInputs subtitle;
        subtitle.activeList = {u"Claude Code"_s, u"%1 %n"_s, u"Gemini CLI"_s};
        QCOMPARE(StatusText::subtitle(subtitle), u"⟦⟦Claude Code, %1 %n~~⟧ +1 more~~~~⟧"_s);
    }

    void theTrayItemTheMenuTheNotificationsAndTheJournalAreTranslated()
    {
        const Translation translation(directory, {u"de"_s});
        CoordinatedMachine machine;
        machine.start();
        FakeTrayItem tray;
        TrayPresenter presenter(*machine.coordinator, *machine.settings, tray, machine.clock);
        machine.settings->setNotifyOnToggle(true);
        machine.settings->setRequireAC(true);
        machine.run("claude\n");
        machine.coordinator->setTimedSession(60);
        machine.setPower(false, 80);
        machine.setPower(true, 80);
        QStringList texts{FakeTrayItem::text(tray.menu),
            tray.appearance.title,
            tray.appearance.tooltipTitle,
            tray.appearance.tooltipBody};
        machine.run("");
        machine.coordinator->setTimedSession({});
        for (const auto& posted : machine.notifications.posted)
            texts << posted.title << posted.body;
        QCOMPARE(machine.notifications.posted.size(), 4);
        const QStringList lines = machine.journal->exportText().split(u'\n');
        for (QString line : lines) {
            QCOMPARE(line.at(10), u'T');
            texts.append(line.remove(0, 20).remove(u':'));
        }
        texts.append(LockShortcut::purpose().description);
        for (const QString& text : std::as_const(texts)) {
            QVERIFY(!text.isEmpty());
            QCOMPARE(untranslated(text), QString());
        }
    }

private:
    static QStringList titles()
    {
        return {
            title(false, false, false), title(true, true, false), title(true, false, true), title(true, false, false)};
    }

    static QStringList pauses()
    {
        QStringList texts;
        for (const BlockReason& reason :
            {BlockReason::tooHot(), BlockReason::onBattery(), BlockReason::lowBattery(15, 20)})
            texts << reason.pauseTitle() << reason.shortDescription();
        return texts;
    }

    static QStringList reasons()
    {
        StatusText::ReasonInputs inputs;
        QStringList texts{StatusText::reason(inputs)};
        inputs.awake = true;
        for (inputs.agentCount = 0; inputs.agentCount < 3; ++inputs.agentCount) {
            for (inputs.appCount = 0; inputs.appCount < 3; ++inputs.appCount)
                texts.append(StatusText::reason(inputs));
        }
        inputs.timedSessionActive = true;
        for (const std::optional<int> minutes : {std::optional<int>(), std::optional(1), std::optional(25)}) {
            inputs.minutesLeft = minutes;
            texts.append(StatusText::reason(inputs));
        }
        return texts;
    }

    static QStringList subtitles()
    {
        StatusText::SubtitleInputs inputs;
        QStringList texts{StatusText::subtitle(inputs)};
        inputs.timedSessionActive = true;
        texts.append(StatusText::subtitle(inputs));
        inputs.activeList = {u"Claude Code"_s, u"Codex"_s, u"Gemini CLI"_s};
        texts.append(StatusText::subtitle(inputs));
        inputs.isEnabled = false;
        texts.append(StatusText::subtitle(inputs));
        return texts;
    }

    static QStringList details()
    {
        StatusText::DetailsInputs inputs;
        inputs.hasBattery = true;
        inputs.batteryPercent = 80;
        inputs.isHot = true;
        inputs.lidClosedMode = true;
        inputs.minutesLeft = 25;
        QStringList texts;
        for (inputs.thermalState = 0; inputs.thermalState < 5; ++inputs.thermalState) {
            inputs.isOnAC = !inputs.isOnAC;
            texts.append(StatusText::details(inputs));
        }
        return texts;
    }
};

QTEST_GUILESS_MAIN(TranslationTest)
#include "TranslationTest.moc"
