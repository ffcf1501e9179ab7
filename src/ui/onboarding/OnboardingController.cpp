// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/onboarding/OnboardingController.h"

#include "ui/mirror/Appearance.h"
#include "ui/mirror/LidClosedMirror.h"

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// The largest of the pictures, which is shown smaller.
QUrl applicationIcon(const QString& directory)
{
    return QUrl::fromLocalFile(u"%1/hicolor/256x256/apps/com.morvanta.Tarvik.png"_s.arg(directory));
}

} // namespace

OnboardingController::OnboardingController(QQmlEngine& engine, const Models& models)
    : KeptWindow(engine,
        {.file = QUrl(u"qrc:/qt/qml/Tarvik/Onboarding/OnboardingWindow.qml"_s),
            .properties = {
                {u"appearance"_s, QVariant::fromValue<QObject*>(&models.appearance)},
                {u"applicationIcon"_s, applicationIcon(models.iconDirectory)},
                {u"lidClosed"_s, QVariant::fromValue<QObject*>(&models.lidClosed)},
            },
            .iconDirectory = models.iconDirectory,
            .place = Place::centered})
{
}

} // namespace Tarvik
