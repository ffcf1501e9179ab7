// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/HooksMirror.h"

#include "bus/ServedTarvik.h"
#include "support/TestSupport.h"
#include "ui/mirror/MirrorTestSupport.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class HooksMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void hooksAreInstalledAndRemoved()
    {
        ServedTarvik tarvik;
        HooksMirror hooks(m_client);
        QTRY_VERIFY(hooks.isConnected());
        QCOMPARE(hooks.installedIds(), QStringList());
        QSignalSpy changed(&hooks, &HooksMirror::changed);
        hooks.install(u"copilot"_s);
        QTRY_COMPARE(changed.size(), 1);
        QCOMPARE(changed[0], (QVariantList{u"copilot"_s, true}));
        QTRY_COMPARE(hooks.installedIds(), QStringList{u"copilot"_s});
        QVERIFY(QFile::exists(tarvik.machine.home.filePath(u".copilot/hooks/tarvik.json"_s)));
        hooks.uninstall(u"copilot"_s);
        QTRY_COMPARE(hooks.installedIds(), QStringList());
        QCOMPARE(changed.last(), (QVariantList{u"copilot"_s, true}));
    }

    void hooksOfAFileThatCannotBeReadAreRefusedUntilItIsMended()
    {
        ServedTarvik tarvik;
        HooksMirror hooks(m_client);
        QTRY_VERIFY(hooks.isConnected());
        QDir(tarvik.machine.home.path()).mkdir(u".claude"_s);
        const QString path = tarvik.machine.home.filePath(u".claude/settings.json"_s);
        QVERIFY(writeFile(path, "{ broken"));
        QSignalSpy changed(&hooks, &HooksMirror::changed);
        // For the installation, and whenever the ids are read again.
        for (int reading = 0; reading < 2; ++reading)
            expectLog(QtCriticalMsg, u"^hook config at settings.json is not valid JSON; refusing to touch it$"_s);
        hooks.install(u"claude"_s);
        QTRY_COMPARE(changed.size(), 1);
        QCOMPARE(changed[0], (QVariantList{u"claude"_s, false}));
        settle(m_client);
        QCOMPARE(hooks.installedIds(), QStringList());
        QVERIFY(writeFile(path, "{}"));
        hooks.install(u"claude"_s);
        QTRY_COMPARE(hooks.installedIds(), QStringList{u"claude"_s});
        QCOMPARE(changed.last(), (QVariantList{u"claude"_s, true}));
    }

    void hooksThatOthersRemovedAreSeenWhenTheListIsRefreshed()
    {
        ServedTarvik tarvik;
        HooksMirror hooks(m_client);
        hooks.install(u"codex"_s);
        QTRY_COMPARE(hooks.installedIds(), QStringList{u"codex"_s});
        QVERIFY(QFile::remove(tarvik.machine.home.filePath(u".codex/hooks.json"_s)));
        hooks.refresh();
        QTRY_COMPARE(hooks.installedIds(), QStringList());
    }

    void theLastEventsAreToldAsTheyCome()
    {
        ServedTarvik tarvik;
        HooksMirror hooks(m_client);
        QTRY_VERIFY(hooks.isConnected());
        QCOMPARE(hooks.lastEvents(), QVariantMap());
        tarvik.machine.hook({{u"action"_s, u"acquire"_s}, {u"session"_s, u"s"_s}, {u"tool"_s, u"codex"_s}});
        QTRY_COMPARE(hooks.lastEvents().keys(), QStringList{u"codex"_s});
        const auto now
            = std::chrono::duration_cast<std::chrono::milliseconds>(tarvik.machine.clock.now().time_since_epoch());
        QCOMPARE(hooks.lastEvents()[u"codex"_s].toDateTime(), QDateTime::fromMSecsSinceEpoch(now.count()));
        // Nothing has come of a hook that is installed just now.
        hooks.install(u"codex"_s);
        QTRY_COMPARE(hooks.lastEvents(), QVariantMap());
    }

    void aHookThatCannotBeInstalledKeepsItsLastEvent()
    {
        ServedTarvik tarvik;
        HooksMirror hooks(m_client);
        QTRY_VERIFY(hooks.isConnected());
        QVERIFY(QDir(tarvik.machine.home.path()).mkpath(u".codex/hooks.json"_s));
        tarvik.machine.hook({{u"action"_s, u"acquire"_s}, {u"session"_s, u"s"_s}, {u"tool"_s, u"codex"_s}});
        QSignalSpy changed(&hooks, &HooksMirror::changed);
        expectLog(QtCriticalMsg, u"^could not write hook config for codex: Not a regular file$"_s);
        hooks.install(u"codex"_s);
        QTRY_COMPARE(changed.size(), 1);
        settle(m_client);
        QCOMPARE(hooks.lastEvents().keys(), QStringList{u"codex"_s});
    }

    void hooksOfAnUnknownAgentFail()
    {
        ServedTarvik tarvik;
        HooksMirror hooks(m_client);
        QSignalSpy changed(&hooks, &HooksMirror::changed);
        expectLog(QtWarningMsg, u"^Install failed: There are no hooks for an agent \"nobody\"\\.$"_s);
        hooks.install(u"nobody"_s);
        QTRY_COMPARE(changed.size(), 1);
        QCOMPARE(changed[0], (QVariantList{u"nobody"_s, false}));
        settle(m_client);
    }

    void theAgentsAreListedInTheirOrder()
    {
        const HooksMirror hooks(m_client);
        QCOMPARE(hooks.agents().size(), 6);
        const QVariantMap first = hooks.agents().constFirst().toMap();
        QCOMPARE(first[u"id"_s], u"claude"_s);
        QCOMPARE(first[u"label"_s], u"Claude Code"_s);
        QCOMPARE(first[u"configPath"_s], u".claude/settings.json"_s);
    }

private:
    static bool writeFile(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(HooksMirrorTest)
#include "HooksMirrorTest.moc"
