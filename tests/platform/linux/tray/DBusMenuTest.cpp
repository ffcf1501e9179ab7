// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/tray/DBusMenu.h"

#include "support/TestSupport.h"

#include <QDBusMessage>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class DBusMenuTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const auto& signal : {u"LayoutUpdated"_s, u"ItemsPropertiesUpdated"_s})
            QVERIFY(m_host.connect({}, menuPath, menuInterface, signal, this, SLOT(recordSignal(QDBusMessage))));
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_menu = std::make_unique<DBusMenu>(m_client, menuPath);
        m_menu->onActivated = [this](int id) { m_chosen.append(id); };
        m_menu->setMenu(sampleMenu());
        QTRY_COMPARE(m_signals.size(), 1);
        m_signals.clear();
        m_chosen.clear();
    }

    void cleanup()
    {
        m_menu.reset();
        m_signals.clear();
    }

    void tellsWhatItIs()
    {
        const auto message = methodCall(u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s, {menuInterface});
        const auto all = qdbus_cast<QVariantMap>(m_host.call(message, QDBus::BlockWithGui).arguments().value(0));
        QCOMPARE(all,
            (QVariantMap{{u"Version"_s, 3U},
                {u"TextDirection"_s, u"ltr"_s},
                {u"Status"_s, u"normal"_s},
                {u"IconThemePath"_s, QStringList()}}));
    }

    void theWholeLayoutIsGiven()
    {
        const QDBusMessage answer = call(u"GetLayout"_s, {0, -1, QStringList()});
        QCOMPARE(answer.signature(), u"u(ia{sv}av)"_s);
        QCOMPARE(text(layoutOf(answer)),
            u"0{children-display=submenu}["
            "1{enabled=false label=Awake},"
            "2{type=separator},"
            "3{enabled=true label=Tarvik toggle-state=1 toggle-type=checkmark},"
            "4{children-display=submenu enabled=true label=Keep awake}[5{enabled=true label=1 hour},6{type=separator}],"
            "7{enabled=true label=under__score & co}]"_s);
    }

    void theLayoutIsCutAtTheDepthAndReducedToTheProperties()
    {
        QCOMPARE(text(layoutOf(call(u"GetLayout"_s, {0, 0, QStringList()}))), u"0{children-display=submenu}"_s);
        QCOMPARE(text(layoutOf(call(u"GetLayout"_s, {0, 1, QStringList{u"type"_s, u"toggle-state"_s}}))),
            u"0{}[1{},2{type=separator},3{toggle-state=1},4{},7{}]"_s);
        QCOMPARE(text(layoutOf(call(u"GetLayout"_s, {4, -1, QStringList{u"label"_s}}))),
            u"4{label=Keep awake}[5{label=1 hour},6{}]"_s);
        QCOMPARE(text(layoutOf(call(u"GetLayout"_s, {5, 3, QStringList{u"label"_s}}))), u"5{label=1 hour}"_s);
        QCOMPARE(text(layoutOf(call(u"GetLayout"_s, {0, 1000000, QStringList{u"nonsense"_s}}))),
            u"0{}[1{},2{},3{},4{}[5{},6{}],7{}]"_s);
    }

    void aLayoutOfAnUnknownEntryOrDepthIsRefused_data()
    {
        QTest::addColumn<int>("parent");
        QTest::addColumn<int>("depth");
        QTest::newRow("unknown entry") << 99 << -1;
        QTest::newRow("negative entry") << -1 << -1;
        QTest::newRow("negative depth") << 0 << -2;
        QTest::newRow("smallest depth") << 0 << std::numeric_limits<int>::min();
    }

    void aLayoutOfAnUnknownEntryOrDepthIsRefused()
    {
        QFETCH(int, parent);
        QFETCH(int, depth);
        const QDBusMessage answer = call(u"GetLayout"_s, {parent, depth, QStringList()});
        QCOMPARE(answer.errorName(), u"org.freedesktop.DBus.Error.InvalidArgs"_s);
    }

    void propertiesOfSeveralEntriesAreGiven()
    {
        const QDBusMessage some = call(u"GetGroupProperties"_s, {ids({5, 99, 2}), QStringList()});
        QCOMPARE(some.signature(), u"a(ia{sv})"_s);
        const auto items = qdbus_cast<QList<DBusMenuItem>>(some.arguments().constFirst());
        QCOMPARE(items,
            (QList<DBusMenuItem>{
                {5, {{u"enabled"_s, true}, {u"label"_s, u"1 hour"_s}}}, {2, {{u"type"_s, u"separator"_s}}}}));
        const QDBusMessage all = call(u"GetGroupProperties"_s, {ids({}), QStringList{u"label"_s}});
        QCOMPARE(qdbus_cast<QList<DBusMenuItem>>(all.arguments().constFirst()).size(), 8);
    }

    void onePropertyIsGiven()
    {
        const QDBusMessage answer = call(u"GetProperty"_s, {3, u"toggle-state"_s});
        QCOMPARE(answer.arguments().constFirst().value<QDBusVariant>().variant(), QVariant(1));
        QCOMPARE(call(u"GetProperty"_s, {3, u"colour"_s}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(call(u"GetProperty"_s, {99, u"label"_s}).type(), QDBusMessage::ErrorMessage);
    }

    void aClickChoosesACommand()
    {
        QCOMPARE(event(7, u"clicked"_s).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(event(5, u"clicked"_s).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(event(3, u"clicked"_s).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(m_chosen, (QList<int>{7, 5, 3}));
    }

    void onlyClicksOnWhatCanBeChosenCount()
    {
        for (const int id : {0, 1, 2, 4, 6})
            QCOMPARE(event(id, u"clicked"_s).type(), QDBusMessage::ReplyMessage);
        for (const auto& kind : {u"hovered"_s, u"opened"_s, u"closed"_s, u"x-vendor-thing"_s, QString()})
            QCOMPARE(event(7, kind).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(m_chosen, QList<int>());
    }

    void anEventOfAnUnknownEntryIsRefused()
    {
        QCOMPARE(event(99, u"clicked"_s).errorName(), u"org.freedesktop.DBus.Error.InvalidArgs"_s);
        QCOMPARE(event(-1, u"clicked"_s).errorName(), u"org.freedesktop.DBus.Error.InvalidArgs"_s);
        QCOMPARE(m_chosen, QList<int>());
    }

    void eventsComeInGroups()
    {
        const QDBusMessage answer
            = call(u"EventGroup"_s, {events({{5, u"clicked"_s}, {99, u"clicked"_s}, {4, u"opened"_s}})});
        QCOMPARE(qdbus_cast<QList<int>>(answer.arguments().constFirst()), QList<int>{99});
        QCOMPARE(m_chosen, QList<int>{5});
        QCOMPARE(call(u"EventGroup"_s, {events({{98, u"clicked"_s}, {99, u"clicked"_s}})}).type(),
            QDBusMessage::ErrorMessage);
        QCOMPARE(call(u"EventGroup"_s, {events({})}).type(), QDBusMessage::ReplyMessage);
    }

    void aMenuAboutToBeShownIsUpToDate()
    {
        QCOMPARE(call(u"AboutToShow"_s, {0}).arguments(), QVariantList{false});
        QCOMPARE(call(u"AboutToShow"_s, {99}).type(), QDBusMessage::ErrorMessage);
        const QDBusMessage answer = call(u"AboutToShowGroup"_s, {ids({0, 99})});
        QCOMPARE(answer.signature(), u"aiai"_s);
        QCOMPARE(qdbus_cast<QList<int>>(answer.arguments().at(0)), QList<int>());
        QCOMPARE(qdbus_cast<QList<int>>(answer.arguments().at(1)), QList<int>{99});
        QCOMPARE(call(u"AboutToShowGroup"_s, {ids({99})}).type(), QDBusMessage::ErrorMessage);
    }

    void callsWithWrongArgumentsAreRefused()
    {
        const CallsThatNoSlotTakes expected;
        QCOMPARE(call(u"GetLayout"_s, {u"root"_s}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(call(u"Event"_s, {7}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(call(u"EventGroup"_s, {7}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(
            call(u"GetGroupProperties"_s, {QStringList{u"1"_s}, QStringList()}).type(), QDBusMessage::ErrorMessage);
        QCOMPARE(m_chosen, QList<int>());
    }

    void changedPropertiesAreToldOnce()
    {
        TrayMenu menu = sampleMenu();
        menu[0].label = u"Paused"_s;
        m_menu->setMenu(menu);
        menu[0].label = u"Off"_s;
        menu[2].isChecked.reset();
        menu[3].entries[0].isEnabled = false;
        m_menu->setMenu(menu);
        QTRY_COMPARE(m_signals.size(), 1);
        QCOMPARE(m_signals[0].member(), u"ItemsPropertiesUpdated"_s);
        QCOMPARE(m_signals[0].signature(), u"a(ia{sv})a(ias)"_s);
        QCOMPARE(qdbus_cast<QList<DBusMenuItem>>(m_signals[0].arguments().at(0)),
            (QList<DBusMenuItem>{{1, {{u"label"_s, u"Off"_s}}}, {5, {{u"enabled"_s, false}}}}));
        QCOMPARE(qdbus_cast<QList<DBusMenuItemKeys>>(m_signals[0].arguments().at(1)),
            (QList<DBusMenuItemKeys>{{3, {u"toggle-state"_s, u"toggle-type"_s}}}));
    }

    void aChangedShapeIsANewRevision()
    {
        const uint before = call(u"GetLayout"_s, {0, 0, QStringList()}).arguments().at(0).toUInt();
        TrayMenu menu = sampleMenu();
        menu[3].entries.pop_back();
        menu[0].label = u"Paused"_s;
        m_menu->setMenu(menu);
        QTRY_COMPARE(m_signals.size(), 1);
        QCOMPARE(m_signals[0].member(), u"LayoutUpdated"_s);
        QCOMPARE(m_signals[0].arguments(), (QVariantList{before + 1, 0}));
        const QDBusMessage answer = call(u"GetLayout"_s, {4, -1, QStringList{u"label"_s}});
        QCOMPARE(answer.arguments().at(0).toUInt(), before + 1);
        QCOMPARE(text(layoutOf(answer)), u"4{label=Keep awake}[5{label=1 hour}]"_s);
    }

    void whatHasNotChangedIsNotTold()
    {
        m_menu->setMenu({});
        m_menu->setMenu(sampleMenu());
        QCoreApplication::processEvents();
        TrayMenu menu = sampleMenu();
        menu[0].label = u"Paused"_s;
        m_menu->setMenu(menu);
        QTRY_COMPARE(m_signals.size(), 1);
        QCOMPARE(m_signals[0].member(), u"ItemsPropertiesUpdated"_s);
    }

    void aCommandMayChangeTheMenu()
    {
        m_menu->onActivated = [this](int id) {
            m_chosen.append(id);
            m_menu->setMenu({});
        };
        const QDBusMessage answer = call(u"EventGroup"_s, {events({{5, u"clicked"_s}, {5, u"clicked"_s}})});
        QCOMPARE(qdbus_cast<QList<int>>(answer.arguments().constFirst()), QList<int>{5});
        QCOMPARE(m_chosen, QList<int>{5});
        QTRY_COMPARE(m_signals.size(), 1);
        QCOMPARE(m_signals[0].member(), u"LayoutUpdated"_s);
    }

    void leavesTheBusWithItsEnd()
    {
        m_menu.reset();
        QCOMPARE(call(u"AboutToShow"_s, {0}).type(), QDBusMessage::ErrorMessage);
    }

public Q_SLOTS:
    void recordSignal(const QDBusMessage& message) { m_signals.append(message); }

private:
    static inline const QString menuPath = u"/MenuBar"_s;
    static inline const QString menuInterface = u"com.canonical.dbusmenu"_s;

    static TrayMenuEntry entry(int id, const QString& label)
    {
        TrayMenuEntry entry;
        entry.id = id;
        entry.label = label;
        entry.isSeparator = label.isEmpty();
        return entry;
    }

    static TrayMenu sampleMenu()
    {
        TrayMenu menu{entry(1, u"Awake"_s),
            entry(2, {}),
            entry(3, u"Tarvik"_s),
            entry(4, u"Keep awake"_s),
            entry(7, u"under_score & co"_s)};
        menu[0].isEnabled = false;
        menu[2].isChecked = true;
        menu[3].entries = {entry(5, u"1 hour"_s), entry(6, {})};
        return menu;
    }

    static QVariant ids(const QList<int>& list) { return QVariant::fromValue(list); }

    static QVariant events(const QList<std::pair<int, QString>>& list)
    {
        QList<DBusMenuEvent> group;
        for (const auto& [id, kind] : list)
            group.append({id, kind, QDBusVariant(0), 0});
        return QVariant::fromValue(group);
    }

    static DBusMenuLayoutItem layoutOf(const QDBusMessage& answer)
    {
        return qdbus_cast<DBusMenuLayoutItem>(answer.arguments().value(1));
    }

    static QString text(const DBusMenuLayoutItem& item)
    {
        QStringList properties;
        for (const auto& [name, value] : item.properties.asKeyValueRange())
            properties.append(name + u'=' + value.toString());
        QStringList children;
        for (const DBusMenuLayoutItem& child : item.children)
            children.append(text(child));
        const QString below = children.isEmpty() ? QString() : u'[' + children.join(u',') + u']';
        return u"%1{%2}%3"_s.arg(QString::number(item.id), properties.join(u' '), below);
    }

    QDBusMessage methodCall(const QString& interface, const QString& method, const QVariantList& arguments) const
    {
        auto message = QDBusMessage::createMethodCall(m_client.baseService(), menuPath, interface, method);
        message.setArguments(arguments);
        return message;
    }

    QDBusMessage call(const QString& method, const QVariantList& arguments)
    {
        return m_host.call(methodCall(menuInterface, method, arguments), QDBus::BlockWithGui);
    }

    QDBusMessage event(int id, const QString& kind)
    {
        return call(u"Event"_s, {id, kind, QVariant::fromValue(QDBusVariant(0)), 0U});
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_host = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"host"_s);
    std::unique_ptr<DBusMenu> m_menu;
    QList<QDBusMessage> m_signals;
    QList<int> m_chosen;
};

QTEST_GUILESS_MAIN(DBusMenuTest)
#include "DBusMenuTest.moc"
