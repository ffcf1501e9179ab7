// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/JsonFileSettingsStore.h"

#include "core/AppSettings.h"
#include "support/OrdinaryUser.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class JsonFileSettingsStoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_directory = std::make_unique<QTemporaryDir>();
    }

    void aMissingFileIsAnEmptyStoreAndCreatesNoFile()
    {
        const JsonFileSettingsStore store(path());
        QVERIFY(!store.contains(u"isEnabled"_s));
        QVERIFY(!QFile::exists(path()));
    }

    void everyTypeSurvivesARestartAndIsNoOther()
    {
        const QByteArray bytes("\x00\xff[{\"id\"", 8);
        {
            JsonFileSettingsStore store(path());
            store.setBoolean(u"flag"_s, false);
            store.setInteger(u"number"_s, qint64{1} << 62);
            store.setString(u"text"_s, u"20 \U0001F319"_s);
            store.setData(u"bytes"_s, bytes);
        }
        const JsonFileSettingsStore store(path());
        QCOMPARE(store.boolean(u"flag"_s), false);
        QCOMPARE(store.integer(u"number"_s), qint64{1} << 62);
        QCOMPARE(store.string(u"text"_s), u"20 \U0001F319"_s);
        QCOMPARE(store.data(u"bytes"_s), bytes);
        for (const QString& key : {u"flag"_s, u"number"_s, u"text"_s, u"bytes"_s}) {
            QVERIFY(store.contains(key));
            const int types = store.boolean(key).has_value() + store.integer(key).has_value()
                + store.string(key).has_value() + store.data(key).has_value();
            QCOMPARE(types, 1);
        }
    }

    void aNumberThatIsNotWholeIsNoInteger()
    {
        writeFile(R"({"half": 20.5, "huge": 1e300, "text": "20", "null": null, "list": [20]})");
        const JsonFileSettingsStore store(path());
        for (const QString& key : {u"half"_s, u"huge"_s, u"text"_s, u"null"_s, u"list"_s, u"absent"_s})
            QVERIFY(!store.integer(key));
        QVERIFY(store.contains(u"null"_s));
    }

    void theFileAndItsDirectoryArePrivate()
    {
        JsonFileSettingsStore store(path());
        store.setBoolean(u"flag"_s, true);
        struct stat status = {};
        QCOMPARE(stat(QFile::encodeName(path()).constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777, 0600U);
        QCOMPARE(stat(QFile::encodeName(directory()).constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777, 0700U);
    }

    void membersThatNobodyKnowsAreKept()
    {
        writeFile(R"({"future": {"a": [1, 2.5, null]}, "isEnabled": true})");
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, false);
        QCOMPARE(readObject()[u"future"_s].toObject(), (QJsonDocument::fromJson(R"({"a": [1, 2.5, null]})").object()));
        QCOMPARE(readObject()[u"isEnabled"_s], QJsonValue(false));
    }

    void aBrokenFileIsKeptBesideTheNewOne_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("truncated") << QByteArray(R"({"isEnabled": tr)");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("not JSON") << QByteArray("isEnabled=1");
        QTest::newRow("not an object") << QByteArray("[true]");
        QTest::newRow("trailing rubbish") << QByteArray(R"({"isEnabled": true}})");
        QTest::newRow("not UTF-8") << QByteArray("{\"a\": \"\xff\"}");
        QTest::newRow("binary") << QByteArray(4096, '\0');
        QTest::newRow("very deep") << QByteArray(100'000, '[');
        QTest::newRow("very long") << QByteArray(17 * 1024 * 1024, ' ');
    }

    void aBrokenFileIsKeptBesideTheNewOne()
    {
        QFETCH(QByteArray, content);
        writeFile(content);
        expectLog(QtWarningMsg, u"settings\\.json cannot be read .*; it is kept as .*\\.unreadable-"_s);
        JsonFileSettingsStore store(path());
        QVERIFY(!store.contains(u"isEnabled"_s));
        store.setBoolean(u"isEnabled"_s, false);
        QCOMPARE(JsonFileSettingsStoreTest::readObject()[u"isEnabled"_s], QJsonValue(false));
        const QStringList aside = namesLike(u"settings.json.unreadable-*"_s);
        QCOMPARE(aside.size(), 1);
        QFile kept(directory() + u'/' + aside.first());
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), content);
    }

    void whatIsNoFileIsSetAsideWithoutWaitingForIt_data()
    {
        QTest::addColumn<bool>("isDirectory");
        QTest::newRow("directory") << true;
        QTest::newRow("named pipe") << false;
    }

    void whatIsNoFileIsSetAsideWithoutWaitingForIt()
    {
        QFETCH(bool, isDirectory);
        QVERIFY(QDir().mkpath(directory()));
        if (isDirectory)
            QVERIFY(QDir().mkpath(path() + u"/inner"_s));
        else
            QCOMPARE(mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
        expectLog(QtWarningMsg, u"cannot be read \\(not a regular file\\); it is kept as"_s);
        JsonFileSettingsStore store(path());
        store.setInteger(u"batteryThreshold"_s, 30);
        QCOMPARE(readObject()[u"batteryThreshold"_s], QJsonValue(30));
        QCOMPARE(namesLike(u"settings.json.unreadable-*"_s).size(), 1);
    }

    void twoBrokenFilesInOneSecondAreBothKept()
    {
        for (int i = 0; i < 2; ++i) {
            writeFile("rubbish");
            expectLog(QtWarningMsg, u"it is kept as"_s);
            const JsonFileSettingsStore store(path());
        }
        QCOMPARE(namesLike(u"settings.json.unreadable-*"_s).size(), 2);
    }

    void aSymbolicLinkIsFollowedAndKept()
    {
        QVERIFY(QDir().mkpath(directory()));
        const QString target = m_directory->filePath(u"dotfiles.json"_s);
        QVERIFY(QFile::link(target, path()));
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, false);
        QVERIFY(QFileInfo(path()).isSymLink());
        QVERIFY(QFile::exists(target));
        QCOMPARE(readObject()[u"isEnabled"_s], QJsonValue(false));
    }

    void aBrokenFileBehindALinkIsSetAsideWhereItLies()
    {
        QVERIFY(QDir().mkpath(directory()));
        const QString target = m_directory->filePath(u"dotfiles.json"_s);
        QFile file(target);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("rubbish") == 7);
        file.close();
        QVERIFY(QFile::link(target, path()));
        expectLog(QtWarningMsg, u"it is kept as .*dotfiles\\.json\\.unreadable-"_s);
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, true);
        QVERIFY(QFileInfo(path()).isSymLink());
        QCOMPARE(readObject()[u"isEnabled"_s], QJsonValue(true));
    }

    void aSecondStoreReadsButDoesNotWrite()
    {
        JsonFileSettingsStore first(path());
        first.setBoolean(u"isEnabled"_s, false);
        expectLog(QtWarningMsg, u"is in use by another Tarvik; changes are kept in memory only$"_s);
        JsonFileSettingsStore second(path());
        QCOMPARE(second.boolean(u"isEnabled"_s), false);
        second.setBoolean(u"isEnabled"_s, true);
        QCOMPARE(second.boolean(u"isEnabled"_s), true);
        QCOMPARE(readObject()[u"isEnabled"_s], QJsonValue(false));
    }

    void aSecondStoreLeavesABrokenFileToTheFirst()
    {
        const JsonFileSettingsStore first(path());
        writeFile("rubbish");
        expectLog(QtWarningMsg, u"in use by another Tarvik"_s);
        expectLog(QtWarningMsg, u"and is left as it is; changes are kept in memory only$"_s);
        const JsonFileSettingsStore second(path());
        QVERIFY(QFile::exists(path()));
        QVERIFY(namesLike(u"settings.json.unreadable-*"_s).isEmpty());
    }

    void anEditByHandSurvivesTheNextChange()
    {
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, false);
        writeFile(R"({"isEnabled": true, "requireAC": true, "mine": "kept"})");
        store.setInteger(u"batteryThreshold"_s, 50);
        QCOMPARE(readObject(),
            QJsonDocument::fromJson(R"({"isEnabled": true, "requireAC": true, "mine": "kept", "batteryThreshold": 50})")
                .object());
    }

    void anEditThatBrokeTheFileIsSetAsideAndTheSettingsAreWrittenAnew()
    {
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, false);
        writeFile(R"({"isEnabled": )");
        expectLog(QtWarningMsg, u"it is kept as"_s);
        store.setInteger(u"batteryThreshold"_s, 50);
        QCOMPARE(readObject(), QJsonDocument::fromJson(R"({"isEnabled": false, "batteryThreshold": 50})").object());
    }

    void aFileThatWasRemovedIsWrittenAnew()
    {
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, false);
        QVERIFY(QFile::remove(path()));
        store.setInteger(u"batteryThreshold"_s, 50);
        QCOMPARE(readObject(), QJsonDocument::fromJson(R"({"isEnabled": false, "batteryThreshold": 50})").object());
    }

    void whatSomebodyElseWritesIsTakenOverAtOnce_data()
    {
        QTest::addColumn<QString>("how");
        for (const char* how : {"in place", "renamed", "removed first", "linked", "directory replaced"})
            QTest::newRow(how) << QString::fromLatin1(how);
    }

    void whatSomebodyElseWritesIsTakenOverAtOnce()
    {
        QFETCH(QString, how);
        writeFile(R"({"isEnabled": true, "mine": 1})");
        JsonFileSettingsStore store(path());
        store.setInteger(u"batteryThreshold"_s, 30);
        follow(store);
        const QByteArray edited = R"({"isEnabled": false})";
        if (how == u"in place"_s) {
            writeFile(edited);
        } else if (how == u"directory replaced"_s) {
            QVERIFY(QDir().rename(directory(), directory() + u"-before"_s));
            writeFile(edited);
        } else {
            QFile other(m_directory->filePath(u"dotfiles.json"_s));
            QVERIFY(other.open(QIODevice::WriteOnly) && other.write(edited) == edited.size());
            other.close();
            if (how == u"removed first"_s) {
                QVERIFY(QFile::remove(path()));
                QCoreApplication::processEvents();
                QCOMPARE(m_news, 0);
            }
            if (how == u"linked"_s) {
                QVERIFY(QFile::link(other.fileName(), path() + u".new"_s));
                QCOMPARE(std::rename(
                             QFile::encodeName(path() + u".new"_s).constData(), QFile::encodeName(path()).constData()),
                    0);
            } else {
                QCOMPARE(
                    std::rename(QFile::encodeName(other.fileName()).constData(), QFile::encodeName(path()).constData()),
                    0);
            }
        }
        QCoreApplication::processEvents();
        QCOMPARE(m_news, 1);
        QCOMPARE(store.boolean(u"isEnabled"_s), false);
        QVERIFY(!store.contains(u"batteryThreshold"_s));
        store.setBoolean(u"requireAC"_s, true);
        QCOMPARE(readObject(), QJsonDocument::fromJson(R"({"isEnabled": false, "requireAC": true})").object());
    }

    void itsOwnWritesAreNoNews()
    {
        JsonFileSettingsStore store(path());
        follow(store);
        for (int number = 0; number < 3; ++number) {
            store.setInteger(u"batteryThreshold"_s, number);
            QCoreApplication::processEvents();
        }
        QCOMPARE(m_news, 0);
        const QByteArray bytes = QJsonDocument(readObject()).toJson();
        writeFile(bytes);
        QCoreApplication::processEvents();
        QCOMPARE(m_news, 0);
    }

    void whatTheNextChangeFindsEditedIsNewsToo()
    {
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, true);
        follow(store);
        writeFile(R"({"isEnabled": false, "requireAC": true})");
        store.setBoolean(u"isEnabled"_s, true);
        QCOMPARE(m_news, 1);
        QCOMPARE(store.boolean(u"requireAC"_s), true);
        QCOMPARE(store.boolean(u"isEnabled"_s), true);
        QCoreApplication::processEvents();
        QCOMPARE(m_news, 1);
    }

    void aFileThatSomebodyBreaksIsLeftAloneUntilItIsMended()
    {
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, false);
        follow(store);
        writeFile(R"({"isEnabled": tr)");
        expectLog(QtWarningMsg, u"settings\\.json cannot be read \\(.+\\); the settings stay as they are$"_s);
        QCoreApplication::processEvents();
        QCOMPARE(m_news, 0);
        QCOMPARE(store.boolean(u"isEnabled"_s), false);
        QVERIFY(namesLike(u"settings.json.unreadable-*"_s).isEmpty());
        writeFile(R"({"isEnabled": true})");
        QCoreApplication::processEvents();
        QCOMPARE(m_news, 1);
        QCOMPARE(store.boolean(u"isEnabled"_s), true);
    }

    void aFileThatIsEmptyBeforeItIsWrittenIsNotReported()
    {
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, false);
        follow(store);
        writeFile({});
        QCoreApplication::processEvents();
        QCOMPARE(store.boolean(u"isEnabled"_s), false);
        writeFile(R"({"isEnabled": true})");
        QCoreApplication::processEvents();
        QCOMPARE(store.boolean(u"isEnabled"_s), true);
    }

    void aFileThatCouldNotBeSetAsideIsUsedAgainWhenItIsMended()
    {
        QVERIFY(QDir().mkpath(m_directory->filePath(u"elsewhere"_s)));
        const QString elsewhere = m_directory->filePath(u"elsewhere/dotfiles.json"_s);
        QFile file(elsewhere);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("rubbish") == 7);
        file.close();
        QVERIFY(QDir().mkpath(directory()));
        QVERIFY(QFile::link(elsewhere, path()));
        for (const QString& each : {m_directory->path(), directory(), m_directory->filePath(u"config"_s), elsewhere})
            QVERIFY(QFile::setPermissions(each, QFile::Permissions(0x7777)));
        QVERIFY(QFile::setPermissions(m_directory->filePath(u"elsewhere"_s), QFile::Permissions(0x5555)));
        const OrdinaryUser user;
        expectLog(QtWarningMsg, u"and is left as it is; changes are kept in memory only$"_s);
        JsonFileSettingsStore store(path());
        follow(store);
        writeFile(R"({"isEnabled": false})");
        QCoreApplication::processEvents();
        QCOMPARE(store.boolean(u"isEnabled"_s), false);
    }

    void aFileThatIsRemovedChangesNothing()
    {
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, false);
        follow(store);
        QVERIFY(QFile::remove(path()));
        QCoreApplication::processEvents();
        QCOMPARE(m_news, 0);
        QCOMPARE(store.boolean(u"isEnabled"_s), false);
    }

    void aSecondStoreDoesNotFollow()
    {
        JsonFileSettingsStore first(path());
        first.setBoolean(u"isEnabled"_s, false);
        expectLog(QtWarningMsg, u"is in use by another Tarvik; changes are kept in memory only$"_s);
        JsonFileSettingsStore second(path());
        second.setBoolean(u"requireAC"_s, true);
        follow(second);
        writeFile(R"({"isEnabled": true})");
        QCoreApplication::processEvents();
        QCOMPARE(m_news, 0);
        QCOMPARE(second.boolean(u"requireAC"_s), true);
        QCOMPARE(first.boolean(u"isEnabled"_s), true);
    }

    void inAReadOnlyDirectoryChangesStayInMemoryAndAreReportedOnce()
    {
        QVERIFY(QDir().mkpath(directory()));
        QVERIFY(QFile::setPermissions(m_directory->path(), QFile::Permissions(0x7755)));
        QVERIFY(QFile::setPermissions(
            directory(), QFile::ReadOther | QFile::ExeOther | QFile::ReadOwner | QFile::ExeOwner));
        const OrdinaryUser user;
        expectLog(QtWarningMsg, u"settings\\.json cannot be written: Permission denied$"_s);
        JsonFileSettingsStore store(path());
        store.setBoolean(u"isEnabled"_s, false);
        store.setBoolean(u"isEnabled"_s, false);
        QCOMPARE(store.boolean(u"isEnabled"_s), false);
        QVERIFY(!QFile::exists(path()));
    }

    void unfinishedFilesOfAKilledProcessAreRemoved()
    {
        QVERIFY(QDir().mkpath(directory()));
        QFile left(directory() + u"/.tarvik-123"_s);
        QVERIFY(left.open(QIODevice::WriteOnly));
        const JsonFileSettingsStore store(path());
        QVERIFY(namesLike(u".tarvik-*"_s).isEmpty());
    }

    void aKilledWriterLeavesTheOldOrTheNewFile()
    {
        {
            JsonFileSettingsStore store(path());
            store.setInteger(u"batteryThreshold"_s, 0);
        }
        for (int round = 0; round < 20; ++round) {
            const pid_t child = fork();
            if (child == 0) {
                JsonFileSettingsStore store(path());
                store.setData(u"journal"_s, QByteArray(50'000, 'x'));
                for (int i = 1;; ++i)
                    store.setInteger(u"batteryThreshold"_s, i);
            }
            // Any moment will do; which one it is differs from round to round.
            usleep(static_cast<useconds_t>(2'000 + round * 700));
            kill(child, SIGKILL);
            QCOMPARE(waitpid(child, nullptr, 0), child);
            const JsonFileSettingsStore store(path());
            QVERIFY(store.integer(u"batteryThreshold"_s).has_value());
        }
    }

    void everyKindOfRubbishStillYieldsSettings()
    {
        writeFile(R"({"isEnabled": "no", "batteryThreshold": "35", "allowlist": {"data": "%%%"}, "journal": 5,
                      "keepDisplayAwake": 1, "pauseWhenHot": null, "notifyOnPause": {"data": ""}})");
        JsonFileSettingsStore store(path());
        const AppSettings settings(store);
        QCOMPARE(settings.isEnabled(), true);
        QCOMPARE(settings.batteryThreshold(), 20);
        QVERIFY(settings.allowlist().isEmpty());
        QCOMPARE(settings.keepDisplayAwake(), false);
        QCOMPARE(settings.pauseWhenHot(), true);
        QCOMPARE(settings.notifyOnPause(), true);
        QVERIFY2(!settings.clamshellEnabled(), "an allow-list that cannot be read is still an existing installation's");
    }

private:
    QString directory() const { return m_directory->filePath(u"config/tarvik"_s); }
    QString path() const { return directory() + u"/settings.json"_s; }

    void writeFile(const QByteArray& content)
    {
        QVERIFY(QDir().mkpath(directory()));
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    QJsonObject readObject() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    }

    /// Counts the news of the store from now on.
    void follow(JsonFileSettingsStore& store)
    {
        QCoreApplication::processEvents();
        m_news = 0;
        m_following = store.changed.subscribe([this] { ++m_news; });
    }

    QStringList namesLike(const QString& pattern) const
    {
        return QDir(directory()).entryList({pattern}, QDir::AllEntries | QDir::Hidden | QDir::System);
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    Subscription m_following;
    int m_news = 0;
};

QTEST_GUILESS_MAIN(JsonFileSettingsStoreTest)
#include "JsonFileSettingsStoreTest.moc"
