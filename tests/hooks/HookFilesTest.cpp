// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/HookFiles.h"

#include "base/FileDescriptor.h"
#include "core/HookTraits.h"
#include "hookconfig/HookEntries.h"
#include "hookconfig/JsonDocument.h"
#include "support/OrdinaryUser.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;
using namespace Tarvik;

namespace {

constexpr auto maximumBytes = static_cast<qsizetype>(HookConfigFile::maximumBytes);
const QString toolPath = u"/opt/tarvik/Contents/SharedSupport/tarvik"_s;

const HookSpec& spec(const char* id)
{
    return *HookSpec::find(id);
}

QString configPath(const HookSpec& spec)
{
    return QString::fromUtf8(spec.configPath.data(), static_cast<qsizetype>(spec.configPath.size()));
}

void expectInvalid(const QString& name)
{
    expectLog(QtCriticalMsg,
        u"^hook config at "_s + QRegularExpression::escape(name) + u" is not valid JSON; refusing to touch it$"_s);
}

void expectWriteFailure(const QString& id, const QString& error)
{
    expectLog(QtCriticalMsg, u"^could not write hook config for "_s + id + u": "_s + error + u'$');
}

void expectRewrite(const QString& id)
{
    expectLog(QtInfoMsg, u"^hook config out of date for "_s + id + u"; rewriting$"_s);
}

/// Counts the errors that are logged in its lifetime.
class LoggedErrors {
public:
    LoggedErrors() { s_count = 0; }
    ~LoggedErrors() { qInstallMessageHandler(m_previous); }
    LoggedErrors(const LoggedErrors&) = delete;
    LoggedErrors& operator=(const LoggedErrors&) = delete;

    static int count() { return s_count; }

private:
    static inline int s_count = 0;
    QtMessageHandler m_previous = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString&) {
        if (type == QtCriticalMsg)
            ++s_count;
    });
};

/// Tells whether a file has been opened since the last time.
class FileOpenings {
public:
    explicit FileOpenings(const QString& path)
        : m_watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        inotify_add_watch(m_watch.get(), QFile::encodeName(path).constData(), IN_OPEN);
    }

    bool take() const
    {
        std::array<char, 4096> events{};
        return read(m_watch.get(), events.data(), events.size()) > 0;
    }

private:
    FileDescriptor m_watch;
};

} // namespace

class HookFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_directory = std::make_unique<QTemporaryDir>();
        QVERIFY(m_directory->isValid());
        m_files = std::make_unique<HookFiles>(home(), toolPath);
    }

    void anEmptyHomeHasNothingInstalled()
    {
        QCOMPARE(m_files->installedIds(), QSet<QString>());
        m_files->refreshOutdated();
        QCOMPARE(names(u"."_s), QStringList());
    }

    void installCreatesAMissingFileWithItsDirectories()
    {
        QVERIFY(m_files->install(spec("copilot")));
        const QJsonObject file = QJsonDocument::fromJson(contents(u".copilot/hooks/tarvik.json"_s)).object();
        QCOMPARE(file[u"version"_s], QJsonValue(1));
        const QJsonObject hooks = file[u"hooks"_s].toObject();
        QCOMPARE(hooks.keys(), QStringList({u"agentStop"_s, u"preToolUse"_s, u"userPromptSubmitted"_s}));
        for (const auto& event : hooks)
            QCOMPARE(event.toArray().size(), 1);
        QCOMPARE(names(u".copilot/hooks"_s), QStringList{u"tarvik.json"_s});
    }

    void theFileIsPrettyPrintedWithSortedKeys()
    {
        put(u".factory/hooks.json"_s, R"({"z":1.50,"a":"é"})");
        QVERIFY(m_files->install(spec("droid")));
        QVERIFY(m_files->uninstall(spec("droid")));
        QCOMPARE(contents(u".factory/hooks.json"_s), "{\n  \"a\": \"é\",\n  \"z\": 1.50\n}\n");
    }

    void aSecondInstallWritesTheSameBytes()
    {
        for (const HookSpec& each : HookSpec::all) {
            QVERIFY(m_files->install(each));
            const QByteArray once = contents(configPath(each));
            QVERIFY(m_files->install(each));
            QCOMPARE(contents(configPath(each)), once);
        }
        QCOMPARE(m_files->installedIds().size(), qsizetype(HookSpec::all.size()));
    }

    void theInstalledAgentsAreThoseWhoseFilesSaySo()
    {
        QVERIFY(m_files->install(spec("claude")));
        QVERIFY(HookFiles(home(), u"/elsewhere/tarvik"_s).install(spec("codex")));
        QVERIFY(m_files->install(spec("qwen")));
        QVERIFY(m_files->uninstall(spec("qwen")));
        QCOMPARE(m_files->installedIds(), QSet<QString>({u"claude"_s, u"codex"_s}));
    }

    void uninstallWithoutAFileSucceedsAndCreatesNone()
    {
        QVERIFY(m_files->uninstall(spec("claude")));
        QCOMPARE(names(u"."_s), QStringList());
    }

    void uninstallWritesAlsoWhenNothingChanges()
    {
        put(u".claude/settings.json"_s, "{}");
        QVERIFY(m_files->uninstall(spec("claude")));
        QCOMPARE(contents(u".claude/settings.json"_s), "{}\n");
    }

    void aZeroByteFileCountsAsMissing()
    {
        put(u".claude/settings.json"_s, "");
        QVERIFY(std::holds_alternative<HookConfigFile::Missing>(m_files->read(spec("claude"))));
        QVERIFY(m_files->uninstall(spec("claude")));
        QCOMPARE(contents(u".claude/settings.json"_s), "");
        QVERIFY(m_files->install(spec("claude")));
        QCOMPARE(m_files->installedIds(), QSet<QString>{u"claude"_s});
    }

    void aFileThatIsNoJsonObjectIsNeverTouched_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        for (const char* bytes :
            {"[]", "{", "{} trailing", " ", "\n", "null", "7", "\"text\"", "{\"a\":1,}", "// x\n{}"})
            QTest::newRow(bytes) << QByteArray(bytes);
        QTest::newRow("NUL") << QByteArray("{}\0", 3);
        QTest::newRow("the same key twice") << QByteArray(R"({"a":1,"a":2})");
        QTest::newRow("half a surrogate pair") << QByteArray(R"({"a":"\udc00"})");
        QTest::newRow("Latin-1") << QByteArray("{\"a\":\"\xE9\"}");
        QTest::newRow("UTF-16") << QByteArray("\xFF\xFE{\0}\0", 6);
        QTest::newRow("too deep") << "{\"a\":" + QByteArray(600, '[') + QByteArray(600, ']') + '}';
    }
    void aFileThatIsNoJsonObjectIsNeverTouched()
    {
        QFETCH(const QByteArray, bytes);
        put(u".claude/settings.json"_s, bytes);
        for (int read = 0; read < 5; ++read)
            expectInvalid(u"settings.json"_s);
        QVERIFY(std::holds_alternative<HookConfigFile::Invalid>(m_files->read(spec("claude"))));
        QVERIFY(!m_files->install(spec("claude")));
        QVERIFY(!m_files->uninstall(spec("claude")));
        m_files->refreshOutdated();
        QCOMPARE(m_files->installedIds(), QSet<QString>());
        QCOMPARE(contents(u".claude/settings.json"_s), bytes);
        QCOMPARE(names(u".claude"_s), QStringList{u"settings.json"_s});
    }

    void whoAsksAgainAndAgainHearsOfAnInvalidFileOnceEachTimeItBecomesSo()
    {
        const auto scan = [&] { return m_files->installedIds(); };
        QVERIFY(m_files->install(spec("codex")));
        put(u".claude/settings.json"_s, "[]");
        const LoggedErrors errors;
        for (int again = 0; again < 3; ++again)
            QCOMPARE(scan(), QSet<QString>{u"codex"_s});
        QCOMPARE(errors.count(), 1);
        // Another way to be invalid is no news; another file is, also one of the same name.
        put(u".claude/settings.json"_s, "{");
        put(u".gemini/settings.json"_s, "{");
        scan();
        QCOMPARE(errors.count(), 2);
        for (const QByteArray good : {"{}", ""}) {
            put(u".claude/settings.json"_s, good);
            scan();
            put(u".claude/settings.json"_s, "{");
            const int before = errors.count();
            scan();
            scan();
            QCOMPARE(errors.count(), before + 1);
        }
        // An edit that is refused is always told of.
        const int before = errors.count();
        QVERIFY(!m_files->install(spec("claude")));
        QCOMPARE(errors.count(), before + 1);
    }

    void aFileThatHasNotChangedIsNotReadAgain()
    {
        const QString name = u".claude/settings.json"_s;
        QVERIFY(m_files->install(spec("claude")));
        const QSet<QString> claude{u"claude"_s};
        const FileOpenings openings(path(name));
        QCOMPARE(m_files->installedIds(), claude);
        QVERIFY(openings.take());
        // It may still change within the same tick of the clock.
        const auto isRead = [&] { return m_files->installedIds() != claude || openings.take(); };
        QTRY_VERIFY_WITH_TIMEOUT(!isRead(), 10'000);
        QVERIFY(!isRead());

        QVERIFY(HookFiles(home(), toolPath).uninstall(spec("claude")));
        QCOMPARE(m_files->installedIds(), QSet<QString>());
        QVERIFY(m_files->install(spec("claude")));
        QCOMPARE(m_files->installedIds(), claude);
        QVERIFY(QFile::remove(path(name)));
        QCOMPARE(m_files->installedIds(), QSet<QString>());
    }

    void anotherFileOfTheSameSizeAndTimeIsAChange()
    {
        const QString name = u".claude/settings.json"_s;
        QVERIFY(m_files->install(spec("claude")));
        const QByteArray bytes = contents(name);
        const FileOpenings openings(path(name));
        QTRY_VERIFY_WITH_TIMEOUT(m_files->installedIds().contains(u"claude"_s) && !openings.take(), 10'000);
        struct stat before = {};
        QCOMPARE(stat(encoded(name), &before), 0);
        put(name, QByteArray(bytes).replace("PreToolUse", "NoToolUsed"));
        const std::array times{before.st_atim, before.st_mtim};
        QCOMPARE(utimensat(AT_FDCWD, encoded(name), times.data(), 0), 0);
        QCOMPARE(m_files->installedIds(), QSet<QString>());
    }

    void aFileBeyondAMebibyteIsNeverTouched()
    {
        const QByteArray bytes = "{\"a\":\"" + QByteArray(maximumBytes, 'x') + "\"}";
        put(u".qwen/settings.json"_s, bytes);
        expectInvalid(u"settings.json"_s);
        QVERIFY(!m_files->install(spec("qwen")));
        QCOMPARE(contents(u".qwen/settings.json"_s), bytes);
    }

    void aFileThatWouldGrowBeyondThatIsNotWritten()
    {
        const QByteArray bytes = "{\"a\":\"" + QByteArray(maximumBytes - 8, 'x') + "\"}";
        QCOMPARE(bytes.size(), maximumBytes);
        put(u".qwen/settings.json"_s, bytes);
        expectWriteFailure(u"qwen"_s, u"the file would become too large"_s);
        QVERIFY(!m_files->install(spec("qwen")));
        QCOMPARE(contents(u".qwen/settings.json"_s), bytes);
    }

    void aFileThatCannotBeReadIsNotOverwritten()
    {
        put(u".claude/settings.json"_s, "{\"precious\":1}");
        // Whoever owns the file may still write to it and to its directory.
        giveToOrdinaryUser(u".claude"_s);
        giveToOrdinaryUser(u".claude/settings.json"_s);
        QCOMPARE(chmod(encoded(u".claude/settings.json"_s), 0200), 0);
        {
            const OrdinaryUser user;
            QVERIFY(user.isSet());
            QVERIFY(std::holds_alternative<HookConfigFile::Missing>(m_files->read(spec("claude"))));
            expectWriteFailure(u"claude"_s, u"Permission denied"_s);
            QVERIFY(!m_files->install(spec("claude")));
            QVERIFY(m_files->uninstall(spec("claude")));
            QCOMPARE(m_files->installedIds(), QSet<QString>());
        }
        QCOMPARE(chmod(encoded(u".claude/settings.json"_s), 0600), 0);
        QCOMPARE(contents(u".claude/settings.json"_s), "{\"precious\":1}");
        QCOMPARE(names(u".claude"_s), QStringList{u"settings.json"_s});
    }

    void somethingElseInTheFilesPlaceIsLeftAlone_data()
    {
        QTest::addColumn<uint>("type");
        QTest::newRow("directory") << uint(S_IFDIR);
        QTest::newRow("named pipe") << uint(S_IFIFO);
        QTest::newRow("device") << uint(S_IFCHR);
    }
    void somethingElseInTheFilesPlaceIsLeftAlone()
    {
        QFETCH(const uint, type);
        QVERIFY(QDir(home()).mkdir(u".codex"_s));
        if (type == S_IFDIR)
            QCOMPARE(mkdir(encoded(u".codex/hooks.json"_s), 0700), 0);
        else if (type == S_IFIFO)
            QCOMPARE(mkfifo(encoded(u".codex/hooks.json"_s), 0600), 0);
        else
            QCOMPARE(symlink("/dev/zero", encoded(u".codex/hooks.json"_s)), 0);

        QVERIFY(std::holds_alternative<HookConfigFile::Missing>(m_files->read(spec("codex"))));
        expectWriteFailure(u"codex"_s, u"Not a regular file"_s);
        QVERIFY(!m_files->install(spec("codex")));
        QVERIFY(m_files->uninstall(spec("codex")));
        struct stat status = {};
        QCOMPARE(stat(encoded(u".codex/hooks.json"_s), &status), 0);
        QCOMPARE(uint(status.st_mode & S_IFMT), type);
        QCOMPARE(names(u".codex"_s), QStringList{u"hooks.json"_s});
    }

    void aFileInTheDirectorysPlaceIsAWriteFailure()
    {
        put(u".codex"_s, "not a directory");
        expectWriteFailure(u"codex"_s, u"Not a directory"_s);
        QVERIFY(!m_files->install(spec("codex")));
        QCOMPARE(contents(u".codex"_s), "not a directory");
    }

    void aDirectoryThatCannotBeWrittenToIsAWriteFailure()
    {
        put(u".gemini/settings.json"_s, "{\"a\":1}");
        QCOMPARE(chmod(encoded(u".gemini/settings.json"_s), 0666), 0);
        QCOMPARE(chmod(encoded(u".gemini"_s), 0555), 0);
        QCOMPARE(chmod(encoded(u"."_s), 0555), 0);
        {
            const OrdinaryUser user;
            QVERIFY(user.isSet());
            expectWriteFailure(u"gemini"_s, u"Permission denied"_s);
            QVERIFY(!m_files->install(spec("gemini")));
            expectWriteFailure(u"gemini"_s, u"Permission denied"_s);
            QVERIFY(!m_files->uninstall(spec("gemini")));
            expectWriteFailure(u"qwen"_s, u"Permission denied"_s);
            QVERIFY(!m_files->install(spec("qwen")));
        }
        QCOMPARE(chmod(encoded(u"."_s), 0755), 0);
        QCOMPARE(chmod(encoded(u".gemini"_s), 0755), 0);
        QCOMPARE(contents(u".gemini/settings.json"_s), "{\"a\":1}");
        QCOMPARE(names(u".gemini"_s), QStringList{u"settings.json"_s});
    }

    void linksOfADotfileStoreAreKept()
    {
        put(u"dotfiles/claude.json"_s, "{\"a\":1}");
        QVERIFY(QDir(home()).mkdir(u"dotfiles/codex"_s));
        QVERIFY(QDir(home()).mkdir(u".claude"_s));
        QVERIFY(QDir(home()).mkdir(u".qwen"_s));
        QCOMPARE(symlink("../dotfiles/claude.json", encoded(u".claude/settings.json"_s)), 0);
        QCOMPARE(symlink("dotfiles/codex", encoded(u".codex"_s)), 0);
        QCOMPARE(symlink("../dotfiles/qwen.json", encoded(u".qwen/settings.json"_s)), 0);
        for (const char* id : {"claude", "codex", "qwen"})
            QVERIFY(m_files->install(spec(id)));
        QVERIFY(QFileInfo(path(u".claude/settings.json"_s)).isSymLink());
        QVERIFY(QFileInfo(path(u".codex"_s)).isSymLink());
        QVERIFY(QFileInfo(path(u".qwen/settings.json"_s)).isSymLink());
        QVERIFY(contents(u"dotfiles/claude.json"_s).contains("\"a\": 1"));
        QCOMPARE(names(u"dotfiles"_s), QStringList({u"claude.json"_s, u"codex"_s, u"qwen.json"_s}));
        QCOMPARE(names(u"dotfiles/codex"_s), QStringList{u"hooks.json"_s});
    }

    void anExistingFileKeepsItsMode()
    {
        put(u".claude/settings.json"_s, "{}");
        QCOMPARE(chmod(encoded(u".claude/settings.json"_s), 0600), 0);
        QVERIFY(m_files->install(spec("claude")));
        struct stat status = {};
        QCOMPARE(stat(encoded(u".claude/settings.json"_s), &status), 0);
        QCOMPARE(status.st_mode & 07777U, 0600U);
    }

    void aToolPathThatAShellWouldInterpretIsAWriteFailure()
    {
        put(u".claude/settings.json"_s, "{}");
        expectWriteFailure(u"claude"_s, u"the path of the command-line tool cannot be quoted for a shell: .*"_s);
        QVERIFY(!HookFiles(home(), u"/home/\"x\"/tarvik"_s).install(spec("claude")));
        QCOMPARE(contents(u".claude/settings.json"_s), "{}");
    }

    void aToolPathInAnyScriptIsFine()
    {
        const QString path = u"/home/дом/Tarvik — ü/tarvik"_s;
        QVERIFY(HookFiles(home(), path).install(spec("claude")));
        QVERIFY(contents(u".claude/settings.json"_s).contains(path.toUtf8()));
        const ino_t before = identity(u".claude/settings.json"_s);
        HookFiles(home(), path).refreshOutdated();
        QCOMPARE(identity(u".claude/settings.json"_s), before);
    }

    void refreshRewritesEntriesOfAToolThatHasMoved()
    {
        for (const HookSpec& each : HookSpec::all) {
            QVERIFY(HookFiles(home(), u"/old/tarvik"_s).install(each));
            expectRewrite(QString::fromUtf8(each.id.data()));
        }
        m_files->refreshOutdated();
        for (const HookSpec& each : HookSpec::all) {
            QVERIFY(!contents(configPath(each)).contains("/old/tarvik"));
            QVERIFY(contents(configPath(each)).contains(toolPath.toUtf8()));
        }
    }

    void refreshDoesNotWriteWhatIsUpToDate()
    {
        QList<ino_t> before;
        for (const HookSpec& each : HookSpec::all) {
            QVERIFY(m_files->install(each));
            before.append(identity(configPath(each)));
        }
        m_files->refreshOutdated();
        for (const HookSpec& each : HookSpec::all)
            QCOMPARE(identity(configPath(each)), before.takeFirst());
    }

    void refreshRepairsALostEndEvent()
    {
        QVERIFY(m_files->install(spec("claude")));
        const QByteArray whole = contents(u".claude/settings.json"_s);
        auto document = *JsonDocument::parse(whole.toStdString());
        document.object()->at("hooks").object()->erase("StopFailure");
        put(u".claude/settings.json"_s, QByteArray::fromStdString(*JsonDocument::print(document, 1'000'000)));
        QCOMPARE(m_files->installedIds(), QSet<QString>{u"claude"_s});
        expectRewrite(u"claude"_s);
        m_files->refreshOutdated();
        QCOMPARE(contents(u".claude/settings.json"_s), whole);
    }

    void refreshRewritesAFileWithAForeignFirstHookEachTimeToTheSameBytes()
    {
        put(u".claude/settings.json"_s, R"({"hooks":{"UserPromptSubmit":[{"hooks":[{"command":"x"}]}]}})");
        QVERIFY(m_files->install(spec("claude")));
        const QByteArray once = contents(u".claude/settings.json"_s);
        for (int start = 0; start < 2; ++start) {
            expectRewrite(u"claude"_s);
            m_files->refreshOutdated();
            QCOMPARE(contents(u".claude/settings.json"_s), once);
        }
    }

    void refreshLeavesAloneWhatWasNotInstalled()
    {
        const QByteArray foreign = R"({"hooks":{"UserPromptSubmit":[{"hooks":[{"command":"x"}]}]}})";
        put(u".claude/settings.json"_s, foreign);
        put(u".qwen/settings.json"_s, "{}");
        m_files->refreshOutdated();
        QCOMPARE(contents(u".claude/settings.json"_s), foreign);
        QCOMPARE(contents(u".qwen/settings.json"_s), "{}");
    }

    void refreshGoesOnAfterAFailure()
    {
        QVERIFY(HookFiles(home(), u"/old/tarvik"_s).install(spec("claude")));
        QVERIFY(HookFiles(home(), u"/old/tarvik"_s).install(spec("codex")));
        giveToOrdinaryUser(u".codex"_s);
        giveToOrdinaryUser(u".codex/hooks.json"_s);
        QCOMPARE(chmod(encoded(u".claude/settings.json"_s), 0444), 0);
        {
            const OrdinaryUser user;
            QVERIFY(user.isSet());
            QCOMPARE(m_files->installedIds().size(), 2);
            expectRewrite(u"claude"_s);
            expectWriteFailure(u"claude"_s, u"Permission denied"_s);
            expectRewrite(u"codex"_s);
            m_files->refreshOutdated();
        }
        QVERIFY(contents(u".claude/settings.json"_s).contains("/old/tarvik"));
        QVERIFY(contents(u".codex/hooks.json"_s).contains(toolPath.toUtf8()));
    }

    void randomDocumentsSurviveInstallAndUninstall()
    {
        QRandomGenerator random(20261120);
        for (int round = 0; round < 90; ++round) {
            const HookSpec& each = HookSpec::all[static_cast<std::size_t>(round) % HookSpec::all.size()];
            const QByteArray original = randomFile(random, each);
            const auto before = JsonDocument::parse(original.toStdString());
            QVERIFY2(before.has_value(), original.constData());
            put(configPath(each), original);
            QVERIFY(m_files->install(each));
            QVERIFY(m_files->installedIds().contains(QString::fromUtf8(each.id.data())));
            QVERIFY(HookFiles(home(), u"/moved/tarvik"_s).install(each));
            QVERIFY(m_files->uninstall(each));
            const QByteArray after = contents(configPath(each));
            QVERIFY2(JsonDocument::parse(after.toStdString()) == before, original.constData());
            // The same in the eyes of another reader.
            QCOMPARE(QJsonDocument::fromJson(after), QJsonDocument::fromJson(original));
        }
    }

private:
    /// Another one after each time that the file was written.
    ino_t identity(const QString& name)
    {
        struct stat status = {};
        return stat(encoded(name), &status) == 0 ? status.st_ino : 0;
    }

    static QByteArray randomText(QRandomGenerator& random)
    {
        static const QList<QByteArray> pieces{"a",
            "Z",
            " ",
            "é",
            "€",
            "😀",
            "\\n",
            "\\\"",
            "\\\\",
            "\\/",
            "\\u0000",
            "\\u00e9",
            "\\ud83d\\ude00",
            "\\t",
            "tarvik",
            "/",
            "\x7f"};
        QByteArray text = "\"";
        for (auto left = random.bounded(6); left > 0; --left)
            text += pieces[random.bounded(int(pieces.size()))];
        return text + '"';
    }

    static QByteArray randomNumber(QRandomGenerator& random)
    {
        QByteArray number = random.bounded(2) == 0 ? "-" : "";
        number += QByteArray::number(random.bounded(1, 10));
        for (auto left = random.bounded(40); left > 0; --left)
            number += QByteArray::number(random.bounded(10));
        if (random.bounded(2) == 0)
            number += '.' + QByteArray::number(random.generate64());
        if (random.bounded(3) == 0)
            number += (random.bounded(2) == 0 ? "e-" : "E+") + QByteArray::number(random.bounded(60));
        return number;
    }

    static QByteArray randomValue(QRandomGenerator& random, int depth = 0)
    {
        switch (random.bounded(depth < 5 ? 7 : 5)) {
        case 0:
            return "null";
        case 1:
            return random.bounded(2) == 0 ? "true" : "false";
        case 2:
            return randomNumber(random);
        case 3:
        case 4:
            return randomText(random);
        case 5: {
            QByteArrayList elements;
            for (auto left = random.bounded(4); left > 0; --left)
                elements.append(randomValue(random, depth + 1));
            return '[' + elements.join(", ") + ']';
        }
        default: {
            QByteArrayList members;
            for (int key = random.bounded(4); key > 0; --key)
                members.append(uniqueKey(randomText(random), key) + ":\t" + randomValue(random, depth + 1));
            return '{' + members.join(" ,\n") + '}';
        }
        }
    }

    static QByteArray uniqueKey(const QByteArray& text, int number)
    {
        return text.chopped(1) + QByteArray::number(number) + '"';
    }

    /// Foreign hooks as an agent's user may have them.
    static QByteArray randomEvent(QRandomGenerator& random, const HookSpec& spec)
    {
        QByteArrayList elements;
        for (auto left = random.bounded(1, 4); left > 0; --left) {
            const QByteArray entry = "{\"type\":\"command\",\"command\":" + randomText(random)
                + ",\"timeout\":" + randomNumber(random) + ",\"extra\":" + randomValue(random) + '}';
            elements.append(spec.shape == HookConfig::Shape::flatList
                    ? entry
                    : "{\"matcher\":" + randomText(random) + ",\"hooks\":[" + entry + "]}");
        }
        return '[' + elements.join(',') + ']';
    }

    static QByteArray randomFile(QRandomGenerator& random, const HookSpec& spec)
    {
        QByteArrayList members{"\"version\":" + randomNumber(random)};
        for (int key = random.bounded(6); key > 0; --key)
            members.append(uniqueKey(randomText(random), key) + ':' + randomValue(random));
        QByteArrayList events;
        for (const auto event : {spec.startEvents[0], spec.endEvents[0], std::string_view("Notification")}) {
            const QByteArray key(event.data(), static_cast<qsizetype>(event.size()));
            if (random.bounded(2) == 0)
                events.append('"' + key + "\":" + randomEvent(random, spec));
            if (HookTraits::of(spec.id).readsTopLevel && random.bounded(2) == 0)
                members.append('"' + key + "\":" + randomEvent(random, spec));
        }
        if (!events.isEmpty())
            members.append("\"hooks\":{" + events.join(',') + '}');
        return '{' + members.join(',') + '}';
    }

    QString home() const { return m_directory->path(); }
    QString path(const QString& name) const { return m_directory->filePath(name); }

    /// Valid until the next call.
    const char* encoded(const QString& name)
    {
        m_encoded = QFile::encodeName(path(name));
        return m_encoded.constData();
    }

    void put(const QString& name, const QByteArray& bytes) const
    {
        QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    QByteArray contents(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be opened)");
    }

    QStringList names(const QString& directory) const
    {
        return QDir(path(directory)).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    /// Where the tests run as root, which no permission holds back.
    void giveToOrdinaryUser(const QString& name)
    {
        QCOMPARE(chmod(encoded(u"."_s), 0755), 0);
        if (geteuid() == 0)
            QCOMPARE(chown(encoded(name), OrdinaryUser::id, OrdinaryUser::id), 0);
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<HookFiles> m_files;
    QByteArray m_encoded;
};

QTEST_GUILESS_MAIN(HookFilesTest)
#include "HookFilesTest.moc"
