// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/Translation.h"

#include "engine/BlockReason.h"
#include "engine/CoordinatedMachine.h"
#include "engine/StatusText.h"
#include "engine/TrayPresenter.h"
#include "fakes/FakeTrayItem.h"
#include "hotkey/LockScreen.h"
#include "support/TestSupport.h"

#include <QLocale>
#include <QRegularExpression>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

const auto directory = QStringLiteral(TARVIK_TRANSLATIONS);
const auto bundled = QStringLiteral(TARVIK_BUNDLED_TRANSLATIONS);

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

    void withoutItsLanguageTheComputerIsSpokenOfInEnglish_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::newRow("English") << QStringList{u"en"_s};
        QTest::newRow("American English") << QStringList{u"en-US"_s, u"en-Latn-US"_s, u"en"_s};
        QTest::newRow("English before German") << QStringList{u"en-GB"_s, u"de"_s};
        QTest::newRow("a language that is not there") << QStringList{u"eo"_s};
        QTest::newRow("a language whose name begins alike") << QStringList{u"den"_s};
    }

    void withoutItsLanguageTheComputerIsSpokenOfInEnglish()
    {
        QFETCH(QStringList, languages);
        const Translation translation(directory, languages);
        QCOMPARE(BlockReason::tooHot().pauseTitle(), u"Paused — computer is running hot"_s);
        QCOMPARE(title(false, false, false), u"Off"_s);
    }

    void withoutALanguageTheTextsStayAsTheyAre_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<QString>("where");
        QTest::newRow("no language at all") << QStringList{u"C"_s, u"de"_s} << directory;
        QTest::newRow("a bundle without translations") << QStringList{u"de"_s} << u"/nowhere"_s;
    }

    void withoutALanguageTheTextsStayAsTheyAre()
    {
        QFETCH(QStringList, languages);
        QFETCH(QString, where);
        const Translation translation(where, languages);
        QCOMPARE(BlockReason::tooHot().pauseTitle(), u"Paused — Mac is running hot"_s);
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

    void whoReadsOneKindOfChineseIsNotGivenTheOther_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<QString>("off");
        const auto simplified = u"关闭"_s;
        QTest::newRow("China") << QStringList{u"zh-CN"_s, u"zh-Hans-CN"_s, u"zh"_s} << simplified;
        QTest::newRow("Singapore") << QStringList{u"zh-SG"_s, u"zh-Hans-SG"_s} << simplified;
        QTest::newRow("Chinese") << QStringList{u"zh"_s} << simplified;
        QTest::newRow("Taiwan") << QStringList{u"zh-TW"_s, u"zh-Hant-TW"_s, u"zh"_s} << u"Off"_s;
        QTest::newRow("Hong Kong") << QStringList{u"zh-HK"_s, u"zh-Hant-HK"_s, u"zh-Hant"_s, u"zh"_s} << u"Off"_s;
        QTest::newRow("Taiwan before China") << QStringList{u"zh-TW"_s, u"zh"_s, u"zh-CN"_s} << simplified;
    }

    void whoReadsOneKindOfChineseIsNotGivenTheOther()
    {
        QFETCH(QStringList, languages);
        QFETCH(QString, off);
        const Translation translation(bundled, languages);
        QCOMPARE(title(false, false, false), off);
    }

    void theBundleSpeaks_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<QString>("one");
        QTest::addColumn<QString>("several");
        QTest::addColumn<QString>("battery");
        const auto add
            = [](const char* language, const char16_t* one, const char16_t* several, const char16_t* battery) {
                  QTest::newRow(language) << QStringList{QString::fromLatin1(language)} << QString::fromUtf16(one)
                                          << QString::fromUtf16(several) << QString::fromUtf16(battery);
              };
        add("en", u"Awake · 1 agent", u"Awake · 2 agents, 5 apps", u"Paused — battery 15% < 20%");
        add("de",
            u"Wach · 1\u00a0Agent",
            u"Wach · 2\u00a0Agenten, 5\u00a0Apps",
            u"Pausiert – Akku 15\u00a0% < 20\u00a0%");
        add("fr",
            u"Actif · 1\u00a0agent",
            u"Actif · 2\u00a0agents, 5\u00a0applications",
            u"En pause – batterie 15\u00a0% < 20\u00a0%");
        add("es",
            u"Activo · 1\u00a0agente",
            u"Activo · 2\u00a0agentes, 5\u00a0aplicaciones",
            u"En pausa — batería 15\u00a0% < 20\u00a0%");
        add("ja",
            u"スリープ防止中 · エージェント 1 件",
            u"スリープ防止中 · エージェント 2 件、アプリ 5 件",
            u"一時停止中 — バッテリー 15% < 20%");
        add("zh-CN", u"保持唤醒 · 1 个智能体", u"保持唤醒 · 2 个智能体、5 个应用", u"已暂停 — 电量 15% < 20%");
    }

    void theBundleSpeaks()
    {
        QFETCH(QStringList, languages);
        const Translation translation(bundled, languages);
        StatusText::ReasonInputs inputs;
        inputs.awake = true;
        inputs.agentCount = 1;
        QTEST(StatusText::reason(inputs), "one");
        inputs.agentCount = 2;
        inputs.appCount = 5;
        QTEST(StatusText::reason(inputs), "several");
        QTEST(BlockReason::lowBattery(15, 20).pauseTitle(), "battery");
    }

    void datesAreWrittenAsTheTextsAre_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<QString>("locale");
        QTest::newRow("a language that is there") << QStringList{u"de-DE"_s} << QLocale::system().name();
        QTest::newRow("one that is not, in the same script") << QStringList{u"it-IT"_s} << QLocale::system().name();
        QTest::newRow("in another script") << QStringList{u"ar-EG"_s, u"ar"_s} << u"en_001"_s;
        QTest::newRow("in another script, of a country with an English of its own")
            << QStringList{u"he-IL"_s} << u"en_IL"_s;
        QTest::newRow("no language") << QStringList{u"C"_s} << QLocale::system().name();
    }

    void datesAreWrittenAsTheTextsAre()
    {
        QFETCH(QStringList, languages);
        {
            const Translation translation(directory, languages);
            QTEST(QLocale().name(), "locale");
        }
        QCOMPARE(QLocale().name(), QLocale::system().name());
    }

    void withoutItsTranslationALanguageThatIsReadFromTheRightIsReadFromTheLeft()
    {
        const Translation translation(directory, {u"ar-EG"_s});
        QCOMPARE(QCoreApplication::translate("QGuiApplication", "QT_LAYOUT_DIRECTION"), u"LTR"_s);
        QCOMPARE(QLocale().textDirection(), Qt::LeftToRight);
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
