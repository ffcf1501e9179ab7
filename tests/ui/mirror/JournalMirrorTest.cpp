// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/JournalMirror.h"

#include "bus/ServedTarvik.h"
#include "dbus/contracts/TarvikWire.h"
#include "fakes/FakeTarvik.h"
#include "support/TestSupport.h"
#include "ui/mirror/MirrorTestSupport.h"

#include <QDateTime>
#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class JournalMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theJournalIsShownNewestFirst()
    {
        ServedTarvik tarvik;
        tarvik.machine.journal->record(JournalEntry::Kind::on, u"Claude Code"_s);
        tarvik.machine.journal->record(JournalEntry::Kind::paused, u"On battery"_s);
        JournalMirror journal(m_client);
        QTRY_VERIFY(journal.isConnected());
        QCOMPARE(rows(journal, "reason"), (QStringList{u"On battery"_s, u"Claude Code"_s}));
        QCOMPARE(rows(journal, "kind"), (QStringList{u"paused"_s, u"on"_s}));
        QCOMPARE(rows(journal, "iconName"), (QStringList{u"pause.circle"_s, u"bolt.fill"_s}));
        QCOMPARE(rows(journal, "iconColor"), (QStringList{u"orange"_s, u"secondary"_s}));
        QCOMPARE(rows(journal, "day"),
            QStringList(2, QDateTime::fromSecsSinceEpoch(1'700'000'000).date().toString(Qt::ISODate)));
        const QVariant at = journal.entries()->index(0, 0).data(role(journal, "at"));
        QCOMPARE(at.toDateTime().toSecsSinceEpoch(), 1'700'000'000);
        QCOMPARE(rows(journal, "entryId").constFirst(),
            tarvik.machine.journal->entries().constFirst().id.toString(QUuid::WithoutBraces));
    }

    void aRecordedEntryComesInAtTheFront()
    {
        ServedTarvik tarvik;
        for (int number = 0; number < 200; ++number)
            tarvik.machine.journal->record(JournalEntry::Kind::off, QString::number(number));
        JournalMirror journal(m_client);
        QTRY_VERIFY(journal.isConnected());
        QSignalSpy inserted(journal.entries(), &QAbstractItemModel::rowsInserted);
        QSignalSpy removed(journal.entries(), &QAbstractItemModel::rowsRemoved);
        QSignalSpy reset(journal.entries(), &QAbstractItemModel::modelReset);
        QSignalSpy changed(&journal, &JournalMirror::entriesChanged);
        tarvik.machine.journal->record(JournalEntry::Kind::resumed, u"first"_s);
        tarvik.machine.journal->record(JournalEntry::Kind::off, u"second"_s);
        QTRY_COMPARE(inserted.size(), 1);
        QCOMPARE(inserted[0].mid(1), (QVariantList{0, 1}));
        QCOMPARE(removed.size(), 1);
        QCOMPARE(removed[0].mid(1), (QVariantList{198, 199}));
        QCOMPARE(reset.size(), 0);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(rows(journal, "reason").mid(0, 3), (QStringList{u"second"_s, u"first"_s, u"199"_s}));
        QCOMPARE(journal.entries()->rowCount(), 200);
    }

    void theJournalIsClearedAndExported()
    {
        ServedTarvik tarvik;
        tarvik.machine.journal->record(JournalEntry::Kind::paused, u"On battery"_s);
        JournalMirror journal(m_client);
        QTRY_VERIFY(journal.isConnected());
        QSignalSpy exported(&journal, &JournalMirror::exported);
        journal.exportText();
        QTRY_COMPARE(exported.size(), 1);
        QCOMPARE(exported[0][0].toString(), u"2023-11-14T22:13:20Z  Paused: On battery"_s);
        journal.clear();
        QTRY_COMPARE(journal.entries()->rowCount(), 0);
        QVERIFY(tarvik.machine.journal->entries().isEmpty());
    }

    void listsOfAnotherKindAreLoggedAndChangeNothing()
    {
        FakeTarvik tarvik;
        tarvik.values = {{u"entries"_s, QStringList{u"text"_s}}};
        QVERIFY(tarvik.appear());
        expectLog(QtWarningMsg, u"^Tarvik sent entries as QStringList$"_s);
        JournalMirror journal(m_client);
        QTRY_VERIFY(journal.isConnected());
        QCOMPARE(journal.entries()->rowCount(), 0);
        tarvik.values[u"entries"_s] = QVariant::fromValue(QList<AllowlistedApp>{{u"a"_s, u"b"_s}});
        expectLog(QtWarningMsg, u"^Tarvik sent entries as QDBusArgument$"_s);
        tarvik.announce(TarvikWire::journalInterface, {}, {u"entries"_s});
        settle(m_client);
        QCOMPARE(journal.entries()->rowCount(), 0);
    }

    void entriesThatAreNoneAreLeftOut()
    {
        FakeTarvik tarvik;
        const double never = std::numeric_limits<double>::quiet_NaN();
        const QList<JournalRow> entries{{u"1"_s, 1e9, u"sleeping"_s, u"of no kind"_s},
            {u"2"_s, never, u"on"_s, u"never"_s},
            {u"3"_s, 1e300, u"on"_s, u"too late"_s},
            {u"4"_s, 1e9, u"off"_s, u"good"_s}};
        tarvik.values = {{u"entries"_s, QVariant::fromValue(entries)}};
        JournalMirror journal(m_client);
        QVERIFY(tarvik.appear());
        expectLog(QtWarningMsg, u"^Tarvik sent 3 journal entries that are none$"_s);
        QTRY_VERIFY(journal.isConnected());
        QCOMPARE(rows(journal, "reason"), QStringList{u"good"_s});
    }

    void aHugeListIsTaken()
    {
        FakeTarvik tarvik;
        const QList<JournalRow> entries(100'000, {u"1"_s, 1e9, u"off"_s, u"again and again"_s});
        tarvik.values = {{u"entries"_s, QVariant::fromValue(entries)}};
        JournalMirror journal(m_client);
        QVERIFY(tarvik.appear());
        QTRY_COMPARE(journal.entries()->rowCount(), 100'000);
    }

private:
    static int role(JournalMirror& journal, const QByteArray& name) { return journal.entries()->roleNames().key(name); }

    static QStringList rows(JournalMirror& journal, const QByteArray& name)
    {
        QStringList texts;
        const QAbstractItemModel& model = *journal.entries();
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, 0).data(role(journal, name)).toString());
        return texts;
    }

    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(JournalMirrorTest)
#include "JournalMirrorTest.moc"
