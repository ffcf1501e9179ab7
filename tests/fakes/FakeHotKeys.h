// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"

#include <QList>

#include <algorithm>

namespace Tarvik {

/// Shortcuts that are pressed by the test. Like a desktop, it may still tell of a press after the end of a
/// registration.
class FakeHotKeys final : public HotKeys {
public:
    std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) override
    {
        registered.append(request);
        return std::make_unique<Registration>(*this, request);
    }

    /// Whoever has these keys gets the press.
    void press(std::uint32_t keyCode, std::uint32_t modifiers) const
    {
        const auto it = std::ranges::find_if(registered,
            [&](const HotKeyRequest& request) { return request.keyCode == keyCode && request.modifiers == modifiers; });
        if (it != registered.end())
            pressed(it->id);
    }

    /// In the order of registration.
    QList<HotKeyRequest> registered;
    HotKeyState state{QStringLiteral("fake"), HotKeyStatus::registered};

private:
    class Registration final : public HotKeyRegistration {
    public:
        Registration(FakeHotKeys& hotKeys, HotKeyRequest request)
            : m_hotKeys(hotKeys)
            , m_request(std::move(request))
        {
        }
        ~Registration() override { m_hotKeys.registered.removeOne(m_request); }

        HotKeyState state() const override { return m_hotKeys.state; }

    private:
        FakeHotKeys& m_hotKeys;
        HotKeyRequest m_request;
    };
};

} // namespace Tarvik
