// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/TimerfdClock.h"
#include "platform/linux/tray/StatusNotifierTrayItem.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <unistd.h>

#include <iostream>
#include <string>

// TrayProbe ICON_DIRECTORY IMAGE: one item in the tray. Prints what happens to it, one line each; shows the image
// named by each line that it reads, and ends with its input.

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

void say(const QString& line)
{
    std::cout << line.toStdString() << std::endl;
}

TrayMenu menu()
{
    TrayMenuEntry status;
    status.id = 1;
    status.label = u"Dozing — nothing to watch"_s;
    status.isEnabled = false;
    TrayMenuEntry separator;
    separator.id = 2;
    separator.isSeparator = true;
    TrayMenuEntry onOff;
    onOff.id = 3;
    onOff.label = u"Tarvik"_s;
    onOff.isChecked = true;
    TrayMenuEntry hour;
    hour.id = 5;
    hour.label = u"1 hour"_s;
    TrayMenuEntry session;
    session.id = 4;
    session.label = u"Keep awake for…"_s;
    session.entries = {hour};
    return {status, separator, onOff, session};
}

TrayAppearance appearance(const QString& image)
{
    return {image, u"Paused"_s, u"Paused — battery 15% < 20%"_s, u"Claude Code · a < b & c"_s};
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc != 3)
        return 2;
    TimerfdClock clock;
    StatusNotifierTrayItem item(QDBusConnection::sessionBus(), QString::fromLocal8Bit(argv[1]), clock);
    const Subscription hosts = item.hostChanged.subscribe([&] { say(item.hasHost() ? u"hosted"_s : u"alone"_s); });
    const Subscription clicks = item.activated.subscribe(
        [](int x, int y, const QString& token) { say(u"activate %1 %2 \"%3\""_s.arg(x).arg(y).arg(token)); });
    const Subscription choices = item.menuActivated.subscribe([](int id) { say(u"chosen %1"_s.arg(id)); });
    item.setAppearance(appearance(QString::fromLocal8Bit(argv[2])));
    item.setMenu(menu());

    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        std::string image;
        if (std::getline(std::cin, image))
            item.setAppearance(appearance(QString::fromStdString(image)));
        else
            QCoreApplication::quit();
    });
    return QCoreApplication::exec();
}
