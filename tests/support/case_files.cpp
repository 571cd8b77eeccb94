#include "case_files.h"

#include "program_folder.h"
#include "test_paths.h"

#include <QDir>
#include <QHash>
#include <gtest/gtest.h>

QStringList caseFolders(const QString& kind)
{
    const QDir root(testDataDir() + u'/' + kind);
    QStringList folders;
    for (const QString& name : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (QFile::exists(root.filePath(name + QStringLiteral("/steps.txt"))))
            folders.append(root.filePath(name));
    }
    return folders;
}

namespace {

QString unescaped(const QString& field)
{
    if (field == u"~")
        return {};
    static const QHash<QChar, QChar> plain {{u'n', u'\n'}, {u'r', u'\r'}, {u't', u'\t'},
        {u's', u' '}, {u'|', u'|'}, {u'~', u'~'}, {u'\\', u'\\'}};
    QString text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field.at(i) != u'\\' || i + 1 == field.size()) {
            text += field.at(i);
            continue;
        }
        const QChar code = field.at(++i);
        if (plain.contains(code)) {
            text += plain.value(code);
            continue;
        }
        bool ok = false;
        const uint unicode = field.mid(i + 1, 4).toUInt(&ok, 16);
        if (code != u'u' || !ok || field.mid(i + 1, 4).size() != 4)
            throw std::runtime_error("bad escape in step field: " + field.toStdString());
        text += QChar(char16_t(unicode));
        i += 4;
    }
    return text;
}

} // namespace

CaseStep parseStep(const QString& line)
{
    CaseStep step {line, line.section(u' ', 0, 0), {}};
    const QString rest = line.section(u' ', 1);
    if (!rest.isEmpty())
        step.fields = rest.split(QStringLiteral(" | "));
    for (QString& field : step.fields)
        field = unescaped(field);
    return step;
}

QList<CaseStep> readSteps(const QString& folder)
{
    QList<CaseStep> steps;
    const QString text = QString::fromUtf8(readBytes(folder + QStringLiteral("/steps.txt")));
    for (const QString& line : text.split(u'\n')) {
        if (!line.trimmed().isEmpty() && !line.startsWith(u'#'))
            steps.append(parseStep(line));
    }
    return steps;
}

void expectFileHolds(const QString& path, const QByteArray& actual)
{
    if (qEnvironmentVariableIsSet("TARVO_WRITE_EXPECTED") && readBytes(path) != actual)
        writeBytes(path, actual);
    EXPECT_EQ(actual.toStdString(), readBytes(path).toStdString()) << path.toStdString();
}

void expectAsWritten(const QString& folder, const QString& actual)
{
    expectFileHolds(folder + QStringLiteral("/expected.txt"), actual.toUtf8());
}

QString promptLine(const ScriptedPrompter::Prompt& p)
{
    using Kind = ScriptedPrompter::Prompt::Kind;
    static const char* const icons[]
        = {"", "information ", "exclamation ", "critical ", "question "};
    switch (p.kind) {
    case Kind::Message:
        return QStringLiteral("message %1%2: %3")
            .arg(QLatin1String(icons[int(p.icon)]),
                p.buttons == tarvo::Prompter::Buttons::YesNo ? "yes/no" : "ok", p.text);
    case Kind::Input:
        return QStringLiteral("input %1 [%2]: %3").arg(p.title, p.defaultText, p.text);
    case Kind::OpenFile:
    case Kind::SaveFile:
        return QStringLiteral("file dialog %1 [%2]").arg(p.text, p.title);
    case Kind::Beep:
        return QStringLiteral("beep");
    case Kind::StatusLine:
        return QStringLiteral("status: ") + p.text;
    case Kind::Choice:
        return QStringLiteral("choice [%1]: %2").arg(p.title, p.text);
    }
    return {};
}
