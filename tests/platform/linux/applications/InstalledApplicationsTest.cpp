// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/InstalledApplications.h"

#include "support/TemporaryDataHome.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class InstalledApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_data.write("system", "org.example.Writer.desktop", "Name=writer");
        m_data.write("system", "org.example.Editor.desktop", "Name=Editor\nName[de]=Schreiber");
        m_data.write("home", "org.example.Bundle.desktop", "Name=Zeppelin.app");
        m_data.write("system", "org.example.Hidden.desktop", "Name=Gone\nHidden=true");
        m_data.write("system", "org.example.Service.desktop", "Name=Service\nNoDisplay=true");
        m_data.write("system", "org.example.Elsewhere.desktop", "Name=Elsewhere\nOnlyShowIn=NoSuchDesktop;");
        m_data.write("system", "org.example.NoProgram.desktop", "Name=Missing\nTryExec=/nonexistent/program");
        m_data.write("system", "org.example.Broken.desktop", "=");
    }

    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void whatTheMenuShowsIsListedByName()
    {
        const QList<AllowlistedApp> expected{
            {.bundleID = u"org.example.Editor"_s, .name = u"Schreiber"_s},
            {.bundleID = u"org.example.Writer"_s, .name = u"writer"_s},
            {.bundleID = u"org.example.Bundle"_s, .name = u"Zeppelin"_s},
        };
        QCOMPARE(installedApplications(), expected);
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
