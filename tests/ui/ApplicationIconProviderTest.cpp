// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/design/ApplicationIconProvider.h"

#include "support/TestSupport.h"

#include <QDir>
#include <QGuiApplication>
#include <QIcon>
#include <QTemporaryDir>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class ApplicationIconProviderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QDir(m_icons.path()).mkpath(u"hicolor/48x48/apps"_s));
        QFile index(m_icons.filePath(u"hicolor/index.theme"_s));
        QVERIFY(index.open(QIODevice::WriteOnly));
        index.write("[Icon Theme]\nName=hicolor\nDirectories=48x48/apps\n[48x48/apps]\nSize=48\nType=Fixed\n");
        index.close();
        QVERIFY(paint(u"hicolor/48x48/apps/org.red.png"_s, Qt::red));
        QVERIFY(paint(u"a blue one.png"_s, Qt::blue));
        QIcon::setThemeSearchPaths({m_icons.path()});
        QIcon::setThemeName(u"hicolor"_s);
    }

    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void anIconIsFoundByNameOrPath_data()
    {
        QTest::addColumn<QString>("icon");
        QTest::addColumn<QColor>("color");
        QTest::newRow("name") << u"org.red"_s << QColor(Qt::red);
        QTest::newRow("name with an ending") << u"org.red.png"_s << QColor(Qt::red);
        QTest::newRow("path") << m_icons.filePath(u"a blue one.png"_s) << QColor(Qt::blue);
    }

    void anIconIsFoundByNameOrPath()
    {
        QFETCH(QString, icon);
        QFETCH(QColor, color);
        const QImage picture = request(icon);
        QCOMPARE(picture.size(), QSize(24, 24));
        QCOMPARE(picture.pixelColor(12, 12), color);
    }

    void whatCannotBeFoundIsSomethingAllTheSame_data()
    {
        QTest::addColumn<QString>("icon");
        QTest::newRow("no such name") << u"org.nowhere"_s;
        QTest::newRow("no such file") << u"/nowhere/at.png"_s;
        QTest::newRow("none") << QString();
    }

    void whatCannotBeFoundIsSomethingAllTheSame()
    {
        QFETCH(QString, icon);
        const QImage picture = request(icon);
        QCOMPARE(picture.size(), QSize(24, 24));
        QCOMPARE(picture.pixelColor(0, 0).alpha(), 0);
        QVERIFY(picture.pixelColor(12, 4).alpha() > 0);
    }

private:
    bool paint(const QString& file, const QColor& color) const
    {
        QImage picture(48, 48, QImage::Format_RGB32);
        picture.fill(color);
        return picture.save(m_icons.filePath(file));
    }

    static QImage request(const QString& icon)
    {
        QSize size;
        const QString id = QString::fromLatin1(QUrl::toPercentEncoding(icon));
        const QImage picture = ApplicationIconProvider().requestPixmap(id, &size, {24, 24}).toImage();
        return size == picture.size() ? picture : QImage();
    }

    QTemporaryDir m_icons;
};

QTEST_MAIN(ApplicationIconProviderTest)
#include "ApplicationIconProviderTest.moc"
