// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopFiles.h"

#include "support/TemporaryDataHome.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class DesktopFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_data.write(
            "system", "org.example.Editor.desktop", "Name=Editor\nName[de]=Schreiber\nStartupWMClass=editor-wm");
        m_data.write("system", "org.example.Shadowed.desktop", "Name=Below");
        m_data.write("home", "org.example.Shadowed.desktop", "Name=Above");
        m_data.write("system", "org.example.Hidden.desktop", "Name=Gone");
        m_data.write("home", "org.example.Hidden.desktop", "Name=Gone\nHidden=true");
        m_data.write("system", "org.example.NoProgram.desktop", "Name=Missing\nTryExec=/nonexistent/program");
        m_data.write("home", "sub/tool.desktop", "Name=Tool");
        m_data.write("home", "helper.desktop", "Name=Helper\nStartupWMClass=Twice");
        m_data.write("home", "Twice.desktop", "Name=Main\nStartupWMClass=Twice");
    }

    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void namesAreThoseOfTheUsersLanguage() { QCOMPARE(m_files.name(u"org.example.Editor"_s), u"Schreiber"_s); }

    void theUsersOwnFileGoesFirst() { QCOMPARE(m_files.name(u"org.example.Shadowed"_s), u"Above"_s); }

    void hiddenMissingAndBrokenApplicationsAreUnknown()
    {
        for (const auto& id : {u"org.example.Hidden"_s,
                 u"org.example.NoProgram"_s,
                 u"org.example.Nothing"_s,
                 u""_s,
                 u"../applications/helper"_s,
                 u"a\0b"_s})
            QCOMPARE(m_files.name(id), std::nullopt);
    }

    void aFileInASubfolderHasADashInItsId() { QCOMPARE(m_files.name(u"sub-tool"_s), u"Tool"_s); }

    void aWindowClassLeadsToItsApplication()
    {
        QCOMPARE(m_files.idForStartupClass(u"editor-wm"_s), u"org.example.Editor"_s);
        QCOMPARE(m_files.idForStartupClass(u"unknown"_s), std::nullopt);
        QCOMPARE(m_files.idForStartupClass({}), std::nullopt);
    }

    void ofSeveralApplicationsTheOneNamedLikeTheClassWins()
    {
        QCOMPARE(m_files.idForStartupClass(u"Twice"_s), u"Twice"_s);
    }

    void manyUnknownIdsLeaveTheAnswersRight()
    {
        for (int i = 0; i < 2000; ++i)
            QCOMPARE(m_files.name(u"unknown%1"_s.arg(i)), std::nullopt);
        QCOMPARE(m_files.name(u"org.example.Editor"_s), u"Schreiber"_s);
    }

    void anInstalledApplicationIsSeen()
    {
        QCOMPARE(m_files.name(u"later"_s), std::nullopt);
        int changes = 0;
        const Subscription listening = m_files.changed.subscribe([&] { ++changes; });
        m_data.write("home", "later.desktop", "Name=Later\nStartupWMClass=LaterClass");
        QTRY_VERIFY(changes > 0);
        QCOMPARE(m_files.name(u"later"_s), u"Later"_s);
        QCOMPARE(m_files.idForStartupClass(u"LaterClass"_s), u"later"_s);
    }

private:
    TemporaryDataHome m_data;
    DesktopFiles m_files;
};

int main(int argc, char** argv)
{
    // GIO asks for the languages once.
    qputenv("LANGUAGE", "de");
    qputenv("LC_ALL", "C.UTF-8");
    QCoreApplication application(argc, argv);
    DesktopFilesTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "DesktopFilesTest.moc"
