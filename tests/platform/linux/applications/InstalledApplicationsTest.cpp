// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/InstalledApplications.h"

#include "support/TemporaryDataHome.h"
#include "support/TestSupport.h"

#include <QDir>

#include <algorithm>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class InstalledApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_data.write("system", "org.example.Writer.desktop", "Name=writer\nIcon=accessories-text-editor");
        m_data.write("system", "org.example.Editor.desktop", "Name=Editor\nName[de]=Schreiber");
        m_data.write("home", "org.example.Bundle.desktop", "Name=Zeppelin.app");
        m_data.write("system", "org.example.Hidden.desktop", "Name=Gone\nHidden=true");
        m_data.write("system", "org.example.Service.desktop", "Name=Service\nNoDisplay=true");
        m_data.write("system", "org.example.Elsewhere.desktop", "Name=Elsewhere\nOnlyShowIn=NoSuchDesktop;");
        m_data.write("system", "org.example.NoProgram.desktop", "Name=Missing\nTryExec=/nonexistent/program");
        m_data.write("system", "org.example.Broken.desktop", "=");
        m_data.write("system", "org.example.Link.desktop", "Name=Link\nType=Link\nURL=https://example.org");
        m_data.write("system",
            "org.example.Endless.desktop",
            "Name=Endless\nNoDisplay=true\nComment=" + QByteArray(2'000'000, 'x'));
        m_data.write("system", "notes.txt", "Name=Notes");
        m_data.write("home", "sub/tool.desktop", "Name=Tool\nNoDisplay=true");
        m_data.write("home", "../own.desktop", "Name=Own");
        m_data.write("home", ".desktop", "Name=Nameless");
    }

    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void whatTheMenuShowsIsListed()
    {
        QList<InstalledApplication> found = installedApplications();
        std::ranges::sort(found, {}, &InstalledApplication::bundleID);
        const QList<InstalledApplication> expected{
            {.bundleID = u"org.example.Bundle"_s, .name = u"Zeppelin"_s, .icon = {}},
            {.bundleID = u"org.example.Editor"_s, .name = u"Schreiber"_s, .icon = {}},
            {.bundleID = u"org.example.Writer"_s, .name = u"writer"_s, .icon = u"accessories-text-editor"_s},
        };
        QCOMPARE(found, expected);
    }

    void anApplicationIsKnownByItsFile_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("name");
        QTest::newRow("of the menu") << m_data.path("system", "org.example.Editor.desktop") << u"org.example.Editor"_s
                                     << u"Schreiber"_s;
        QTest::newRow("not in any menu") << m_data.path("system", "org.example.Service.desktop")
                                         << u"org.example.Service"_s << u"Service"_s;
        QTest::newRow("in a folder") << m_data.path("home", "sub/tool.desktop") << u"sub-tool"_s << u"Tool"_s;
        QTest::newRow("elsewhere") << m_data.path("home", "../own.desktop") << u"own"_s << u"Own"_s;
    }

    void anApplicationIsKnownByItsFile()
    {
        QFETCH(QString, file);
        QFETCH(QString, id);
        QFETCH(QString, name);
        const auto application = applicationOfFile(QDir::cleanPath(file));
        QVERIFY(application);
        QCOMPARE(application->bundleID, id);
        QCOMPARE(application->name, name);
    }

    void otherFilesAreNoApplications_data()
    {
        QTest::addColumn<QString>("file");
        for (const char* name : {"Hidden", "NoProgram", "Broken", "Link", "Nowhere", "Endless"}) {
            const QByteArray file = QByteArray("org.example.") + name + ".desktop";
            QTest::newRow(name) << m_data.path("system", file.constData());
        }
        QTest::newRow("another ending") << m_data.path("system", "notes.txt");
        QTest::newRow("no id") << m_data.path("home", ".desktop");
        QTest::newRow("a folder") << m_data.path("home", "sub");
        QTest::newRow("a device") << u"/dev/zero"_s;
        QTest::newRow("nothing") << QString();
    }

    void otherFilesAreNoApplications()
    {
        QFETCH(QString, file);
        QVERIFY(!applicationOfFile(file));
    }

private:
    TemporaryDataHome m_data;
};

int main(int argc, char** argv)
{
    // GIO asks for the languages once.
    qputenv("LANGUAGE", "de");
    qputenv("LC_ALL", "C.UTF-8");
    QCoreApplication application(argc, argv);
    InstalledApplicationsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "InstalledApplicationsTest.moc"
