// data/KT_Conf is what planor-elementbilder writes: running it again gives
// the same files, byte for byte, and no file more or less.
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QByteArray laufen(const QStringList& argumente)
{
    QProcess generator;
    generator.start(QStringLiteral(PLANOR_ELEMENTBILDER), argumente);
    EXPECT_TRUE(generator.waitForFinished(120000));
    EXPECT_EQ(generator.exitCode(), 0) << generator.readAllStandardError().toStdString();
    return generator.readAllStandardOutput();
}

QByteArray inhalt(const QString& pfad)
{
    QFile f(pfad);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(fehlt)");
}

}  // namespace

TEST(Elementbilder, RegeneratedCatalogueEqualsKtConf)
{
    QTemporaryDir tmp;
    const QString ziel = tmp.filePath(QStringLiteral("KT_Conf")), vorlage = QStringLiteral(PLANOR_KT_CONF);
    laufen({ziel});
    const QStringList muster{"*.bmp", "*.BMP", "*.cfg", "*.CFG"};
    const QStringList neu = QDir(ziel).entryList(muster, QDir::Files, QDir::Name);
    ASSERT_FALSE(neu.isEmpty());
    EXPECT_EQ(neu, QDir(vorlage).entryList(muster, QDir::Files, QDir::Name));
    for (const QString& name : neu)
        EXPECT_TRUE(inhalt(ziel + u'/' + name) == inhalt(vorlage + u'/' + name)) << qPrintable(name) << " weicht ab";
}

TEST(Elementbilder, ReadmeTableIsCurrent)
{
    const QByteArray tabelle = laufen({QStringLiteral("--tabelle")});
    ASSERT_FALSE(tabelle.isEmpty());
    EXPECT_TRUE(inhalt(QStringLiteral(PLANOR_KT_CONF "/README.md")).contains(tabelle))
        << "data/KT_Conf/README.md: Tabelle mit planor-elementbilder --tabelle erneuern";
}
