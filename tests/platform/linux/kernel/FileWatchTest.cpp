// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/FileWatch.h"

#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class FileWatchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_watch.reset();
        m_directory = std::make_unique<QTemporaryDir>();
        m_changes = 0;
    }

    void nothingHappensWhereNothingChanges()
    {
        write(u"config/file"_s);
        watch(u"config/file"_s);
        QVERIFY(!isNoticed());
        QFile file(path(u"config/file"_s));
        QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll() == "content");
        file.close();
        QVERIFY(!isNoticed());
    }

    void writingInPlaceIsNoticedWhenItIsOver()
    {
        write(u"config/file"_s);
        watch(u"config/file"_s);
        QFile file(path(u"config/file"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("half") == 4 && file.flush());
        QVERIFY(!isNoticed());
        file.close();
        QVERIFY(isNoticed());
    }

    void aFileThatTakesItsPlaceIsNoticedEveryTime()
    {
        watch(u"config/file"_s);
        for (int time = 0; time < 3; ++time) {
            write(u"config/new"_s);
            m_changes = 0;
            rename(u"config/new"_s, u"config/file"_s);
            QVERIFY(isNoticed());
        }
    }

    void removingAndMakingAreNoticed()
    {
        write(u"config/file"_s);
        watch(u"config/file"_s);
        QVERIFY(QFile::remove(path(u"config/file"_s)));
        QVERIFY(isNoticed());
        write(u"config/file"_s);
        QVERIFY(isNoticed());
    }

    void whatIsBesideItIsNotNoticed()
    {
        write(u"config/file"_s);
        watch(u"config/file"_s);
        write(u"config/other"_s);
        rename(u"config/other"_s, u"config/another"_s);
        QVERIFY(QDir().mkpath(path(u"config/folder"_s)));
        QVERIFY(!isNoticed());
    }

    void aDirectoryThatIsMadeLaterIsWaitedFor()
    {
        watch(u"config/below/file"_s);
        write(u"config/below/file"_s);
        QVERIFY(isNoticed());
        write(u"config/below/file"_s);
        QVERIFY(isNoticed());
    }

    void aDirectoryThatIsReplacedIsFollowed()
    {
        write(u"config/file"_s);
        watch(u"config/file"_s);
        rename(u"config"_s, u"former"_s);
        QVERIFY(isNoticed());
        write(u"config/file"_s);
        QVERIFY(isNoticed());
        write(u"former/file"_s);
        QVERIFY(!isNoticed());
        QVERIFY(QDir(path(u"config"_s)).removeRecursively());
        QVERIFY(isNoticed());
        write(u"config/file"_s);
        QVERIFY(isNoticed());
    }

    void aLinkIsFollowedAndSoIsWhereItLeads()
    {
        write(u"dotfiles/one"_s);
        write(u"dotfiles/two"_s);
        link(u"../dotfiles/one"_s, u"config/file"_s);
        watch(u"config/file"_s);
        write(u"dotfiles/one"_s);
        QVERIFY(isNoticed());
        write(u"dotfiles/two"_s);
        QVERIFY(!isNoticed());
        link(path(u"dotfiles/two"_s), u"config/new"_s);
        rename(u"config/new"_s, u"config/file"_s);
        QVERIFY(isNoticed());
        write(u"dotfiles/two"_s);
        QVERIFY(isNoticed());
        write(u"dotfiles/one"_s);
        QVERIFY(!isNoticed());
    }

    void aLinkToTheDirectoryIsFollowed()
    {
        write(u"one/file"_s);
        write(u"two/file"_s);
        link(u"one"_s, u"config"_s);
        watch(u"config/file"_s);
        write(u"one/file"_s);
        QVERIFY(isNoticed());
        link(u"two"_s, u"new"_s);
        rename(u"new"_s, u"config"_s);
        QVERIFY(isNoticed());
        write(u"two/file"_s);
        QVERIFY(isNoticed());
    }

    void linksThatLeadInACircleDoNoHarm()
    {
        link(u"two"_s, u"config/one"_s);
        link(u"one"_s, u"config/two"_s);
        watch(u"config/one"_s);
        QVERIFY(!isNoticed());
        QVERIFY(QFile::remove(path(u"config/two"_s)));
        write(u"config/two"_s);
        QVERIFY(isNoticed());
    }

    void eachOfSeveralFilesIsNoticed()
    {
        watch(u"config/file"_s, u"system/file"_s);
        write(u"config/file"_s);
        QVERIFY(isNoticed());
        write(u"system/file"_s);
        QVERIFY(isNoticed());
    }

private:
    QString path(const QString& name) const { return m_directory->filePath(name); }

    void watch(const QString& name, const QString& other = {})
    {
        QStringList paths{path(name)};
        if (!other.isEmpty())
            paths.append(path(other));
        m_watch.emplace(paths, [this] { ++m_changes; });
    }

    /// Since the last time. The kernel has told of a change before the call that made it is over.
    bool isNoticed()
    {
        QCoreApplication::processEvents();
        return std::exchange(m_changes, 0) > 0;
    }

    void write(const QString& name) const
    {
        QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("content") == 7);
    }

    void link(const QString& target, const QString& name) const
    {
        QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
        QVERIFY(QFile::link(target, path(name)));
    }

    void rename(const QString& from, const QString& to) const
    {
        QCOMPARE(std::rename(QFile::encodeName(path(from)).constData(), QFile::encodeName(path(to)).constData()), 0);
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    int m_changes = 0;
    std::optional<FileWatch> m_watch;
};

QTEST_GUILESS_MAIN(FileWatchTest)
#include "FileWatchTest.moc"
