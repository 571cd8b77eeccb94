// Limits that the catalogues' 16-bit counts imply, met by files generated
// here: each gives a clear FileError with the line, or a catalogue whose
// counts tell the truth.
#include "catalogue/catalogue_loader.h"
#include "catalogue/reference_markers.h"
#include "model/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDirIterator>
#include <gtest/gtest.h>
#include <optional>

using namespace tarvo;

namespace {

struct Files
{
    Files()
        : folder(QString(), QString())
    {
    }

    QString put(const QString& name, const QByteArray& bytes) const
    {
        const QString path = folder.file(name);
        writeBytes(path, bytes);
        return path;
    }

    std::optional<FileError> conditions(const QByteArray& bytes, Catalogue* out = nullptr) const
    {
        try {
            Catalogue read = readConditionCatalogue(put(QStringLiteral("temp.txt"), bytes));
            if (out)
                *out = std::move(read);
        } catch (const FileError& error) {
            return error;
        }
        return std::nullopt;
    }

    std::optional<FileError> actions(
        const QByteArray& bytes, ReferenceListTable& tables, Catalogue* out = nullptr) const
    {
        try {
            Catalogue read = readActionCatalogue(put(QStringLiteral("temp2.txt"), bytes), tables);
            if (out)
                *out = std::move(read);
        } catch (const FileError& error) {
            return error;
        }
        return std::nullopt;
    }

    TestProgramFolder folder;
};

QByteArray repeated(const QByteArray& head, const QByteArray& line, int count)
{
    QByteArray bytes = head;
    for (int i = 0; i < count; ++i)
        bytes += line + "\r\n";
    return bytes;
}

void expectFault(const std::optional<FileError>& error, int line, const char* part)
{
    ASSERT_TRUE(error.has_value()) << "the catalogue was accepted";
    EXPECT_EQ(error->line(), line) << error->message().toStdString();
    EXPECT_TRUE(error->sentence().contains(QLatin1String(part))) << error->message().toStdString();
}

} // namespace

TEST(CatalogueLimits, ThousandsOfEntryLines)
{
    Files files;
    Catalogue catalogue;
    ASSERT_FALSE(files.conditions(repeated({}, "<c>", 32767), &catalogue).has_value());
    EXPECT_EQ(catalogue.size(), 32767);
    EXPECT_EQ(conditionKindItems(catalogue).size(), 32768);
    expectFault(files.conditions(repeated("// many\r\n", "<c>", 40000)), 32769, "32767 kinds");
}

TEST(CatalogueLimits, KindsTakeAnyNumberOfArguments)
{
    Files files;
    const QByteArray condition = "<f>;a;h;0;-1";
    const QByteArray action = "<f>;a;h;0;-1;0";
    Catalogue catalogue;
    // Eight each for two kinds: the count belongs to the kind.
    ASSERT_FALSE(
        files
            .conditions(
                repeated("<c>\r\n", condition, 8) + repeated("<c>\r\n", condition, 8), &catalogue)
            .has_value());
    ASSERT_EQ(catalogue.size(), 2);
    EXPECT_EQ(catalogue.at(1).ArgCount, 8);
    EXPECT_EQ(catalogue.at(1).Args.size(), 8);
    // The loader sets no limit of its own: the editors refuse such kinds.
    ASSERT_FALSE(
        files.conditions(repeated("<c>\r\n<s>;Wide\r\n", condition, 9), &catalogue).has_value());
    EXPECT_EQ(catalogue.at(0).ArgCount, 9);
    ReferenceListTable tables;
    ASSERT_FALSE(files.actions(repeated("<c>\r\n<s>;Wide\r\n", action, 300), tables, &catalogue)
                     .has_value());
    EXPECT_EQ(catalogue.at(0).Args.size(), 300);
}

