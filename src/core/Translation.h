// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QTranslator>

namespace Tarvik {

/// Puts the texts of this program into the user's language for as long as it lives, where the bundle has that language.
/// English is what the texts are written in: nothing is loaded for it. Needs the application object.
class Translation {
public:
    /// From the bundle that holds the running executable, into the language of the session.
    Translation();
    /// `directory` holds one tarvik_LANGUAGE.qm for each language; `languages` is what the user understands, best
    /// first.
    Translation(const QString& directory, const QStringList& languages);

private:
    /// Uninstalls itself.
    QTranslator m_translator;
};

} // namespace Tarvik
