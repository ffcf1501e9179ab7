// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QUrl>
#include <QVariantMap>

#include <memory>

class QQmlEngine;
class QQuickWindow;

namespace Tarvik {

/// The one window of a QML file: made when it is first shown, and kept with its state when it is closed.
class KeptWindow : public QObject {
    Q_OBJECT

public:
    enum class Place {
        /// Where the user left it, or where the desktop wants it.
        asBefore,
        /// In the middle of the screen, whenever it is shown.
        centered,
    };
    struct Content {
        /// A Window.
        QUrl file;
        /// The properties that it requires.
        QVariantMap properties;
        /// Where the theme "hicolor" with the application's icon is.
        QString iconDirectory;
        Place place = Place::asBefore;
    };

    /// `engine` must outlive the window, as must the objects among the properties.
    KeptWindow(QQmlEngine& engine, Content content);
    ~KeptWindow() override;

    /// Null until it was first shown.
    QQuickWindow* window() const { return m_window.get(); }
    bool isVisible() const;
    /// In front and with the focus, as far as the desktop allows; also when it was open or minimized. A file that
    /// cannot be shown is logged.
    void show(const QString& activationToken);

Q_SIGNALS:
    /// Before it is first shown.
    void created();
    void visibleChanged();

private:
    bool create();

    QQmlEngine& m_engine;
    Content m_content;
    std::unique_ptr<QQuickWindow> m_window;
};

} // namespace Tarvik
