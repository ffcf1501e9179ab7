// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/programs/InstalledProgramFile.h"

#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <unistd.h>

#include <cstdio>
#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

/// The program is a copy of this test.
class InstalledProgramFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_program.reset();
        m_directory = std::make_unique<QTemporaryDir>();
        QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), path(u"program"_s)));
        QCOMPARE(::link(name(u"program"_s).constData(), name(u"running"_s).constData()), 0);
        m_program.emplace(InstalledProgramFile::Paths{
            .running = path(u"running"_s), .installed = path(u"program"_s), .others = {path(u"windows"_s)}});
        m_changes = 0;
        m_news = m_program->changed.subscribe([this] { ++m_changes; });
    }

    void whatRunsIsNoReplacement() { QVERIFY(!m_program->isReplaced()); }

    void anotherFileOfTheSameContentIsOne()
    {
        QVERIFY(QFile::copy(path(u"program"_s), path(u"new"_s)));
        replaceBy(u"new"_s);
        QTRY_VERIFY(m_changes > 0);
        QVERIFY(m_program->isReplaced());
        QVERIFY(wouldStart());
    }

    void aFileThatIsGoneIsNone()
    {
        QVERIFY(QFile::remove(path(u"program"_s)));
        QTRY_VERIFY(m_changes > 0);
        QVERIFY(!m_program->isReplaced());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"would not start: it is no complete program"_s));
        QVERIFY(!wouldStart());
    }

    void whatCannotBeExecutedIsNone()
    {
        write(u"new"_s, "text", QFile::ReadOwner);
        replaceBy(u"new"_s);
        QVERIFY(!m_program->isReplaced());
    }

    void whatIsInstalledWithItIsNoticed()
    {
        write(u"windows"_s, "windows", QFile::ReadOwner);
        QTRY_VERIFY(m_changes > 0);
        QVERIFY(!m_program->isReplaced());
    }

    void halfAProgramWouldNotStart_data()
    {
        QTest::addColumn<qsizetype>("size");
        QTest::newRow("nothing") << qsizetype{0};
        QTest::newRow("less than a header") << qsizetype{20};
        QTest::newRow("the header") << qsizetype{1000};
        QTest::newRow("half") << qsizetype{-1};
    }

    void halfAProgramWouldNotStart()
    {
        QFETCH(const qsizetype, size);
        QFile whole(path(u"program"_s));
        QVERIFY(whole.open(QIODevice::ReadOnly));
        const QByteArray content = whole.readAll();
        write(u"new"_s, content.first(size < 0 ? content.size() / 2 : size), QFile::ReadOwner | QFile::ExeOwner);
        replaceBy(u"new"_s);
        QVERIFY(m_program->isReplaced());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"would not start: it is no complete program"_s));
        QVERIFY(!wouldStart());
    }

    void aProgramWithoutALibraryWouldNotStart()
    {
        QFile whole(path(u"program"_s));
        QVERIFY(whole.open(QIODevice::ReadOnly));
        QByteArray content = whole.readAll();
        const qsizetype library = content.indexOf("libQt6Test.so.6");
        QVERIFY(library > 0);
        content.replace(library, 15, "libQt6None.so.6");
        write(u"new"_s, content, QFile::ReadOwner | QFile::ExeOwner);
        replaceBy(u"new"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"would not start: libQt6None.so.6 => not found"_s));
        QVERIFY(!wouldStart());
    }

    void aCheckThatNobodyWaitsForIsLeft()
    {
        m_program->check([](bool) { QFAIL("nobody is there"); });
        m_program.reset();
    }

private:
    QString path(const QString& file) const { return m_directory->filePath(file); }
    QByteArray name(const QString& file) const { return QFile::encodeName(path(file)); }

    void write(const QString& file, const QByteArray& content, QFile::Permissions permissions)
    {
        QFile written(path(file));
        QVERIFY(written.open(QIODevice::WriteOnly) && written.write(content) == content.size());
        QVERIFY(written.setPermissions(permissions));
    }

    /// As package managers do.
    void replaceBy(const QString& file)
    {
        QCOMPARE(std::rename(name(file).constData(), name(u"program"_s).constData()), 0);
    }

    bool wouldStart()
    {
        std::optional<bool> answer;
        m_program->check([&answer](bool wouldStart) { answer = wouldStart; });
        return QTest::qWaitFor([&answer] { return answer.has_value(); }) && *answer;
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::optional<InstalledProgramFile> m_program;
    Subscription m_news;
    int m_changes = 0;
};

QTEST_GUILESS_MAIN(InstalledProgramFileTest)
#include "InstalledProgramFileTest.moc"
