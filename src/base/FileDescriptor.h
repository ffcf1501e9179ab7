// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <utility>

namespace Tarvik {

/// Owns a file descriptor and closes it; -1 is none.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    FileDescriptor(FileDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        reset(std::exchange(other.m_descriptor, -1));
        return *this;
    }
    ~FileDescriptor() { reset(); }

    int get() const { return m_descriptor; }
    bool isValid() const { return m_descriptor >= 0; }

    /// Hands it on to whoever closes it.
    [[nodiscard]] int release() { return std::exchange(m_descriptor, -1); }

    void reset(int descriptor = -1)
    {
        if (const int old = std::exchange(m_descriptor, descriptor); old >= 0)
            close(old);
    }

private:
    int m_descriptor = -1;
};

} // namespace Tarvik
