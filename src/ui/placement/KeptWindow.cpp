// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/KeptWindow.h"

#include "core/Logging.h"
#include "ui/placement/WindowActivation.h"

#include <QIcon>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// For desktops that do not find it by the name of the desktop file.
QIcon applicationIcon(const QString& directory)
{
    QIcon icon;
    for (const int size : {48, 128})
        icon.addFile(u"%1/hicolor/%2x%2/apps/com.morvanta.Tarvik.png"_s.arg(directory).arg(size));
    return icon;
}

/// Where clients place their own windows.
void center(QWindow& window)
{
    QRect frame(QPoint(), window.size());
    frame.moveCenter(window.screen()->availableGeometry().center());
    window.setPosition(frame.topLeft());
}

} // namespace

KeptWindow::KeptWindow(QQmlEngine& engine, Content content)
    : m_engine(engine)
    , m_content(std::move(content))
{
}

KeptWindow::~KeptWindow()
{
    // An open window hides when it goes, when nothing is left to act on that.
    if (m_window)
        m_window->disconnect(this);
}

bool KeptWindow::isVisible() const
{
    return m_window && m_window->isVisible();
}

void KeptWindow::show(const QString& activationToken)
{
    if (!m_window && !create())
        return;
    layOut(*m_window->contentItem());
    if (m_content.place == Place::centered)
        center(*m_window);
    m_window->setWindowStates(m_window->windowStates() & ~Qt::WindowMinimized);
    showAndActivate(*m_window, activationToken);
    m_window->raise();
}

bool KeptWindow::create()
{
    QQmlComponent component(&m_engine, m_content.file);
    QObject* object = component.createWithInitialProperties(m_content.properties);
    m_window.reset(qobject_cast<QQuickWindow*>(object));
    if (!m_window) {
        qCWarning(logSystem,
            "%ls cannot be shown: %ls",
            qUtf16Printable(m_content.file.fileName()),
            qUtf16Printable(component.errorString()));
        return false;
    }
    m_window->setIcon(applicationIcon(m_content.iconDirectory));
    connect(m_window.get(), &QWindow::visibleChanged, this, [this](bool visible) {
        if (!visible)
            forgetFocus(*m_window);
        Q_EMIT visibleChanged();
    });
    Q_EMIT created();
    return true;
}

} // namespace Tarvik
