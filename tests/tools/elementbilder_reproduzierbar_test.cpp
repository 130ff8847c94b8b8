// data/KT_Conf is what planor-elementbilder writes: running it again gives
// the same files, byte for byte, and no file more or less.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QStringList katalogDateien(const QString& ordner)
{
    QStringList namen = QDir(ordner).entryList({"*.bmp", "*.BMP", "*.cfg", "*.CFG"}, QDir::Files, QDir::Name);
    return namen;
}

QByteArray inhalt(const QString& pfad)
{
    QFile f(pfad);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << qPrintable(pfad);
    return f.readAll();
}

}  // namespace

TEST(Elementbilder, RegeneratedCatalogueEqualsKtConf)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString ziel = tmp.filePath(QStringLiteral("KT_Conf"));

    QProcess generator;
    generator.start(QStringLiteral(PLANOR_ELEMENTBILDER), {ziel});
    ASSERT_TRUE(generator.waitForFinished(120000));
    ASSERT_EQ(generator.exitStatus(), QProcess::NormalExit);
    ASSERT_EQ(generator.exitCode(), 0) << generator.readAllStandardError().toStdString();

    const QString vorlage = QStringLiteral(PLANOR_KT_CONF);
    const QStringList neu = katalogDateien(ziel);
    const QStringList alt = katalogDateien(vorlage);
    ASSERT_FALSE(neu.isEmpty());
    for (const QString& name : neu)
        EXPECT_TRUE(alt.contains(name)) << qPrintable(name) << " fehlt in data/KT_Conf";
    for (const QString& name : alt)
        EXPECT_TRUE(neu.contains(name)) << qPrintable(name) << " schreibt der Generator nicht mehr";
    for (const QString& name : neu) {
        if (alt.contains(name)) {
            EXPECT_TRUE(inhalt(ziel + QLatin1Char('/') + name) == inhalt(vorlage + QLatin1Char('/') + name))
                << qPrintable(name) << " weicht ab";
        }
    }
}

TEST(Elementbilder, TwoRunsGiveIdenticalBytes)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QStringList ziele = {tmp.filePath(QStringLiteral("a")), tmp.filePath(QStringLiteral("b"))};
    for (const QString& ziel : ziele) {
        QProcess generator;
        generator.start(QStringLiteral(PLANOR_ELEMENTBILDER), {ziel});
        ASSERT_TRUE(generator.waitForFinished(120000));
        ASSERT_EQ(generator.exitCode(), 0);
    }
    const QStringList a = katalogDateien(ziele[0]);
    ASSERT_EQ(a, katalogDateien(ziele[1]));
    for (const QString& name : a)
        EXPECT_TRUE(inhalt(ziele[0] + QLatin1Char('/') + name) == inhalt(ziele[1] + QLatin1Char('/') + name))
            << qPrintable(name);
}

TEST(Elementbilder, ReadmeTableIsCurrent)
{
    QProcess generator;
    generator.start(QStringLiteral(PLANOR_ELEMENTBILDER), {QStringLiteral("--tabelle")});
    ASSERT_TRUE(generator.waitForFinished(60000));
    ASSERT_EQ(generator.exitCode(), 0);
    const QByteArray tabelle = generator.readAllStandardOutput();
    ASSERT_FALSE(tabelle.isEmpty());
    EXPECT_TRUE(inhalt(QStringLiteral(PLANOR_KT_CONF "/README.md")).contains(tabelle))
        << "data/KT_Conf/README.md: Tabelle mit planor-elementbilder --tabelle erneuern";
}
