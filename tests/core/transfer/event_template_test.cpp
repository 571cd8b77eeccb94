// Templates: the shipped ones insert into any project, twice with other
// values; placeholders are found and filled; the folders list them, the
// author's own first; values a project file cannot hold are refused.
#include "project_builder.h"
#include "test_paths.h"
#include "transfer/event_paste.h"
#include "transfer/event_template.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

TEST(Templates, ShippedOnesInsertTwiceWithOtherValues)
{
    QStringList skipped;
    const QList<EventTemplate> shipped
        = listTemplates({sourceProgramDir() + "/templates"}, &skipped);
    EXPECT_TRUE(skipped.isEmpty()) << skipped.join("\n").toStdString();
    ASSERT_EQ(shipped.size(), 3);
    for (const EventTemplate& t : shipped) {
        SCOPED_TRACE(t.name.toStdString());
        EXPECT_FALSE(t.description.isEmpty());
        EXPECT_FALSE(t.placeholders.isEmpty());
        ProjectBuilder b(sourceProgramDir());
        for (const QString& value : {QStringLiteral("North"), QStringLiteral("South")}) {
            QMap<QString, QString> values;
            for (const QString& name : t.placeholders)
                values[name] = value;
            const EventClip clip = fillTemplate(t, values);
            const PasteReport report = b.document.edit(
                "Insert Template", [&] { return pasteEvents(b.workspace, clip, -1); });
            EXPECT_EQ(report.count, 1);
            EXPECT_TRUE(report.warnings.isEmpty()) << report.warnings.join("\n").toStdString();
        }
        ASSERT_EQ(b.project().eventCount, 2);
        EXPECT_TRUE(b.project().events.at(0).name.contains("North"));
        EXPECT_TRUE(b.project().events.at(1).name.contains("South"));
        EXPECT_FALSE(b.bytes().contains('{')) << b.bytes().toStdString();
    }
}

TEST(Templates, PlaceholdersAreFoundOnceInOrderAndFilledEverywhere)
{
    ProjectBuilder b(sourceProgramDir());
    const int m = b.addMessage("{base} is under attack by {enemy}");
    const int e = b.addEvent("{base} alarm");
    b.project().events[e].comment = "for {base}";
    b.addAction(e, "Show message",
        {QStringLiteral("&&15$$%1\u00a7").arg(b.project().messages.at(m).id),
            QStringLiteral("&&1$$0\u00a7")});
    const QByteArray bytes
        = templateBytes(copyEvents(b.project(), {e}), "Alarm for {enemy} at {base}");
    const EventTemplate t = readTemplate(bytes, "/somewhere/Base alarm.json");
    EXPECT_EQ(t.name, "Base alarm");
    EXPECT_EQ(t.description, "Alarm for {enemy} at {base}");
    // The description's order comes first.
    EXPECT_EQ(t.placeholders, QStringList({"enemy", "base"}));

    const EventClip clip = fillTemplate(t, {{"base", "Fort"}, {"enemy", "Player 2"}});
    EXPECT_EQ(clip.events.at(0).trigger.name, "Fort alarm");
    EXPECT_EQ(clip.events.at(0).trigger.comment, "for Fort");
    EXPECT_EQ(clip.messages.at(0).text, "Fort is under attack by Player 2");
}

TEST(Templates, TheAuthorsFolderComesFirstAndHidesTheSameName)
{
    QTemporaryDir dir;
    const QByteArray good = templateBytes(EventClip {}, "empty");
    const auto put = [&](const QString& path, const QByteArray& bytes) {
        QDir().mkpath(QFileInfo(dir.filePath(path)).path());
        QFile file(dir.filePath(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    };
    put("mine/Wave.json", good);
    put("mine/Broken.json", "{ not json");
    put("mine/notes.txt", good);
    put("shipped/wave.json", good);
    put("shipped/Briefing.json", good);
    QStringList skipped;
    QStringList names;
    for (const EventTemplate& t :
        listTemplates({dir.filePath("mine"), dir.filePath("shipped")}, &skipped))
        names << QFileInfo(t.path).dir().dirName() + "/" + t.name;
    EXPECT_EQ(names, QStringList({"mine/Wave", "shipped/Briefing"}));
    EXPECT_EQ(skipped, QStringList({"Broken: not a file of events saved by this editor"}));
}

struct Refusal
{
    const char* value;
    const char* reason;
};

TEST(Templates, ValuesAProjectFileCannotHoldAreRefused)
{
    const Refusal rows[] = {
        {"North", ""},
        {"", "The value is empty."},
        {"a|b",
            "The value holds the character \"|\", which separates the fields of a project "
            "file."},
        {"two\nlines", "The value holds a line break, which names cannot keep."},
    };
    for (const Refusal& row : rows)
        EXPECT_EQ(placeholderRefusal(row.value), row.reason) << row.value;
    EXPECT_EQ(templateFileName(" Wave: north/south? "), "Wave_ north_south_.json");
}

} // namespace
