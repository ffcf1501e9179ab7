// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/PropertyMirror.h"

namespace Tarvik {

/// The thermal monitor of the running Tarvik.
class ThermalMirror : public PropertyMirror {
    Q_OBJECT
    Q_PROPERTY(bool isHot READ isHot NOTIFY isHotChanged)
    Q_PROPERTY(int state READ state NOTIFY stateChanged)
    Q_PROPERTY(QString stateText READ stateText NOTIFY stateTextChanged)

public:
    explicit ThermalMirror(const QDBusConnection& bus);

    bool isHot() const { return value("isHot").toBool(); }
    /// 0 nominal to 3 critical.
    int state() const { return value("state").toInt(); }
    /// "normal", "warm", "hot" or "very hot", in the language of the user.
    QString stateText() const { return value("stateText").toString(); }

Q_SIGNALS:
    void isHotChanged();
    void stateChanged();
    void stateTextChanged();
};

} // namespace Tarvik
