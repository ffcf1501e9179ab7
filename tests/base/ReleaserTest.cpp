// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "base/Releaser.h"

#include "support/TestSupport.h"

using namespace Tarvik;

namespace {

struct Handle {
    int releases = 0;
};

int releaseHandle(Handle* handle)
{
    return ++handle->releases;
}

} // namespace

class ReleaserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void whatIsOwnedIsReleasedOnceAtTheEnd()
    {
        Handle handle;
        {
            Owned<Handle, releaseHandle> first(&handle);
            const Owned<Handle, releaseHandle> second = std::move(first);
            QCOMPARE(handle.releases, 0);
        }
        QCOMPARE(handle.releases, 1);
    }

    void nothingIsNotReleased()
    {
        const Owned<Handle, releaseHandle> none;
        QCOMPARE(none.get(), nullptr);
    }

    void itCostsNoRoom() { QCOMPARE(sizeof(Owned<Handle, releaseHandle>), sizeof(Handle*)); }
};

QTEST_GUILESS_MAIN(ReleaserTest)
#include "ReleaserTest.moc"
