// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "journal/Journal.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeSettingsStore.h"
#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using Kind = Journal::Entry::Kind;

class JournalTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_store.values.clear();
        m_store.writes.clear();
        m_clock.emplace();
    }

    void theNewestEntryStandsFirst()
    {
        Journal journal(m_store, *m_clock);
        journal.record(Kind::on, u"first"_s);
        m_clock->advance(Seconds{2.5});
        journal.record(Kind::off, u"second"_s);
        QCOMPARE(journal.entries().size(), 2);
        QCOMPARE(journal.entries()[0].reason, u"second"_s);
        QCOMPARE((journal.entries()[0].at - journal.entries()[1].at).count(), 2.5);
        QVERIFY(journal.entries()[0].id != journal.entries()[1].id);
    }

    void theTwoHundredAndFirstEntryDropsTheOldest()
    {
        Journal journal(m_store, *m_clock);
        for (int i = 1; i <= 201; ++i)
            journal.record(Kind::on, QString::number(i));
        QCOMPARE(journal.entries().size(), 200);
        QCOMPARE(journal.entries().first().reason, u"201"_s);
        QCOMPARE(journal.entries().last().reason, u"2"_s);
        QCOMPARE(Journal(m_store, *m_clock).entries(), journal.entries());
    }

    void aLongerStoredListLoadsWholeAndIsCutAtTheNextRecord()
    {
        QList<Journal::Entry> stored;
        for (int i = 0; i < 250; ++i)
            stored.append({QUuid::createUuid(), m_clock->now(), Kind::on, QString::number(i)});
        m_store.values[u"journal"_s] = encodeJournal(stored);
        Journal journal(m_store, *m_clock);
        QCOMPARE(journal.entries().size(), 250);
        journal.record(Kind::off, u"new"_s);
        QCOMPARE(journal.entries().size(), 200);
        QCOMPARE(journal.entries().last().reason, u"198"_s);
    }

    void theStoredOrderIsKeptAsItIs()
    {
        const QList<Journal::Entry> oldestFirst{{QUuid::createUuid(), m_clock->now() - Seconds{60}, Kind::on, u"old"_s},
            {QUuid::createUuid(), m_clock->now(), Kind::off, u"new"_s}};
        m_store.values[u"journal"_s] = encodeJournal(oldestFirst);
        QCOMPARE(Journal(m_store, *m_clock).entries(), oldestFirst);
    }

    void whatCannotBeDecodedIsEmptyUntilTheNextRecordOverwritesIt_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray good = R"({"id":"e621e1f8-c36c-495a-93fc-0c247a3e6e5f","at":1.5,"kind":"on","reason":"x"})";
        QTest::newRow("unknown kind") << '[' + QByteArray(good).replace("\"on\"", "\"sleeping\"") + ']';
        QTest::newRow("malformed") << QByteArray("[{");
        QTest::newRow("not an array") << good;
        QTest::newRow("a missing key") << '[' + good + R"(,{"id":"e621e1f8-c36c-495a-93fc-0c247a3e6e5f","at":1}])";
        QTest::newRow("no identifier") << '[' + QByteArray(good).replace("e621e1f8-", "") + ']';
        const QByteArray id = "e621e1f8-c36c-495a-93fc-0c247a3e6e5f";
        QTest::newRow("braces") << '[' + QByteArray(good).replace(id, '{' + id + '}') + ']';
        QTest::newRow("no hyphens") << '[' + QByteArray(good).replace(id, QByteArray(id).replace("-", "")) + ']';
        QTest::newRow("more behind the identifier") << '[' + QByteArray(good).replace(id, id + "0") + ']';
        QTest::newRow("a number as identifier") << '[' + QByteArray(good).replace('"' + id + '"', "7") + ']';
        QTest::newRow("a time in words") << '[' + QByteArray(good).replace("1.5", "\"today\"") + ']';
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("empty") << QByteArray();
    }

    void whatCannotBeDecodedIsEmptyUntilTheNextRecordOverwritesIt()
    {
        QFETCH(QByteArray, bytes);
        m_store.values[u"journal"_s] = bytes;
        Journal journal(m_store, *m_clock);
        QVERIFY(journal.entries().isEmpty());
        QCOMPARE(m_store.data(u"journal"_s), bytes);
        journal.record(Kind::on, u"new"_s);
        QCOMPARE(Journal(m_store, *m_clock).entries(), journal.entries());
        QCOMPARE(journal.entries().size(), 1);
    }

    void anIdentifierOfZeroIsOneLikeAnyOther()
    {
        m_store.values[u"journal"_s]
            = QByteArray(R"([{"id":"00000000-0000-0000-0000-000000000000","at":1.5,"kind":"on","reason":"x"}])");
        const Journal journal(m_store, *m_clock);
        QCOMPARE(journal.entries().size(), 1);
        QVERIFY(journal.entries().first().id.isNull());
    }

    void clearingLeavesAnEmptyListAlsoAfterARestart()
    {
        Journal journal(m_store, *m_clock);
        journal.record(Kind::on, u"x"_s);
        QSignalSpy changed(&journal, &Journal::entriesChanged);
        journal.clear();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(m_store.data(u"journal"_s), QByteArray("[]"));
        QVERIFY(Journal(m_store, *m_clock).entries().isEmpty());
    }

    void everyRecordIsStoredInTheAgreedForm()
    {
        Journal journal(m_store, *m_clock);
        journal.record(Kind::resumed, u"Awake · 1 agent"_s);
        const QJsonArray stored = QJsonDocument::fromJson(*m_store.data(u"journal"_s)).array();
        QCOMPARE(stored.size(), 1);
        const QJsonObject entry = stored[0].toObject();
        QCOMPARE(entry.keys(), (QStringList{u"at"_s, u"id"_s, u"kind"_s, u"reason"_s}));
        QCOMPARE(entry[u"kind"_s].toString(), u"resumed"_s);
        QCOMPARE(entry[u"reason"_s].toString(), u"Awake · 1 agent"_s);
        QCOMPARE(entry[u"id"_s].toString(), journal.entries()[0].id.toString(QUuid::WithoutBraces));
        QCOMPARE(entry[u"at"_s].toDouble(), m_clock->now().time_since_epoch().count() - 978'307'200);
    }

    void anEntryOfAnotherWriterIsRead()
    {
        m_store.values[u"journal"_s] = QByteArray(
            R"([{"reason":"On battery","kind":"paused","at":760035849,"id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"}])");
        const Journal journal(m_store, *m_clock);
        QCOMPARE(journal.entries().size(), 1);
        QCOMPARE(journal.exportText(), u"2025-01-31T17:04:09Z  Paused: On battery"_s);
    }

    void exportNamesEveryKindAndEndsWithoutANewline()
    {
        Journal journal(m_store, *m_clock);
        QCOMPARE(journal.exportText(), QString());
        journal.record(Kind::on, u"a"_s);
        journal.record(Kind::paused, u"b"_s);
        journal.record(Kind::resumed, u"c"_s);
        journal.record(Kind::off, u"d"_s);
        QCOMPARE(journal.exportText(),
            u"2023-11-14T22:13:20Z  Stopped: d\n2023-11-14T22:13:20Z  Resumed: c\n"
            "2023-11-14T22:13:20Z  Paused: b\n2023-11-14T22:13:20Z  Keeping awake: a"_s);
    }

private:
    FakeSettingsStore m_store;
    std::optional<FakeClock> m_clock;
};

QTEST_GUILESS_MAIN(JournalTest)
#include "JournalTest.moc"
