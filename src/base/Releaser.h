// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace Tarvik {

/// What a std::unique_ptr does at its end with an object that a C library has handed out.
template <auto release>
struct Releaser {
    template <typename T>
    void operator()(T* object) const
    {
        release(object);
    }
};

/// Owns such an object: Owned<xcb_connection_t, xcb_disconnect>.
template <typename T, auto release>
using Owned = std::unique_ptr<T, Releaser<release>>;

} // namespace Tarvik
