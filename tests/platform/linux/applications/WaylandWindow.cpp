// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
/// WaylandWindow APP_ID: an application with a window, whose title becomes each line that comes in.
#include <QGuiApplication>
#include <QPainter>
#include <QRasterWindow>
#include <QSocketNotifier>

#include <iostream>
#include <string>

namespace {

class Window : public QRasterWindow {
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(0, 0, width(), height(), Qt::white); }
};

} // namespace

int main(int argc, char* argv[])
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QGuiApplication::arguments().value(1));
    Window window;
    window.show();
    QSocketNotifier input(0, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &window, [&] {
        std::string line;
        std::getline(std::cin, line);
        window.setTitle(QString::fromStdString(line));
    });
    return QGuiApplication::exec();
}
