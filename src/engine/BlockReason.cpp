// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/BlockReason.h"

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
        return u"the Mac is running hot"_s;
    case Kind::onBattery:
        return u"running on battery"_s;
    case Kind::lowBattery:
        return u"battery %1% is below %2%"_s.arg(QString::number(percent), QString::number(threshold));
    }
    Q_UNREACHABLE();
}

QString BlockReason::pauseTitle() const
{
    switch (kind) {
    case Kind::tooHot:
        return u"Paused — Mac is running hot"_s;
    case Kind::onBattery:
        return u"Paused — on battery"_s;
    case Kind::lowBattery:
        return u"Paused — battery %1% < %2%"_s.arg(QString::number(percent), QString::number(threshold));
    }
    Q_UNREACHABLE();
}

} // namespace Tarvik
