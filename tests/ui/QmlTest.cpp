// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/IconProvider.h"
#include "ui/ShadowProvider.h"

#include <QQmlEngine>
#include <QtQuickTest>

/// What the components find in the windows' process.
class QmlTestSetup : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine* engine)
    {
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        engine->addImageProvider(QStringLiteral("icons"), new Tarvik::IconProvider);
        engine->addImageProvider(QStringLiteral("shadows"), new Tarvik::ShadowProvider);
    }
};

QUICK_TEST_MAIN_WITH_SETUP(Tarvik, QmlTestSetup)
#include "QmlTest.moc"
