// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/WhyMirror.h"

#include "bus/ServedTarvik.h"
#include "fakes/FakeTarvik.h"
#include "support/TestSupport.h"
#include "ui/mirror/MirrorTestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class WhyMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theAnswerIsTheSentencesAlone()
    {
        const ServedTarvik tarvik;
        WhyMirror why(m_client);
        QSignalSpy changes(&why, &WhyMirror::answerChanged);
        settle(m_client);
        QCOMPARE(tarvik.locks.questions, 0);
        why.ask();
        QCOMPARE(why.answer(), QString());
        QTRY_COMPARE(why.answer(),
            u"Nothing holds this computer awake; what would put it to sleep is not known.\n"
            u"Tarvik does not keep it awake (Dozing — nothing to watch).\n"
            u"When this computer slept last is not known."_s);
        QCOMPARE(changes.size(), 1);
        why.forget();
        QCOMPARE(why.answer(), QString());
        QCOMPARE(changes.size(), 2);
    }

    void anAnswerThatComesTooLateIsNone()
    {
        const ServedTarvik tarvik;
        WhyMirror why(m_client);
        why.ask();
        why.forget();
        QTRY_COMPARE(tarvik.locks.questions, 1);
        settle(m_client);
        QCOMPARE(why.answer(), QString());
    }

    void withoutTarvikThereIsNone()
    {
        WhyMirror why(m_client);
        why.ask();
        const ServedTarvik tarvik;
        settle(m_client);
        QCOMPARE(why.answer(), QString());
        why.ask();
        QTRY_VERIFY(!why.answer().isEmpty());
    }

    void anErrorIsLogged()
    {
        FakeTarvik other;
        other.handler = [](const QDBusMessage& call) {
            return call.createErrorReply(QDBusError::UnknownInterface, u"There is no Why1 here."_s);
        };
        QVERIFY(other.appear());
        expectLog(QtWarningMsg, u"^Explain failed: There is no Why1 here\\.$"_s);
        WhyMirror why(m_client);
        QSignalSpy changes(&why, &WhyMirror::answerChanged);
        why.ask();
        settle(m_client);
        QCOMPARE(why.answer(), QString());
        QCOMPARE(changes.size(), 0);
    }

private:
    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(WhyMirrorTest)
#include "WhyMirrorTest.moc"
