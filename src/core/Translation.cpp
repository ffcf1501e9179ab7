// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/Translation.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

// Qt asks this of a translation to know in which direction its language is written; "RTL" is the other answer.
[[maybe_unused]] constexpr const char* direction[] = {QT_TRANSLATE_NOOP("QGuiApplication", "QT_LAYOUT_DIRECTION")};

QString bundleDirectory()
{
    return QCoreApplication::applicationDirPath() + u"/../Resources/translations"_s;
}

QString catalogue(const QString& directory, const QString& name)
{
    return directory + u"/tarvik_"_s + name + u".qm"_s;
}

/// The names that the catalogue for a language can have, best first. Between a country and the language alone is where
/// the script is at home: Singapore reads the Chinese of China, Hong Kong that of Taiwan.
QStringList catalogueNames(QString language)
{
    const QLocale locale(language);
    return {language.replace(u'-', u'_'),
        QLocale(locale.language(), locale.script(), QLocale::AnyTerritory).name(),
        QLocale::languageToCode(locale.language())};
}

/// The English of the country where the language is spoken, or that of no country.
QLocale englishFor(const QLocale& locale)
{
    const QLocale english(QLocale::English, locale.territory());
    return english.territory() == locale.territory() ? english : QLocale(QLocale::English, QLocale::World);
}

} // namespace

Translation::Translation()
    : Translation(bundleDirectory(), QLocale::system().uiLanguages())
{
}

Translation::Translation(const QString& directory, const QStringList& languages)
{
    QList<QLocale::Language> known;
    for (const QString& language : languages) {
        const QLocale locale(language);
        if (language == "C"_L1)
            return;
        // After a country's language, that language alone is what the system has added; it may be another script's.
        const bool isAdded = known.contains(locale.language()) && !language.contains(u'-');
        known.append(locale.language());
        const QStringList names = isAdded ? QStringList() : catalogueNames(language);
        if (std::ranges::any_of(names, [&](const QString& name) { return load(catalogue(directory, name)); }))
            return;
    }
    load(catalogue(directory, u"en"_s));
    const QLocale wanted(languages.value(0));
    if (wanted.script() != QLocale::LatinScript)
        QLocale::setDefault(englishFor(wanted));
}

Translation::~Translation()
{
    QLocale::setDefault(QLocale::system());
}

bool Translation::load(const QString& path)
{
    // Qt would be content with another file whose name begins alike.
    if (!QFile::exists(path) || !m_translator.load(path))
        return false;
    QCoreApplication::installTranslator(&m_translator);
    return true;
}

} // namespace Tarvik
