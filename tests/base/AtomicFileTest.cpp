// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "base/AtomicFile.h"

#include "support/OrdinaryUser.h"
#include "support/TestSupport.h"

#include <QByteArrayView>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

using namespace Qt::StringLiterals;
using namespace Tarvik;

namespace {

std::optional<QString> replace(const QString& path, QByteArrayView bytes, mode_t newFileMode = 0666)
{
    const std::string name = QFile::encodeName(path).toStdString();
    const auto error = replaceFile(name, {bytes.data(), static_cast<std::size_t>(bytes.size())}, newFileMode);
    return error ? std::optional(QString::fromStdString(*error)) : std::nullopt;
}

} // namespace

class AtomicFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_directory = std::make_unique<QTemporaryDir>();
        QVERIFY(m_directory->isValid());
    }

    void createsAMissingFile()
    {
        QCOMPARE(replace(path(u"new"_s), "bytes"), std::nullopt);
        QCOMPARE(contents(u"new"_s), "bytes");
        QCOMPARE(names(), QStringList{u"new"_s});
    }

    void replacesAllBytesOfAnExistingFile()
    {
        put(u"file"_s, "much longer than what follows");
        QCOMPARE(replace(path(u"file"_s), QByteArray("a\0b", 3)), std::nullopt);
        QCOMPARE(contents(u"file"_s), QByteArray("a\0b", 3));
        QCOMPARE(names(), QStringList{u"file"_s});
    }

    void writesNoBytesAtAll()
    {
        put(u"file"_s, "old");
        QCOMPARE(replace(path(u"file"_s), {}), std::nullopt);
        QCOMPARE(contents(u"file"_s), "");
    }

    void anOpenReaderKeepsTheOldBytes()
    {
        put(u"file"_s, "old");
        QFile reader(path(u"file"_s));
        QVERIFY(reader.open(QIODevice::ReadOnly));
        QCOMPARE(replace(path(u"file"_s), "new"), std::nullopt);
        QCOMPARE(reader.readAll(), "old");
    }

    void aNewFileGetsTheGivenModeLessTheUmask()
    {
        const mode_t umaskBefore = umask(027);
        const auto shared = replace(path(u"shared"_s), "x");
        const auto secret = replace(path(u"secret"_s), "x", 0600);
        umask(umaskBefore);
        QCOMPARE(shared, std::nullopt);
        QCOMPARE(secret, std::nullopt);
        QCOMPARE(mode(u"shared"_s), 0640U);
        QCOMPARE(mode(u"secret"_s), 0600U);
    }

    void anExistingFileKeepsItsMode_data()
    {
        QTest::addColumn<uint>("mode");
        for (const uint mode : {0600U, 0640U, 0644U, 0666U, 0755U, 02775U})
            QTest::addRow("%o", mode) << mode;
    }
    void anExistingFileKeepsItsMode()
    {
        QFETCH(const uint, mode);
        put(u"file"_s, "old");
        QCOMPARE(chmod(encoded(u"file"_s), mode), 0);
        QCOMPARE(replace(path(u"file"_s), "new", 0600), std::nullopt);
        QCOMPARE(this->mode(u"file"_s), mode);
        QCOMPARE(contents(u"file"_s), "new");
    }

    void anExistingFileKeepsItsOwnerAndGroup()
    {
        put(u"file"_s, "old");
        const uid_t owner = geteuid() == 0 ? OrdinaryUser::id : geteuid();
        QCOMPARE(chown(encoded(u"file"_s), owner, static_cast<gid_t>(owner)), 0);
        QCOMPARE(replace(path(u"file"_s), "new"), std::nullopt);
        struct stat status = {};
        QCOMPARE(stat(encoded(u"file"_s), &status), 0);
        QCOMPARE(status.st_uid, owner);
        QCOMPARE(status.st_gid, static_cast<gid_t>(owner));
    }

    void anExistingFileKeepsItsAttributesAndAccessControlList()
    {
        const QByteArray list = accessControlList({.group = 0, .user = 4, .mask = 4});
        put(u"file"_s, "old");
        QCOMPARE(chmod(encoded(u"file"_s), 0600), 0);
        QVERIFY(setAttribute(u"file"_s, "user.origin", "elsewhere"));
        QVERIFY(setAttribute(u"file"_s, "user.empty", ""));
        QVERIFY(setAttribute(u"file"_s, accessList, list));
        QCOMPARE(mode(u"file"_s), 0640U);
        QCOMPARE(replace(path(u"file"_s), "new"), std::nullopt);
        QCOMPARE(contents(u"file"_s), "new");
        QCOMPARE(attribute(u"file"_s, "user.origin"), QByteArray("elsewhere"));
        QCOMPARE(attribute(u"file"_s, "user.empty"), QByteArray(""));
        // The group itself has no access, whatever the mode seems to say.
        QCOMPARE(attribute(u"file"_s, accessList), list);
        QCOMPARE(mode(u"file"_s), 0640U);
    }

    void whatTheDirectoryGrantsToNewFilesIsNotGrantedToAnExistingOne()
    {
        put(u"file"_s, "old");
        QCOMPARE(chmod(encoded(u"file"_s), 0640), 0);
        QVERIFY(
            setAttribute(u"."_s, "system.posix_acl_default", accessControlList({.group = 6, .user = 6, .mask = 6})));
        QCOMPARE(replace(path(u"file"_s), "new"), std::nullopt);
        QCOMPARE(attribute(u"file"_s, accessList), QByteArray());
        QCOMPARE(mode(u"file"_s), 0640U);
        QCOMPARE(replace(path(u"created"_s), "new"), std::nullopt);
        QVERIFY(!attribute(u"created"_s, accessList).isEmpty());
    }

    void nothingIsLeftWhenTheProcessIsKilled()
    {
        put(u"file"_s, "old");
        const pid_t child = fork();
        if (child == 0) {
            // Writing more ends the process in the middle of it.
            const rlimit tight{.rlim_cur = 1000, .rlim_max = 1000};
            const rlimit none{};
            setrlimit(RLIMIT_CORE, &none);
            setrlimit(RLIMIT_FSIZE, &tight);
            std::signal(SIGXFSZ, SIG_DFL);
            const auto error = replace(path(u"file"_s), QByteArray(100'000, 'x'));
            _exit(error ? 1 : 2);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), SIGXFSZ);
        QCOMPARE(names(), QStringList{u"file"_s});
        QCOMPARE(contents(u"file"_s), "old");
    }

    void aFileWhoseOwnerCannotBeKeptIsLeftAlone()
    {
        put(u"file"_s, "old");
        QCOMPARE(chmod(encoded(u"file"_s), 0666), 0);
        openToEveryone();
        // Only root can make a file of another user's, so elsewhere the file is made unwritable instead.
        if (geteuid() != 0)
            QCOMPARE(chmod(encoded(u"file"_s), 0444), 0);
        {
            const OrdinaryUser user;
            QVERIFY(user.isSet());
            QVERIFY(replace(path(u"file"_s), "new").has_value());
        }
        QCOMPARE(contents(u"file"_s), "old");
        QCOMPARE(names(), QStringList{u"file"_s});
    }

    void aReadOnlyFileIsLeftAlone()
    {
        openToEveryone();
        {
            const OrdinaryUser user;
            QVERIFY(user.isSet());
            put(u"file"_s, "old");
            QCOMPARE(chmod(encoded(u"file"_s), 0444), 0);
            QCOMPARE(replace(path(u"file"_s), "new"), u"Permission denied"_s);
        }
        QCOMPARE(contents(u"file"_s), "old");
        QCOMPARE(names(), QStringList{u"file"_s});
    }

    void aSymbolicLinkIsKeptAndItsTargetReplaced()
    {
        QVERIFY(QDir(m_directory->path()).mkdir(u"dotfiles"_s));
        put(u"dotfiles/target"_s, "old");
        QCOMPARE(symlink("dotfiles/target", encoded(u"link"_s)), 0);
        QCOMPARE(replace(path(u"link"_s), "new"), std::nullopt);
        QVERIFY(QFileInfo(path(u"link"_s)).isSymLink());
        QCOMPARE(contents(u"dotfiles/target"_s), "new");
        QCOMPARE(names(u"dotfiles"_s), QStringList{u"target"_s});
    }

    void aChainOfRelativeAndAbsoluteLinksIsFollowed()
    {
        QVERIFY(QDir(m_directory->path()).mkpath(u"a/b"_s));
        put(u"target"_s, "old");
        QCOMPARE(symlink("../../target", encoded(u"a/b/second"_s)), 0);
        QCOMPARE(symlink(encoded(u"a/b/second"_s), encoded(u"first"_s)), 0);
        QCOMPARE(replace(path(u"first"_s), "new"), std::nullopt);
        QCOMPARE(contents(u"target"_s), "new");
        QVERIFY(QFileInfo(path(u"first"_s)).isSymLink());
        QVERIFY(QFileInfo(path(u"a/b/second"_s)).isSymLink());
    }

    void aDanglingLinkGetsItsTarget()
    {
        QVERIFY(QDir(m_directory->path()).mkdir(u"dotfiles"_s));
        QCOMPARE(symlink("dotfiles/target", encoded(u"link"_s)), 0);
        QCOMPARE(replace(path(u"link"_s), "new"), std::nullopt);
        QVERIFY(QFileInfo(path(u"link"_s)).isSymLink());
        QCOMPARE(contents(u"dotfiles/target"_s), "new");
    }

    void aLinkIntoAMissingDirectoryIsAnErrorAndStays()
    {
        QCOMPARE(symlink("nowhere/target", encoded(u"link"_s)), 0);
        QCOMPARE(replace(path(u"link"_s), "new"), u"No such file or directory"_s);
        QVERIFY(QFileInfo(path(u"link"_s)).isSymLink());
        QCOMPARE(names(), QStringList{u"link"_s});
    }

    void aLinkAmongTheDirectoriesIsFollowed()
    {
        QVERIFY(QDir(m_directory->path()).mkdir(u"real"_s));
        put(u"real/file"_s, "old");
        QCOMPARE(symlink("real", encoded(u"directory"_s)), 0);
        QCOMPARE(replace(path(u"directory/file"_s), "new"), std::nullopt);
        QCOMPARE(contents(u"real/file"_s), "new");
        QVERIFY(QFileInfo(path(u"directory"_s)).isSymLink());
    }

    void linksThatGoInACircleAreAnError()
    {
        QCOMPARE(symlink("b", encoded(u"a"_s)), 0);
        QCOMPARE(symlink("a", encoded(u"b"_s)), 0);
        QCOMPARE(replace(path(u"a"_s), "new"), u"Too many levels of symbolic links"_s);
        QCOMPARE(names(), QStringList({u"a"_s, u"b"_s}));
    }

    void aMissingDirectoryIsAnError()
    {
        QCOMPARE(replace(path(u"nowhere/file"_s), "new"), u"No such file or directory"_s);
    }

    void aDirectoryThatCannotBeWrittenToIsAnErrorAndNothingIsLeftBehind()
    {
        QVERIFY(QDir(m_directory->path()).mkdir(u"closed"_s));
        put(u"closed/file"_s, "old");
        QCOMPARE(chmod(encoded(u"closed/file"_s), 0666), 0);
        QCOMPARE(chmod(encoded(u"closed"_s), 0555), 0);
        openToEveryone();
        {
            const OrdinaryUser user;
            QVERIFY(user.isSet());
            QCOMPARE(replace(path(u"closed/file"_s), "new"), u"Permission denied"_s);
        }
        QCOMPARE(chmod(encoded(u"closed"_s), 0755), 0);
        QCOMPARE(contents(u"closed/file"_s), "old");
        QCOMPARE(names(u"closed"_s), QStringList{u"file"_s});
    }

    void aDirectoryInTheFilesPlaceIsAnError()
    {
        QVERIFY(QDir(m_directory->path()).mkdir(u"file"_s));
        QCOMPARE(replace(path(u"file"_s), "new"), u"Is a directory"_s);
        QCOMPARE(names(), QStringList{u"file"_s});
        QVERIFY(QFileInfo(path(u"file"_s)).isDir());
    }

    void aNamedPipeInTheFilesPlaceIsAnError()
    {
        QCOMPARE(mkfifo(encoded(u"file"_s), 0600), 0);
        QVERIFY(replace(path(u"file"_s), "new").has_value());
        struct stat status = {};
        QCOMPARE(lstat(encoded(u"file"_s), &status), 0);
        QVERIFY(S_ISFIFO(status.st_mode));
        QCOMPARE(names(), QStringList{u"file"_s});
    }

    void aSocketInTheFilesPlaceIsAnError()
    {
        const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_un address = {.sun_family = AF_UNIX, .sun_path = {}};
        qstrncpy(address.sun_path, encoded(u"file"_s), sizeof address.sun_path);
        QCOMPARE(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        QVERIFY(replace(path(u"file"_s), "new").has_value());
        close(socket);
        struct stat status = {};
        QCOMPARE(lstat(encoded(u"file"_s), &status), 0);
        QVERIFY(S_ISSOCK(status.st_mode));
    }

    void aDeviceInTheFilesPlaceIsAnError()
    {
        QCOMPARE(symlink("/dev/null", encoded(u"file"_s)), 0);
        QVERIFY(replace(path(u"file"_s), "new").has_value());
        struct stat status = {};
        QCOMPARE(stat("/dev/null", &status), 0);
        QVERIFY(S_ISCHR(status.st_mode));
    }

    void aFullDiskLeavesTheOldFileAndNothingElse()
    {
        put(u"file"_s, "old");
        rlimit limit = {};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
        const rlimit tiny{.rlim_cur = 4096, .rlim_max = limit.rlim_max};
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &tiny), 0);
        const auto error = replace(path(u"file"_s), QByteArray(100'000, 'x'));
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(error, u"File too large"_s);
        QCOMPARE(contents(u"file"_s), "old");
        QCOMPARE(names(), QStringList{u"file"_s});
    }

    void theLongestPossibleNameIsNoHindrance()
    {
        const QString name(255, u'n');
        QCOMPARE(replace(path(name), "one"), std::nullopt);
        QCOMPARE(replace(path(name), "two"), std::nullopt);
        QCOMPARE(contents(name), "two");
    }

    void aNameBeyondTheLimitIsAnError()
    {
        QCOMPARE(replace(path(QString(256, u'n')), "one"), u"File name too long"_s);
        QCOMPARE(names(), QStringList{});
    }

private:
    static constexpr auto accessList = "system.posix_acl_access";

    struct Permissions {
        quint16 group;
        quint16 user;
        quint16 mask;
    };

    /// In the form of the kernel's <linux/posix_acl_xattr.h>: the owner may read and write, others nothing, the owning
    /// group, one other user and the mask as given.
    static QByteArray accessControlList(Permissions permissions)
    {
        QByteArray list;
        const auto add = [&list](auto value) {
            value = qToLittleEndian(value);
            list.append(reinterpret_cast<const char*>(&value), sizeof value);
        };
        const auto addEntry = [&add](quint16 tag, quint16 permission, quint32 id) {
            add(tag);
            add(permission);
            add(id);
        };
        constexpr quint32 noId = 0xffffffff;
        add(quint32{2});
        addEntry(0x01, 6, noId);
        addEntry(0x02, permissions.user, 12345);
        addEntry(0x04, permissions.group, noId);
        addEntry(0x10, permissions.mask, noId);
        addEntry(0x20, 0, noId);
        return list;
    }

    bool setAttribute(const QString& name, const char* attribute, const QByteArray& value)
    {
        return setxattr(encoded(name), attribute, value.constData(), static_cast<std::size_t>(value.size()), 0) == 0;
    }

    /// Null when there is none.
    QByteArray attribute(const QString& name, const char* attribute)
    {
        std::array<char, 1024> value{};
        const ssize_t size = getxattr(encoded(name), attribute, value.data(), value.size());
        return size < 0 ? QByteArray() : QByteArray(value.data(), size);
    }

    QString path(const QString& name) const { return m_directory->filePath(name); }

    /// Valid until the next call but three.
    const char* encoded(const QString& name)
    {
        std::ranges::rotate(m_encoded, m_encoded.begin() + 1);
        m_encoded.back() = QFile::encodeName(path(name));
        return m_encoded.back().constData();
    }

    void put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    QByteArray contents(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be opened)");
    }

    uint mode(const QString& name)
    {
        struct stat status = {};
        return stat(encoded(name), &status) == 0 ? status.st_mode & 07777U : 0U;
    }

    QStringList names(const QString& directory = u"."_s) const
    {
        return QDir(path(directory)).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    void openToEveryone() { QCOMPARE(chmod(encoded(u"."_s), 0777), 0); }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::array<QByteArray, 4> m_encoded;
};

QTEST_GUILESS_MAIN(AtomicFileTest)
#include "AtomicFileTest.moc"
