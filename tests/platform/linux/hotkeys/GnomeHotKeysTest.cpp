// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/GnomeHotKeys.h"

#include "base/Releaser.h"
#include "support/GnomeShortcutSchemas.h"
#include "support/TestSupport.h"

#include <gio/gio.h>

#include <memory>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

constexpr auto ours = "/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/tarvik-lock-screen/";
constexpr auto theirs = "/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/custom0/";

using Settings = Owned<GSettings, g_object_unref>;

Settings mediaKeys()
{
    return Settings(g_settings_new("org.gnome.settings-daemon.plugins.media-keys"));
}

Settings shortcutAt(const char* path)
{
    return Settings(g_settings_new_with_path("org.gnome.settings-daemon.plugins.media-keys.custom-keybinding", path));
}

QByteArrayList listed()
{
    gchar** paths = g_settings_get_strv(mediaKeys().get(), "custom-keybindings");
    QByteArrayList list;
    for (gchar** path = paths; *path != nullptr; ++path)
        list.append(*path);
    g_strfreev(paths);
    return list;
}

QString valueAt(const char* path, const char* key)
{
    gchar* value = g_settings_get_string(shortcutAt(path).get(), key);
    const QString text = QString::fromUtf8(value);
    g_free(value);
    return text;
}

HotKeyRequest lock()
{
    return {.id = 7,
        .keyCode = KeyCodes::ansiA,
        .modifiers = KeyModifiers::command | KeyModifiers::option,
        .purpose = {.name = u"lock-screen"_s, .description = u"Lock the screen"_s}};
}

const HotKeyState registered{u"GNOME's custom shortcuts"_s, HotKeyStatus::registered};

} // namespace

class GnomeHotKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_schemas.isReady()); }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        g_settings_reset(mediaKeys().get(), "custom-keybindings");
        m_pressed.clear();
        m_hotKeys = std::make_unique<GnomeHotKeys>(m_client);
        m_listening = m_hotKeys->pressed.subscribe([this](std::uint32_t id) { m_pressed.append(id); });
    }

    void theShortcutIsThereWhileItIsWanted()
    {
        auto registration = m_hotKeys->registerHotKey(lock());
        QCOMPARE(registration->state(), registered);
        QCOMPARE(listed(), QByteArrayList{ours});
        QCOMPARE(valueAt(ours, "name"), u"Lock the screen"_s);
        QCOMPARE(valueAt(ours, "binding"), u"<Super><Alt>a"_s);
        registration.reset();
        QCOMPARE(listed(), QByteArrayList{});
        QCOMPARE(valueAt(ours, "name"), QString());
        QCOMPARE(valueAt(ours, "command"), QString());
        QCOMPARE(valueAt(ours, "binding"), QString());
    }

    void nothingRemainsOfAnUntouchedList()
    {
        m_hotKeys->registerHotKey(lock()).reset();
        const std::unique_ptr<GVariant, decltype(&g_variant_unref)> set(
            g_settings_get_user_value(mediaKeys().get(), "custom-keybindings"), &g_variant_unref);
        QVERIFY(set == nullptr);
    }

    void theUsersOwnShortcutsStay()
    {
        const char* const before[] = {theirs, nullptr};
        g_settings_set_strv(mediaKeys().get(), "custom-keybindings", before);
        g_settings_set_string(shortcutAt(theirs).get(), "binding", "<Super>t");
        auto registration = m_hotKeys->registerHotKey(lock());
        QCOMPARE(listed(), (QByteArrayList{theirs, ours}));
        registration.reset();
        QCOMPARE(listed(), QByteArrayList{theirs});
        QCOMPARE(valueAt(theirs, "binding"), u"<Super>t"_s);
    }

    void whatAKilledProgramLeftIsReplacedAndTakenAway()
    {
        const char* const before[] = {ours, theirs, nullptr};
        g_settings_set_strv(mediaKeys().get(), "custom-keybindings", before);
        g_settings_set_string(shortcutAt(ours).get(), "command", "an older release's");
        auto registration = m_hotKeys->registerHotKey(lock());
        QCOMPARE(listed(), (QByteArrayList{ours, theirs}));
        QVERIFY(valueAt(ours, "command").startsWith(u"busctl"_s));
        registration.reset();
        QCOMPARE(listed(), QByteArrayList{theirs});
    }

    void aShortcutThatTheUserHasDeletedMeanwhileIsNoMatter()
    {
        auto registration = m_hotKeys->registerHotKey(lock());
        g_settings_reset(mediaKeys().get(), "custom-keybindings");
        registration.reset();
        QCOMPARE(listed(), QByteArrayList{});
    }

    void itsCommandTellsOfTheKey()
    {
        const auto registration = m_hotKeys->registerHotKey(lock());
        QProcess command;
        command.startCommand(valueAt(ours, "command"));
        QVERIFY(command.waitForFinished());
        QCOMPARE(command.exitCode(), 0);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{7});
    }

    void otherSignalsAreIgnored()
    {
        const auto registration = m_hotKeys->registerHotKey(lock());
        tell({u"another"_s});
        tell({7});
        tell({});
        tell({u"lock-screen"_s});
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{7});
    }

    void keysThatNoDesktopCouldKeepAreNotAvailable()
    {
        HotKeyRequest request = lock();
        request.modifiers = 0;
        const auto registration = m_hotKeys->registerHotKey(request);
        QCOMPARE(registration->state().status, HotKeyStatus::notAvailable);
        QCOMPARE(listed(), QByteArrayList{});
    }

private:
    void tell(const QVariantList& arguments)
    {
        auto signal = QDBusMessage::createSignal(
            u"/com/morvanta/Tarvik/HotKeys"_s, u"com.morvanta.Tarvik.HotKeys1"_s, u"Pressed"_s);
        signal.setArguments(arguments);
        QVERIFY(m_other.send(signal));
    }

    GnomeShortcutSchemas m_schemas;
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
    std::unique_ptr<GnomeHotKeys> m_hotKeys;
    QList<std::uint32_t> m_pressed;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(GnomeHotKeysTest)
#include "GnomeHotKeysTest.moc"