TEST(CatalogueLimits, CodeLinesAndItemsPastSixteenBits)
{
    Files files;
    {
        Catalogue catalogue;
        const QByteArray fits
            = "<c>\r\n<i>|2|" + repeated({}, "x|", 32767).replace("\r\n", "") + "\r\n";
        ASSERT_FALSE(files.conditions(fits, &catalogue).has_value());
        EXPECT_EQ(catalogue.at(0).CodeLineCount, 32767);
        const QByteArray tooMany
            = "<c>\r\n<i>|2|" + repeated({}, "x|", 40000).replace("\r\n", "") + "\r\n";
        expectFault(files.conditions(tooMany), 2, "32767");
    }
    {
        ReferenceListTable tables;
        QByteArray items = "<g>|3|";
        for (int i = 0; i < 20000; ++i)
            items += "c" + QByteArray::number(i) + ":Item " + QByteArray::number(i) + "|";
        // Two lines of 20000 items add up past the last 16-bit count.
        expectFault(
            files.actions(
                "<j>|3|Things|2|thing[&&0]|INT\r\n" + items + "\r\n" + items + "\r\n", tables),
            3, "too many items");
        ReferenceListTable fresh;
        Catalogue catalogue;
        ASSERT_FALSE(files.actions(items + "\r\n", fresh, &catalogue).has_value());
        EXPECT_EQ(fresh[3].ItemCount, 20000);
        EXPECT_EQ(fresh[3].Texts.at(19999), QStringLiteral("Item 19999"));
        EXPECT_EQ(NextFreeID(fresh, 3), 20000);
    }
}

TEST(CatalogueLimits, NumbersBeyondSixteenBits)
{
    Files files;
    ReferenceListTable tables;
    expectFault(files.conditions("<c>\r\n<r>;40000;0\r\n"), 2, "16-bit");
    expectFault(files.conditions("<c>\r\n<i>|-32769|x|\r\n"), 2, "16-bit");
    expectFault(files.conditions("<c>\r\n<f>;a;h;99999;-1\r\n"), 2, "16-bit");
    expectFault(files.conditions("<c>\r\n<f>;a;h;0;" + QByteArray(400, '9') + "\r\n"), 2, "16-bit");
    expectFault(files.actions("<j>|65536|X|1|t|INT\r\n", tables), 1, "16-bit");
    expectFault(files.actions("<g>|-1|a:b|\r\n", tables), 1, "row -1");
    expectFault(files.actions("<j>|3|X|99999|t|INT\r\n", tables), 1, "16-bit");
}

TEST(CatalogueLimits, LinesOfSeveralMegabytes)
{
    Files files;
    const QByteArray huge(5 * 1024 * 1024, 'd');
    Catalogue catalogue;
    ASSERT_FALSE(files
                     .conditions("<c>\r\n<s>;" + huge + "\r\n<d>;" + huge + "\r\n<q>;" + huge
                             + "\r\n" + huge + "\r\n",
                         &catalogue)
                     .has_value());
    EXPECT_EQ(catalogue.at(0).Title.size(), huge.size());
    EXPECT_EQ(catalogue.at(0).Description.size(), huge.size() + 2);
    // Separators alone make as many empty code lines, less the last.
    ASSERT_FALSE(
        files.conditions("<c>\r\n<i>|1" + QByteArray(30000, '|') + "\r\n", &catalogue).has_value());
    EXPECT_EQ(catalogue.at(0).CodeLineCount, 29999);
}

// Catalogues that once broke a reader, kept from the fuzzers: each is read,
// or refused with a FileError, and a project loads against what was read.
TEST(CatalogueLimits, KeptHostileCataloguesLoadOrFailCleanly)
{
    int seen = 0;
    for (const char* kind : {"condition_catalogue", "action_catalogue"}) {
        const QString dir = testDataDir() + QStringLiteral("/hostile/") + QLatin1String(kind);
        for (QDirIterator it(dir, QDir::Files); it.hasNext();) {
            const QString path = it.next();
            SCOPED_TRACE(path.toStdString());
            const bool conditions = QLatin1String(kind) == QLatin1String("condition_catalogue");
            TestProgramFolder program {QString(), QString()};
            writeBytes(
                program.file(conditions ? QStringLiteral("temp.txt") : QStringLiteral("temp2.txt")),
                readBytes(path));
            ScriptedPrompter prompter;
            Workspace workspace(program.path(), prompter);
            try {
                ResetProject(workspace);
                EXPECT_NO_THROW(projectFileBytes(workspace.project));
            } catch (const FileError& error) {
                EXPECT_FALSE(error.sentence().isEmpty());
            }
            ++seen;
        }
    }
    EXPECT_GT(seen, 0);
}
