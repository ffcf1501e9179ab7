// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QTranslator>

namespace Tarvik {

/// Puts the texts of this program into the user's language for as long as it lives. Where the bundle does not have that
/// language, into its English; then dates and numbers are written as an English text has them, too, if the language has
/// a script of its own. Nothing is loaded for a session without a language. Needs the application object.
class Translation {
public:
    /// From the bundle that holds the running executable, into the language of the session.
    Translation();
    /// `directory` holds one tarvik_LANGUAGE.qm for each language; `languages` is what the user understands, best
    /// first, as QLocale::uiLanguages has it.
    Translation(const QString& directory, const QStringList& languages);
    ~Translation();
    Translation(const Translation&) = delete;
    Translation& operator=(const Translation&) = delete;

private:
    /// False when there is no such file.
    bool load(const QString& path);

    /// Uninstalls itself.
    QTranslator m_translator;
};

} // namespace Tarvik
