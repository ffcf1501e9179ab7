// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIODevice>

#include <algorithm>

namespace Tarvik {

/// Bytes to read from beginning to end, once. Qt sends a request again, up to three times, whose connection ends
/// without an answer, and what it has sent may have been taken; it cannot from a device that does not go back.
class SentOnce : public QIODevice {
public:
    explicit SentOnce(const QByteArray& bytes)
        : m_bytes(bytes)
    {
        open(ReadOnly | Unbuffered);
    }

    qint64 size() const override { return m_bytes.size(); }
    bool seek(qint64 position) override { return position == pos(); }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        const QByteArray next = m_bytes.mid(pos(), maxSize);
        std::ranges::copy(next, data);
        return next.size();
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    const QByteArray m_bytes;
};

} // namespace Tarvik
