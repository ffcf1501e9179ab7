// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/WindowActivation.h"

#include "ui/placement/X11Hints.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QString>
#include <QWindow>

namespace Tarvik {

void showAndActivate(QWindow& window, const QString& activationToken)
{
    window.create();
    X11Hints::setStartupId(window, activationToken);
    window.show();
    // By this Qt tells a Wayland compositor that the user wanted the window.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    window.requestActivate();
}

void layOut(QQuickItem& item)
{
    for (QQuickItem* child : item.childItems())
        layOut(*child);
    item.ensurePolished();
}

void forgetFocus(QWindow& window)
{
    QObject::disconnect(&window, &QWindow::focusObjectChanged, qGuiApp, nullptr);
}

} // namespace Tarvik
