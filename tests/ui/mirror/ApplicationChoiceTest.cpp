// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/ApplicationChoice.h"

#include "bus/ServedTarvik.h"
#include "fakes/FakeDBusService.h"
#include "fakes/FakeFileChooser.h"
#include "support/TestSupport.h"
#include "ui/mirror/FileFilter.h"
#include "ui/mirror/MirrorTestSupport.h"
#include "ui/mirror/SettingsMirror.h"

#include <QGuiApplication>
#include <QLocale>
#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class ApplicationChoiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_installed.clear();
        m_tarvik.emplace();
        m_settings.emplace(m_client);
        QTRY_VERIFY(m_settings->isConnected());
        m_choice.emplace(sources(), *m_settings, m_client);
    }
    void cleanup()
    {
        m_choice.reset();
        m_settings.reset();
        m_tarvik.reset();
    }

    void namesAreInTheOrderOfPeople_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::newRow("of no language") << QLocale::c();
        QTest::newRow("German") << QLocale(QLocale::German);
    }

    void namesAreInTheOrderOfPeople()
    {
        QFETCH(QLocale, locale);
        QLocale::setDefault(locale);
        install({u"App 10"_s, u"zebra"_s, u"App 2"_s, u"Ärger"_s, u"Zoo"_s, u"App 1"_s});
        QCOMPARE(
            listed(u"name"_s), (QStringList{u"App 1"_s, u"App 2"_s, u"App 10"_s, u"Ärger"_s, u"zebra"_s, u"Zoo"_s}));
    }

    void whatIsOpenComesFirst()
    {
        m_tarvik->machine.applications.set({{.id = u"org.Writer"_s, .localizedName = {}},
            {.id = {}, .localizedName = u"Nameless"_s},
            {.id = u"org.Calc"_s, .localizedName = {}},
            {.id = u"org.Calc"_s, .localizedName = {}},
            {.id = u"not.installed"_s, .localizedName = {}}});
        install({u"Writer"_s, u"Base"_s, u"Calc"_s, u"Draw"_s});
        QCOMPARE(listed(u"name"_s), (QStringList{u"Calc"_s, u"Writer"_s, u"Base"_s, u"Draw"_s}));
        QCOMPARE(listed(u"caption"_s), (QStringList{u"Open now"_s, u"Open now"_s, QString(), QString()}));
    }

    void itselfIsNotOffered()
    {
        const QString before = QGuiApplication::desktopFileName();
        QGuiApplication::setDesktopFileName(u"com.morvanta.Tarvik"_s);
        m_tarvik->machine.applications.set({{.id = u"com.morvanta.Tarvik"_s, .localizedName = {}}});
        m_installed = {{u"com.morvanta.Tarvik"_s, u"Tarvik"_s, {}}, {u"vim"_s, u"Vim"_s, {}}};
        refresh();
        QGuiApplication::setDesktopFileName(before);
        QCOMPARE(listed(u"name"_s), QStringList{u"Vim"_s});
    }

    void thoseOfOneNameAreToldApart()
    {
        m_installed
            = {{u"org.b"_s, u"Text Editor"_s, {}}, {u"org.a"_s, u"text editor"_s, {}}, {u"vim"_s, u"Vim"_s, {}}};
        refresh();
        QCOMPARE(listed(u"caption"_s), (QStringList{u"org.a"_s, u"org.b"_s, QString()}));
        QCOMPARE(listed(u"bundleID"_s), (QStringList{u"org.a"_s, u"org.b"_s, u"vim"_s}));
        m_tarvik->machine.applications.set({{.id = u"org.b"_s, .localizedName = {}}});
        refresh();
        QCOMPARE(listed(u"caption"_s), (QStringList{u"Open now · org.b"_s, u"org.a"_s, QString()}));
    }

    void withoutAPortalThereAreOnlyThose()
    {
        refresh();
        settle(m_client);
        QVERIFY(!m_choice->canBrowse());
    }

    void aPortalWithoutFilesIsNone()
    {
        Portal portal;
        portal.files.isOffered = false;
        refresh();
        settle(m_client);
        QVERIFY(!m_choice->canBrowse());
        portal.files.isOffered = true;
        refresh();
        QTRY_VERIFY(m_choice->canBrowse());
    }

    void anApplicationIsAddedByItsFile()
    {
        Portal portal;
        portal.files.chosen = {u"file:///usr/share/applications/org%20x.desktop"_s};
        m_ofFile = {u"org x"_s, u"Ex"_s, {}};
        QSignalSpy added(&*m_choice, &ApplicationChoice::added);
        m_choice->browse();
        QTRY_COMPARE(added.size(), 1);
        QCOMPARE(m_askedPath, u"/usr/share/applications/org x.desktop"_s);
        QTRY_COMPARE(m_tarvik->machine.settings->allowlist(), (QList<AllowlistedApp>{{u"org x"_s, u"Ex"_s}}));
        QCOMPARE(m_choice->problem(), QString());

        QCOMPARE(portal.files.title, u"Add App"_s);
        QCOMPARE(portal.files.options[u"current_folder"_s].toByteArray(), QByteArray("/usr/share/applications\0", 24));
        const auto filters = qdbus_cast<FileFilters>(portal.files.options[u"filters"_s]);
        QCOMPARE(filters.size(), 1);
        QCOMPARE(filters[0].patterns.size(), 1);
        QCOMPARE(filters[0].patterns[0].kind, 0U);
        QCOMPARE(filters[0].patterns[0].pattern, u"*.desktop"_s);
    }

    void aFileOfNoApplicationIsToldAndAddsNothing()
    {
        Portal portal;
        portal.files.chosen = {u"file:///home/u/notes.desktop"_s};
        QSignalSpy added(&*m_choice, &ApplicationChoice::added);
        m_choice->browse();
        QTRY_COMPARE(
            m_choice->problem(), u"notes.desktop is not the desktop file of an application that can be started."_s);
        settle(m_client);
        QVERIFY(m_tarvik->machine.settings->allowlist().isEmpty());
        QCOMPARE(added.size(), 0);
        m_choice->refresh();
        QCOMPARE(m_choice->problem(), QString());
    }

    void aDialogThatIsCancelledChangesNothing()
    {
        Portal portal;
        m_ofFile = {u"org.x"_s, u"Ex"_s, {}};
        m_choice->browse();
        settle(m_client);
        settle(m_client);
        QCOMPARE(portal.files.title, u"Add App"_s);
        QCOMPARE(m_choice->problem(), QString());
        QVERIFY(m_tarvik->machine.settings->allowlist().isEmpty());
    }

