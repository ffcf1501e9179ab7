// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/BlockReason.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace Tarvik {

QString BlockReason::key() const
{
    switch (kind) {
    case Kind::tooHot:
        return u"tooHot"_s;
    case Kind::onBattery:
        return u"onBattery"_s;
    case Kind::lowBattery:
        return u"lowBattery"_s;
    }
    Q_UNREACHABLE();
}

QString BlockReason::shortDescription() const
{
    switch (kind) {
    case Kind::tooHot:
        return QCoreApplication::translate("BlockReason", "the Mac is running hot");
    case Kind::onBattery:
        return QCoreApplication::translate("BlockReason", "running on battery");
    case Kind::lowBattery:
        return QCoreApplication::translate("BlockReason", "battery %1% is below %2%")
            .arg(QString::number(percent), QString::number(threshold));
    }
    Q_UNREACHABLE();
}

QString BlockReason::pauseTitle() const
{
    switch (kind) {
    case Kind::tooHot:
        return QCoreApplication::translate("BlockReason", "Paused — Mac is running hot");
    case Kind::onBattery:
        return QCoreApplication::translate("BlockReason", "Paused — on battery");
    case Kind::lowBattery:
        return QCoreApplication::translate("BlockReason", "Paused — battery %1% < %2%")
            .arg(QString::number(percent), QString::number(threshold));
    }
    Q_UNREACHABLE();
}

} // namespace Tarvik
