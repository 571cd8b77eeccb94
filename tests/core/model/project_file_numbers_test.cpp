// Number fields of the project file: plain digits are read on a short path,
// everything else by the general conversion. Both must agree with it.
#include "model/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "text/basic_text.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

const char* const kActions = "<j>|14|Sounds|2|sound[&&0]|SOUND\n";

// Loads a file holding one sound whose ID field is `field`; returns the ID,
// or the error sentence.
std::variant<qint16, QString> soundIdRead(const QString& field)
{
    TestProgramFolder folder(QString(), QString::fromUtf8(kActions));
    ScriptedPrompter prompter;
    Workspace workspace(folder.path(), prompter);
    const QString path = folder.file(QStringLiteral("n.vnsc"));
    writeBytes(path,
        crlfBytes(
            QStringLiteral("<gl>|N\n<sd>|a.wav|") + field + QStringLiteral("|C:\\a.wav|a.wav\n")));
    try {
        LoadProject(workspace, path);
    } catch (const FileError& error) {
        EXPECT_EQ(error.line(), 2);
        return error.sentence();
    }
    EXPECT_EQ(workspace.project.soundCount, 1);
    return workspace.project.sounds.at(0).id;
}

std::variant<qint16, QString> converted(const QString& field)
{
    try {
        return text::toInt16(field);
    } catch (const DataError& error) {
        return error.sentence();
    }
}

} // namespace

TEST(ProjectFileNumbers, AgreeWithTheGeneralConversion)
{
    const QStringList fields = {QStringLiteral("0"), QStringLiteral("7"), QStringLiteral("-1"),
        QStringLiteral("-0"), QStringLiteral("00012"), QStringLiteral("32767"),
        QStringLiteral("-32768"), QStringLiteral("32768"), QStringLiteral("-32769"),
        QStringLiteral("123456"), QStringLiteral(" 5 "), QStringLiteral("2.5"),
        QStringLiteral("3.5"), QStringLiteral("1e2"), QStringLiteral("+4"), QStringLiteral("-"),
        QStringLiteral(""), QStringLiteral("12a"), QStringLiteral("0x10")};
    for (const QString& field : fields) {
        SCOPED_TRACE(field.toStdString());
        const auto read = soundIdRead(field);
        const auto expected = converted(field);
        ASSERT_EQ(read.index(), expected.index())
            << (read.index() ? std::get<QString>(read).toStdString() : std::string());
        if (const auto* id = std::get_if<qint16>(&read))
            EXPECT_EQ(*id, std::get<qint16>(expected));
        else
            EXPECT_TRUE(std::get<QString>(read).endsWith(std::get<QString>(expected)))
                << std::get<QString>(read).toStdString();
    }
}
