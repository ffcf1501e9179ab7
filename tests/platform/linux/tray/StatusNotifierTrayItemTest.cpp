// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/tray/StatusNotifierTrayItem.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeStatusNotifierWatcher.h"
#include "support/TestSupport.h"

#include <QDBusConnectionInterface>
#include <QTemporaryDir>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class StatusNotifierTrayItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // A Tarvik that is installed on this machine has icons there.
        qputenv("XDG_DATA_HOME", m_data.path().toUtf8());
        qputenv("XDG_DATA_DIRS", m_data.path().toUtf8());
        for (const auto& signal : {u"NewIcon"_s, u"NewTitle"_s, u"NewToolTip"_s, u"NewStatus"_s})
            QVERIFY(m_host.connect({}, itemPath, itemInterface, signal, this, SLOT(recordSignal(QDBusMessage))));
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_item = std::make_unique<StatusNotifierTrayItem>(m_client, m_icons.path(), m_clock);
        m_item->setAppearance(looking);
        m_signals.clear();
    }

    void cleanup()
    {
        m_item.reset();
        QTRY_VERIFY(!isOnBus());
    }

    void announcesItselfUnderANameOfItsOwn()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        QVERIFY(watcher.appear());
        QTRY_COMPARE(watcher.items, QStringList{ownName});
        QCOMPARE(m_host.interface()->serviceOwner(ownName).value(), m_client.baseService());
        QTRY_VERIFY(m_item->hasHost());
    }

    void announcesItselfToAWatcherThatComesLater()
    {
        QTRY_VERIFY(isOnBus());
        QVERIFY(!m_item->hasHost());
        int changes = 0;
        const Subscription listening = m_item->hostChanged.subscribe([&] { ++changes; });
        FakeStatusNotifierWatcher watcher(m_services);
        QVERIFY(watcher.appear());
        QTRY_VERIFY(m_item->hasHost());
        QCOMPARE(watcher.items, QStringList{ownName});
        QCOMPARE(changes, 1);
    }

    void announcesItselfAgainToARestartedWatcher()
    {
        {
            FakeStatusNotifierWatcher watcher(m_services);
            QVERIFY(watcher.appear());
            QTRY_VERIFY(m_item->hasHost());
        }
        QTRY_VERIFY(!m_item->hasHost());
        FakeStatusNotifierWatcher watcher(m_services);
        QVERIFY(watcher.appear());
        QTRY_VERIFY(m_item->hasHost());
        QCOMPARE(watcher.items, QStringList{ownName});
    }

    void announcesItselfToTheWatcherThatReplacesAnother()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        QVERIFY(watcher.appear());
        m_services.interface()->registerService(watcher.service(),
            QDBusConnectionInterface::ReplaceExistingService,
            QDBusConnectionInterface::AllowReplacement);
        QTRY_VERIFY(m_item->hasHost());
        FakeStatusNotifierWatcher other(m_others);
        QVERIFY(m_others.registerVirtualObject(watcherPath, &other));
        m_others.interface()->registerService(other.service(), QDBusConnectionInterface::ReplaceExistingService);
        QTRY_COMPARE(other.items, QStringList{ownName});
        other.vanish();
    }

    void aWatcherWithoutATrayIsNoHost()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        watcher.hasHost = false;
        QVERIFY(watcher.appear());
        QTRY_COMPARE(watcher.items, QStringList{ownName});
        QVERIFY(!m_item->hasHost());
        watcher.setHost(true);
        QTRY_VERIFY(m_item->hasHost());
        watcher.setHost(false);
        QTRY_VERIFY(!m_item->hasHost());
    }

    void aWatcherThatCannotTellIsAHost()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        watcher.isPoor = true;
        QVERIFY(watcher.appear());
        QTRY_VERIFY(m_item->hasHost());
    }

    void howAWatcherWritesItsItemsDoesNotMatter_data()
    {
        QTest::addColumn<QString>("notation");
        QTest::addColumn<bool>("isOurs");
        const QString unique = m_client.baseService();
        QTest::newRow("name") << u"NAME"_s << true;
        QTest::newRow("name and path") << u"NAME/StatusNotifierItem"_s << true;
        QTest::newRow("name at path") << u"NAME@/StatusNotifierItem"_s << true;
        QTest::newRow("connection and path") << unique + u"/StatusNotifierItem"_s << true;
        QTest::newRow("connection at path") << unique + u"@/StatusNotifierItem"_s << true;
        QTest::newRow("the eleventh item of the process") << u"NAME1/StatusNotifierItem"_s << false;
        QTest::newRow("another connection") << unique + u"0/StatusNotifierItem"_s << false;
        QTest::newRow("another process") << u"org.kde.StatusNotifierItem-0-1/StatusNotifierItem"_s << false;
    }

    void howAWatcherWritesItsItemsDoesNotMatter()
    {
        QFETCH(QString, notation);
        QFETCH(bool, isOurs);
        FakeStatusNotifierWatcher watcher(m_services);
        watcher.notation = notation;
        QVERIFY(watcher.appear());
        QTRY_COMPARE(m_clock.pending(), std::size_t{1});
        m_clock.advance(Seconds{1});
        QTRY_COMPARE(watcher.items.size(), isOurs ? 1 : 2);
        QTRY_COMPARE(m_item->hasHost(), isOurs);
    }

    void aWatcherWithoutAListIsAHost()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        watcher.hasNoList = true;
        QVERIFY(watcher.appear());
        QTRY_VERIFY(m_item->hasHost());
        watcher.setHost(false);
        QTRY_VERIFY(!m_item->hasHost());
    }

    void anItemThatGotLostIsAnnouncedAgain()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        watcher.forgets = 2;
        QVERIFY(watcher.appear());
        for (int announcements = 1; announcements <= 2; ++announcements) {
            QTRY_COMPARE(m_clock.pending(), std::size_t{1});
            QVERIFY(!m_item->hasHost());
            m_clock.advance(Seconds{0.9});
            QCOMPARE(watcher.items.size(), announcements);
            m_clock.advance(Seconds{0.1});
            QTRY_COMPARE(watcher.items.size(), announcements + 1);
        }
        QTRY_VERIFY(m_item->hasHost());
    }

    void anItemThatIsListedIsNotAnnouncedAgain()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        QVERIFY(watcher.appear());
        QTRY_VERIFY(m_item->hasHost());
        m_clock.advance(Seconds{1});
        QCOMPARE(m_clock.pending(), std::size_t{0});
        // The watcher has been asked before this, and an announcement would have come after it.
        watcher.setHost(false);
        QTRY_VERIFY(!m_item->hasHost());
        QCOMPARE(watcher.items.size(), 1);
    }

    void anItemThatGetsLostLaterIsAnnouncedAgain()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        QVERIFY(watcher.appear());
        QTRY_VERIFY(m_item->hasHost());
        m_clock.advance(Seconds{3600});
        watcher.loseItems();
        QTRY_VERIFY(!m_item->hasHost());
        QCOMPARE(watcher.items.size(), 1);
        m_clock.advance(Seconds{1});
        QTRY_VERIFY(m_item->hasHost());
        QCOMPARE(watcher.items.size(), 2);
    }

    void aWatcherThatKeepsNothingIsLeftAlone()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        watcher.forgets = std::numeric_limits<int>::max();
        QVERIFY(watcher.appear());
        constexpr int announcements = 1 + TrayHostRegistration::maximumRepetitions;
        for (int i = 1; i <= announcements; ++i) {
            QTRY_COMPARE(watcher.items.size(), i);
            QTRY_COMPARE(m_clock.pending(), std::size_t{1});
            if (i == announcements)
                expectLog(QtWarningMsg, u"^the tray does not keep the item$"_s);
            m_clock.advance(Seconds{1});
        }
        // The answer to each question has arrived when the watcher is asked the next one.
        for (int questions = 2 * announcements; questions < 2 * announcements + 2; ++questions) {
            QTRY_COMPARE(watcher.questions, questions);
            watcher.setHost(true);
        }
        QCOMPARE(m_clock.pending(), std::size_t{0});
        QCOMPARE(watcher.items.size(), announcements);
        QVERIFY(!m_item->hasHost());
    }

    void aWatcherThatRefusesIsToldAgain()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        watcher.refuses = true;
        QVERIFY(watcher.appear());
        QTRY_COMPARE(watcher.refusals, 1);
        QTRY_COMPARE(m_clock.pending(), std::size_t{1});
        QVERIFY(!m_item->hasHost());
        watcher.refuses = false;
        m_clock.advance(Seconds{1});
        QTRY_VERIFY(m_item->hasHost());
    }

    void aLastingRefusalIsLoggedAndNoHost()
    {
        FakeStatusNotifierWatcher watcher(m_services);
        watcher.refuses = true;
        QVERIFY(watcher.appear());
        expectLog(QtWarningMsg, u"^the tray refused the item: The tray is full$"_s);
        for (int repetitions = 0; repetitions < TrayHostRegistration::maximumRepetitions; ++repetitions) {
            QTRY_COMPARE(m_clock.pending(), std::size_t{1});
            m_clock.advance(Seconds{1});
            QTRY_COMPARE(watcher.refusals, repetitions + 2);
        }
        watcher.setHost(true);
        // Whatever the item would have made of it has happened when a later call is answered.
        QCOMPARE(properties()[u"Title"_s], u"Watching"_s);
        QVERIFY(!m_item->hasHost());
    }

    void withoutABusThereIsNoHost()
    {
        StatusNotifierTrayItem item(QDBusConnection(u"nowhere"_s), m_icons.path(), m_clock);
        item.setAppearance(looking);
        item.setMenu({});
        QCoreApplication::processEvents();
        QVERIFY(!item.hasHost());
    }

    void aNameThatSomebodyElseOwnsIsNotUsed()
    {
        m_item.reset();
        QTRY_VERIFY(!isOnBus());
        QVERIFY(m_others.registerService(ownName));
        m_item = std::make_unique<StatusNotifierTrayItem>(m_client, m_icons.path(), m_clock);
        FakeStatusNotifierWatcher watcher(m_services);
        QVERIFY(watcher.appear());
        QTRY_COMPARE(watcher.items, QStringList{m_client.baseService()});
        QVERIFY(m_others.unregisterService(ownName));
    }

    void tellsWhatItIs()
    {
        const QVariantMap all = properties();
        QCOMPARE(all[u"Category"_s], u"ApplicationStatus"_s);
        QCOMPARE(all[u"Id"_s], u"tarvik"_s);
        QCOMPARE(all[u"Status"_s], u"Active"_s);
        QCOMPARE(all[u"Title"_s], u"Watching"_s);
        QCOMPARE(all[u"IconName"_s], u"tarvik-looking-symbolic"_s);
        QCOMPARE(all[u"IconThemePath"_s], m_icons.path());
        QCOMPARE(all[u"IconAccessibleDesc"_s], u"Watching"_s);
        QCOMPARE(all[u"AttentionAccessibleDesc"_s], u"Watching"_s);
        QCOMPARE(all[u"ItemIsMenu"_s], false);
        QCOMPARE(all[u"Menu"_s].value<QDBusObjectPath>().path(), u"/MenuBar"_s);
    }

    void thePathIsToldOnlyWhileTheIconIsNotInstalled()
    {
        QDir data(m_data.path());
        const QString folder = u"icons/hicolor/symbolic/apps"_s;
        QVERIFY(data.mkpath(folder));
        QFile icon(data.filePath(folder + u"/tarvik-looking-symbolic.svg"_s));
        QVERIFY(icon.open(QFile::WriteOnly));
        QCOMPARE(properties()[u"IconThemePath"_s], QString());
        QVERIFY(icon.remove());
        QCOMPARE(properties()[u"IconThemePath"_s], m_icons.path());
    }

    void theTooltipIsEscapedWhereMarkupIsRead()
    {
        TrayAppearance appearance = looking;
        appearance.tooltipTitle = u"Paused — battery 15% < 20%"_s;
        appearance.tooltipBody = u"<b> & co"_s;
        m_item->setAppearance(appearance);
        const QDBusArgument argument = properties()[u"ToolTip"_s].value<QDBusArgument>();
        QCOMPARE(argument.currentSignature(), u"(sa(iiay)ss)"_s);
        const auto toolTip = qdbus_cast<StatusNotifierToolTip>(argument);
        QCOMPARE(toolTip.title, u"Paused — battery 15% < 20%"_s);
        QCOMPARE(toolTip.description, u"&lt;b&gt; &amp; co"_s);
    }

    void eachImageHasItsIcon_data()
    {
        QTest::addColumn<QString>("image");
        QTest::addColumn<QString>("icon");
        QTest::newRow("active") << u"MenuActive"_s << u"tarvik-active-symbolic"_s;
        QTest::newRow("idle") << u"MenuIdle"_s << u"tarvik-idle-symbolic"_s;
        QTest::newRow("looking") << u"MenuLooking"_s << u"tarvik-looking-symbolic"_s;
    }

    void eachImageHasItsIcon()
    {
        QFETCH(QString, image);
        TrayAppearance appearance = looking;
        appearance.imageName = image;
        m_item->setAppearance(appearance);
        QTEST(properties()[u"IconName"_s].toString(), "icon");
    }

    void picturesComeFromFilesThatAreSquares()
    {
        QVERIFY(QDir(m_icons.path()).mkpath(u"pixmaps"_s));
        writePicture(u"tarvik-looking-symbolic-10.argb"_s, 400);
        writePicture(u"tarvik-looking-symbolic-2.argb"_s, 16);
        writePicture(u"tarvik-looking-symbolic-4.argb"_s, 65);
        writePicture(u"tarvik-looking-symbolic-0.argb"_s, 0);
        writePicture(u"tarvik-looking-symbolic-1000.argb"_s, 4000000);
        writePicture(u"tarvik-looking-symbolic-x.argb"_s, 16);
        writePicture(u"tarvik-idle-symbolic-3.argb"_s, 36);
        const QDBusArgument argument = properties()[u"IconPixmap"_s].value<QDBusArgument>();
        QCOMPARE(argument.currentSignature(), u"a(iiay)"_s);
        const auto pixmaps = qdbus_cast<QList<StatusNotifierPixmap>>(argument);
        QCOMPARE(pixmaps.size(), 2);
        QCOMPARE(pixmaps[0].width, 2);
        QCOMPARE(pixmaps[0].height, 2);
        QCOMPARE(pixmaps[0].bytes, QByteArray(16, 'p'));
        QCOMPARE(pixmaps[1].width, 10);
    }

    void aClickCarriesItsPlaceAndItsToken()
    {
        QStringList clicks;
        const Subscription listening = m_item->activated.subscribe(
            [&](int x, int y, const QString& token) { clicks.append(u"%1 %2 \"%3\""_s.arg(x).arg(y).arg(token)); });
        QCOMPARE(call(u"ProvideXdgActivationToken"_s, {u"token"_s}).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(call(u"Activate"_s, {1268, 786}).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(call(u"Activate"_s, {-5, 7}).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(call(u"SecondaryActivate"_s, {1, 2}).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(call(u"ContextMenu"_s, {3, 4}).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(call(u"Scroll"_s, {120, u"vertical"_s}).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(clicks, (QStringList{u"1268 786 \"token\""_s, u"-5 7 \"\""_s, u"1 2 \"\""_s, u"3 4 \"\""_s}));
    }

    void aClickThatNobodyHandlesIsAnswered()
    {
        QCOMPARE(call(u"Activate"_s, {1, 2}).type(), QDBusMessage::ReplyMessage);
    }

    void callsWithWrongArgumentsAreRefused()
    {
        const CallsThatNoSlotTakes expected;
        const Subscription listening
            = m_item->activated.subscribe([](int, int, const QString&) { QFAIL("This is no click."); });
        QCOMPARE(call(u"Activate"_s, {}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(call(u"Activate"_s, {u"left"_s, u"right"_s}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(call(u"Deactivate"_s, {}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(call(u"ProvideXdgActivationToken"_s, {7}).type(), QDBusMessage::ErrorMessage);
    }

    void onlyWhatHasChangedIsToldAndOnce()
    {
        QTRY_COMPARE(m_signals.size(), 2);
        m_signals.clear();
        TrayAppearance appearance = looking;
        appearance.imageName = u"MenuActive"_s;
        appearance.title = u"Awake"_s;
        m_item->setAppearance(appearance);
        appearance.tooltipBody = u"Claude Code"_s;
        m_item->setAppearance(appearance);
        QTRY_COMPARE(m_signals, (QStringList{u"NewIcon"_s, u"NewTitle"_s, u"NewToolTip"_s}));
        m_signals.clear();
        m_item->setAppearance(looking);
        m_item->setAppearance(appearance);
        QCoreApplication::processEvents();
        appearance.title = u"Off"_s;
        m_item->setAppearance(appearance);
        QTRY_COMPARE(m_signals, QStringList{u"NewTitle"_s});
    }

    void leavesTheBusWithItsEnd()
    {
        QTRY_VERIFY(isOnBus());
        m_item.reset();
        QTRY_VERIFY(!isOnBus());
        QCOMPARE(call(u"Activate"_s, {1, 2}).type(), QDBusMessage::ErrorMessage);
    }

public Q_SLOTS:
    void recordSignal(const QDBusMessage& message) { m_signals.append(message.member()); }

private:
    static inline const QString itemPath = u"/StatusNotifierItem"_s;
    static inline const QString itemInterface = u"org.kde.StatusNotifierItem"_s;
    static inline const QString watcherPath = u"/StatusNotifierWatcher"_s;
    static inline const TrayAppearance looking{
        u"MenuLooking"_s, u"Watching"_s, u"Dozing — nothing to watch"_s, u"Nothing running to keep awake for"_s};
    const QString ownName = u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid());

    bool isOnBus() { return m_host.interface()->isServiceRegistered(ownName); }

    QDBusMessage call(const QString& method, const QVariantList& arguments)
    {
        return callInterface(itemInterface, method, arguments);
    }

    QDBusMessage callInterface(const QString& interface, const QString& method, const QVariantList& arguments)
    {
        auto message = QDBusMessage::createMethodCall(m_client.baseService(), itemPath, interface, method);
        message.setArguments(arguments);
        return m_host.call(message, QDBus::BlockWithGui);
    }

    QVariantMap properties()
    {
        const QDBusMessage answer = callInterface(u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s, {itemInterface});
        return qdbus_cast<QVariantMap>(answer.arguments().value(0));
    }

    void writePicture(const QString& name, qsizetype bytes)
    {
        QFile file(m_icons.filePath(u"pixmaps/"_s + name));
        QVERIFY(file.open(QFile::WriteOnly));
        QCOMPARE(file.write(QByteArray(bytes, 'p')), bytes);
    }

    FakeClock m_clock;
    QTemporaryDir m_icons;
    QTemporaryDir m_data;
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    QDBusConnection m_others = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"others"_s);
    QDBusConnection m_host = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"host"_s);
    std::unique_ptr<StatusNotifierTrayItem> m_item;
    QStringList m_signals;
};

QTEST_GUILESS_MAIN(StatusNotifierTrayItemTest)
#include "StatusNotifierTrayItemTest.moc"
