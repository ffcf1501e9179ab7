// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/Translation.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

// Qt asks this of a translation to know in which direction its language is written; "RTL" is the other answer.
[[maybe_unused]] constexpr const char* direction[] = {QT_TRANSLATE_NOOP("QGuiApplication", "QT_LAYOUT_DIRECTION")};

QString bundleDirectory()
{
    return QCoreApplication::applicationDirPath() + u"/../Resources/translations"_s;
}

QStringList sessionLanguages()
{
    // Without any translation, the session's languages do not matter.
    return QDir(bundleDirectory()).exists() ? QLocale::system().uiLanguages() : QStringList();
}

bool isEnglish(const QString& language)
{
    return language == "C"_L1 || language == "en"_L1 || language.startsWith("en-"_L1);
}

} // namespace

Translation::Translation()
    : Translation(bundleDirectory(), sessionLanguages())
{
}

Translation::Translation(const QString& directory, const QStringList& languages)
{
    for (QString language : languages) {
        // A language that comes after English is no better than English.
        if (isEnglish(language))
            return;
        if (m_translator.load(u"tarvik_"_s + language.replace(u'-', u'_'), directory)) {
            QCoreApplication::installTranslator(&m_translator);
            return;
        }
    }
}
} // namespace Tarvik
