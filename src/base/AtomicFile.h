// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

namespace Tarvik {

/// Replaces the contents of the file at `path` as a whole: whoever opens it sees the old bytes or the new ones, also
/// after a power failure. Blocks until the bytes are on the disk.
///
/// A symbolic link is followed and kept, also one that leads to a file that does not exist yet. An existing file keeps
/// its permissions, access control list and other attributes, owner and group; a new one gets `newFileMode` less the
/// umask, see open(2). The directory must exist.
///
/// Returns nothing on success and else what went wrong, for people; then the old file is as it was and no temporary
/// file is left. Refused: anything but a regular file, a file that this user may not write to, and one whose owner,
/// group or attributes could not be kept, since others may rely on these.
[[nodiscard]] std::optional<std::string> replaceFile(
    const std::string& path, std::string_view bytes, mode_t newFileMode = 0666);

} // namespace Tarvik
