// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/X11Scale.h"

#include "support/TestSupport.h"
#include "support/VirtualXServer.h"

using namespace Tarvik;

namespace {

/// One integer, in the order of the processor, which is that of most.
QByteArray settings(int factor)
{
    QByteArray data = QByteArray("\0\0\0\0\1\0\0\0\1\0\0\0", 12);
    data += QByteArray("\0\0\x17\0Gdk/WindowScalingFactor\0\0\0\0\0", 32);
    data += static_cast<char>(factor);
    data += QByteArray("\0\0\0", 3);
    return data;
}

/// A desktop's settings daemon on a connection of its own.
class SettingsDaemon {
public:
    SettingsDaemon(const VirtualXServer& server, const QByteArray& settings, const QByteArray& resources)
        : m_client(server)
        , m_window(xcb_generate_id(m_client.connection()))
    {
        xcb_connection_t* x11 = m_client.connection();
        xcb_create_window(
            x11, 0, m_window, m_client.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, 0, 0, nullptr);
        xcb_set_selection_owner(x11, m_window, atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
        set(m_window, atom("_XSETTINGS_SETTINGS"), settings);
        set(m_client.root(), XCB_ATOM_RESOURCE_MANAGER, resources);
        m_client.settle();
    }

private:
    void set(xcb_window_t window, xcb_atom_t name, const QByteArray& value)
    {
        xcb_change_property(m_client.connection(),
            XCB_PROP_MODE_REPLACE,
            window,
            name,
            XCB_ATOM_STRING,
            8,
            static_cast<uint32_t>(value.size()),
            value.constData());
    }

    xcb_atom_t atom(const QByteArray& name)
    {
        const auto cookie
            = xcb_intern_atom(m_client.connection(), 0, static_cast<uint16_t>(name.size()), name.constData());
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(m_client.connection(), cookie, nullptr), &std::free);
        return reply->atom;
    }

    XClient m_client;
    xcb_window_t m_window;
};

} // namespace

class X11ScaleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theFontResolutionIsOneOfManyResources()
    {
        QCOMPARE(X11Scale::fontResolution("*color:\tred\nXft.dpi:\t192\nXft.rgba:\tnone\n"), 192);
        QCOMPARE(X11Scale::fontResolution("Xft.dpi: 120.5"), 120.5);
        QCOMPARE(X11Scale::fontResolution("Xft.dpi:\tmany\nXft.dpis:\t192\n"), std::nullopt);
        QCOMPARE(X11Scale::fontResolution({}), std::nullopt);
    }

    void theFactorIsMissingWhereOnlyGtkIsToldOfIt_data()
    {
        QTest::addColumn<QByteArray>("settings");
        QTest::addColumn<QByteArray>("resources");
        QTest::addColumn<int>("expected");
        QTest::newRow("nothing is set") << QByteArray() << QByteArray() << 1;
        QTest::newRow("not scaled") << settings(1) << QByteArray("Xft.dpi:\t96\n") << 1;
        QTest::newRow("scaled, for GTK only") << settings(2) << QByteArray("Xft.hintstyle:\thintnone\n") << 2;
        QTest::newRow("scaled for GTK only, with larger letters") << settings(2) << QByteArray("Xft.dpi:\t120\n") << 2;
        QTest::newRow("scaled, for Qt too") << settings(2) << QByteArray("Xft.dpi:\t192\n") << 1;
        QTest::newRow("scaled beyond belief") << settings(77) << QByteArray() << 1;
    }

    void theFactorIsMissingWhereOnlyGtkIsToldOfIt()
    {
        QFETCH(QByteArray, settings);
        QFETCH(QByteArray, resources);
        const VirtualXServer server;
        QVERIFY(server.isRunning());
        const SettingsDaemon daemon(server, settings, resources);
        QTEST(X11Scale::missingFactor(server.display()), "expected");
    }

    void withoutASettingsDaemonNothingIsMissing()
    {
        const VirtualXServer server;
        QCOMPARE(X11Scale::missingFactor(server.display()), 1);
    }

    void withoutADisplayNothingIsMissing() { QCOMPARE(X11Scale::missingFactor(":4711"), 1); }
};

QTEST_GUILESS_MAIN(X11ScaleTest)
#include "X11ScaleTest.moc"
