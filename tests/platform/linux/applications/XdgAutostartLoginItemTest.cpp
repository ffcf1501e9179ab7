// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/XdgAutostartLoginItem.h"

#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class XdgAutostartLoginItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_directory = std::make_unique<QTemporaryDir>();
        QVERIFY(m_directory->isValid());
        write(program(), "#!/bin/sh\n");
        QVERIFY(QFile::setPermissions(program(), QFile::ReadOwner | QFile::ExeOwner));
    }

    void isOffByDefault() { QVERIFY(!item().isEnabled()); }

    void registeringWritesAnEntryThatStartsTheProgram()
    {
        QCOMPARE(item().registerItem(), std::nullopt);
        QVERIFY(item().isEnabled());
        QCOMPARE(read(userEntry()),
            "[Desktop Entry]\n"
            "Type=Application\n"
            "Name=Tarvik\n"
            "Exec=\""
                + program().toUtf8()
                + "\" --autostart\n"
                  "TryExec="
                + program().toUtf8()
                + "\n"
                  "Icon=com.morvanta.Tarvik\n"
                  "X-GNOME-Autostart-enabled=true\n"
                  "X-LXQt-Need-Tray=true\n");
    }

    void registeringTwiceIsTheSame()
    {
        QCOMPARE(item().registerItem(), std::nullopt);
        const QByteArray bytes = read(userEntry());
        QCOMPARE(item().registerItem(), std::nullopt);
        QCOMPARE(read(userEntry()), bytes);
    }

    void unregisteringRemovesTheEntry()
    {
        QCOMPARE(item().registerItem(), std::nullopt);
        QCOMPARE(item().unregisterItem(), std::nullopt);
        QVERIFY(!QFile::exists(userEntry()));
        QVERIFY(!item().isEnabled());
        QCOMPARE(item().unregisterItem(), std::nullopt);
    }

    void whatOtherProgramsSwitchOffIsOff_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<bool>("isEnabled");
        const QByteArray head = "[Desktop Entry]\nType=Application\nExec=tarvik\n";
        QTest::newRow("nothing said") << head << true;
        QTest::newRow("Hidden") << head + "Hidden=true\n" << false;
        QTest::newRow("Hidden, old form") << head + "Hidden=1\n" << false;
        QTest::newRow("not Hidden") << head + "Hidden=false\n" << true;
        QTest::newRow("Hidden in another group") << head + "[Other]\nHidden=true\n" << true;
        QTest::newRow("GNOME off") << head + "X-GNOME-Autostart-enabled=false\n" << false;
        QTest::newRow("GNOME on") << head + "X-GNOME-Autostart-enabled = true\n" << true;
        QTest::newRow("LXQt off") << head + "X-LXQt-Autostart-disabled=true\n" << false;
        QTest::newRow("LXQt on") << head + "X-LXQt-Autostart-disabled=false\n" << true;
        QTest::newRow("program in the path") << head + "TryExec=sh\n" << true;
        QTest::newRow("program by its place") << head + "TryExec=/bin/sh\n" << true;
        QTest::newRow("program that is gone") << head + "TryExec=/nowhere/tarvik\n" << false;
        QTest::newRow("program that is in no path") << head + "TryExec=no-such-program\n" << false;
        QTest::newRow("file that is no program") << head + "TryExec=/etc/passwd\n" << false;
        QTest::newRow("no command") << QByteArray("[Desktop Entry]\nType=Application\n") << false;
        QTest::newRow("no application") << QByteArray("[Desktop Entry]\nType=Link\nExec=tarvik\n") << false;
        QTest::newRow("empty file") << QByteArray() << false;
    }

    void whatOtherProgramsSwitchOffIsOff()
    {
        QFETCH(QByteArray, lines);
        write(userEntry(), lines);
        QTEST(item().isEnabled(), "isEnabled");
        QCOMPARE(item().registerItem(), std::nullopt);
        QVERIFY(item().isEnabled());
    }

    void aProgramThatMovedAwayIsOff()
    {
        QCOMPARE(item().registerItem(), std::nullopt);
        QVERIFY(QFile::remove(program()));
        QVERIFY(!item().isEnabled());
    }

    void aSystemWideEntryCountsUntilTheUserHasOne()
    {
        write(systemEntry(), "[Desktop Entry]\nType=Application\nExec=tarvik\n");
        QVERIFY(item().isEnabled());
        write(userEntry(), "[Desktop Entry]\nHidden=true\n");
        QVERIFY(!item().isEnabled());
    }

    void unregisteringHidesASystemWideEntry()
    {
        write(systemEntry(), "[Desktop Entry]\nType=Application\nExec=tarvik\n");
        QCOMPARE(item().unregisterItem(), std::nullopt);
        QVERIFY(!item().isEnabled());
        QVERIFY(read(userEntry()).contains("\nHidden=true\n"));
        QCOMPARE(item().registerItem(), std::nullopt);
        QVERIFY(item().isEnabled());
    }

    void theFirstSystemDirectoryCounts()
    {
        write(
            m_directory->filePath(u"first/autostart/com.morvanta.Tarvik.desktop"_s), "[Desktop Entry]\nHidden=true\n");
        write(systemEntry(), "[Desktop Entry]\nType=Application\nExec=tarvik\n");
        QVERIFY(!item().isEnabled());
    }

    void aLinkToTheNullDeviceIsOffAndIsReplaced()
    {
        write(systemEntry(), "[Desktop Entry]\nType=Application\nExec=tarvik\n");
        makeUserFolder();
        QVERIFY(QFile::link(u"/dev/null"_s, userEntry()));
        QVERIFY(!item().isEnabled());
        QCOMPARE(item().registerItem(), std::nullopt);
        QVERIFY(item().isEnabled());
        QVERIFY(!QFileInfo(userEntry()).isSymLink());
    }

    void aLinkToAFileOfTheUserIsKept()
    {
        const QString target = m_directory->filePath(u"dotfiles/tarvik.desktop"_s);
        write(target, "[Desktop Entry]\nHidden=true\n");
        makeUserFolder();
        QVERIFY(QFile::link(target, userEntry()));
        QCOMPARE(item().registerItem(), std::nullopt);
        QVERIFY(item().isEnabled());
        QVERIFY(QFileInfo(userEntry()).isSymLink());
        QCOMPARE(item().unregisterItem(), std::nullopt);
        QVERIFY(!item().isEnabled());
        QVERIFY(QFile::exists(target));
    }

    void aFolderThatCannotBeMadeIsAnError()
    {
        write(m_directory->filePath(u"config"_s), "a file in the way");
        const auto error = item().registerItem();
        QVERIFY(error);
        QVERIFY(error->contains("config/autostart"_L1));
        QVERIFY(!item().isEnabled());
    }

    void anEntryThatCannotBeReplacedIsAnError()
    {
        makeUserFolder();
        QVERIFY(QDir().mkpath(userEntry()));
        write(userEntry() + u"/file"_s, "");
        QVERIFY(item().registerItem());
        QVERIFY(item().unregisterItem());
        QVERIFY(!item().isEnabled());
    }

    void whatSomebodyElseDoesToAnEntryIsNoticed()
    {
        XdgAutostartLoginItem watched = item();
        int changes = 0;
        const Subscription listening = watched.changed.subscribe([&] { ++changes; });
        const auto isNoticed = [&changes] {
            QCoreApplication::processEvents();
            return std::exchange(changes, 0) > 0;
        };
        const QByteArray on = "[Desktop Entry]\nType=Application\nExec=x\n";
        write(systemEntry(), on);
        QVERIFY(isNoticed() && watched.isEnabled());
        write(userEntry(), on + "Hidden=true\n");
        QVERIFY(isNoticed() && !watched.isEnabled());
        write(userEntry(), on);
        QVERIFY(isNoticed() && watched.isEnabled());
        QVERIFY(QFile::remove(systemEntry()) && QFile::remove(userEntry()));
        QVERIFY(isNoticed() && !watched.isEnabled());
    }

private:
    QString program() const { return m_directory->filePath(u"my apps/tarvik"_s); }
    QString userEntry() const { return m_directory->filePath(u"config/autostart/com.morvanta.Tarvik.desktop"_s); }
    QString systemEntry() const { return m_directory->filePath(u"xdg/autostart/com.morvanta.Tarvik.desktop"_s); }

    XdgAutostartLoginItem item() const
    {
        return {m_directory->filePath(u"config"_s),
            {m_directory->filePath(u"first"_s), m_directory->filePath(u"xdg"_s)},
            {program(), u"--autostart"_s}};
    }

    void makeUserFolder() { QVERIFY(QDir().mkpath(QFileInfo(userEntry()).path())); }

    static void write(const QString& path, const QByteArray& bytes)
    {
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> m_directory;
};

QTEST_GUILESS_MAIN(XdgAutostartLoginItemTest)
#include "XdgAutostartLoginItemTest.moc"
