// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/GnomeCustomShortcut.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class GnomeCustomShortcutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void whereGnomeIsNotInstalledThereIsNone()
    {
        qputenv("GSETTINGS_BACKEND", "memory");
        qputenv("XDG_DATA_HOME", "/nonexistent");
        qputenv("XDG_DATA_DIRS", "/nonexistent");
        qunsetenv("GSETTINGS_SCHEMA_DIR");
        QVERIFY(GnomeCustomShortcut::set(u"id"_s, {.name = u"Name"_s, .command = u"true"_s, .binding = u"<Super>a"_s})
            == nullptr);
    }
};

QTEST_GUILESS_MAIN(GnomeCustomShortcutTest)
#include "GnomeCustomShortcutTest.moc"