private:
    struct Portal : FakeDBusService {
        Portal()
            : FakeDBusService(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s),
                u"org.freedesktop.portal.Desktop"_s,
                u"/org/freedesktop/portal/desktop"_s)
            , files(m_bus)
        {
            handler = [this](const QDBusMessage& call) { return files.answer(call); };
            if (!appear())
                qFatal("There is another portal.");
        }

        FakeFileChooser files;
    };

    ApplicationChoice::Sources sources()
    {
        return {.installed = [this] { return m_installed; },
            .ofFile =
                [this](const QString& path) {
                    m_askedPath = path;
                    return std::exchange(m_ofFile, std::nullopt);
                }};
    }

    void refresh()
    {
        QSignalSpy changed(&*m_choice, &ApplicationChoice::applicationsChanged);
        m_choice->refresh();
        QVERIFY(m_choice->applications().isEmpty());
        QTRY_COMPARE(changed.size(), 2);
    }

    /// By names, with ids that end like them.
    void install(const QStringList& names)
    {
        for (const QString& name : names)
            m_installed.append({u"org."_s + name, name, {}});
        refresh();
    }

    QStringList listed(const QString& key) const
    {
        QStringList values;
        for (const QVariant& each : m_choice->applications())
            values.append(each.toMap()[key].toString());
        return values;
    }

    QDBusConnection m_client = mirrorConnection();
    QList<InstalledApplication> m_installed;
    std::optional<InstalledApplication> m_ofFile;
    QString m_askedPath;
    std::optional<ServedTarvik> m_tarvik;
    std::optional<SettingsMirror> m_settings;
    std::optional<ApplicationChoice> m_choice;
};

QTEST_GUILESS_MAIN(ApplicationChoiceTest)
#include "ApplicationChoiceTest.moc"
