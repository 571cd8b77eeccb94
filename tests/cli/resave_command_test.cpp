#include "program_folder.h"
#include "test_paths.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct CliRun
{
    int exitCode;
    QString out;
    QString err;
};

CliRun runCli(const QStringList& args)
{
    QProcess process;
    process.start(QStringLiteral(TARVO_CLI_PATH), args);
    process.waitForFinished(60000);
    return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
        QString::fromLocal8Bit(process.readAllStandardError())};
}

} // namespace

TEST(ResaveCommand, SampleComesBackByteForByte)
{
    QTemporaryDir dir;
    const QString out = dir.filePath(QStringLiteral("out.vnsc"));
    const QString sample = sampleDir() + QStringLiteral("/Demo.vnsc");
    const CliRun run = runCli({QStringLiteral("resave"), sample, out});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(readBytes(out), readBytes(sample));
}

TEST(ResaveCommand, FaultyFileGivesExitOneWithFileAndLine)
{
    QTemporaryDir dir;
    const QString in = dir.filePath(QStringLiteral("bad.vnsc"));
    const QString out = dir.filePath(QStringLiteral("out.vnsc"));
    writeBytes(out, "keep me");
    writeBytes(in,
        crlfBytes(QStringLiteral("<gl>|Bad\n<ev>|E|0|0||||0|0|0|0|1|0|False|0\n"
                                 "<ac>|999|x|False\n")));
    const CliRun run = runCli(
        {QStringLiteral("resave"), in, out, QStringLiteral("--program-dir"), builtProgramDir()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(in + QStringLiteral(":3: "))) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains(u"action kind 999")) << run.err.toStdString();
    EXPECT_EQ(readBytes(out), QByteArray("keep me"));
}

TEST(ResaveCommand, MissingCatalogueIsReported)
{
    QTemporaryDir dir;
    const CliRun run = runCli({QStringLiteral("resave"), sampleDir() + QStringLiteral("/Demo.vnsc"),
        dir.filePath(QStringLiteral("o.vnsc")), QStringLiteral("--program-dir"), dir.path()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(u"temp.txt: cannot be read")) << run.err.toStdString();
}
