#include "script/function_table.h"

#include "base/file_error.h"
#include "text/text_file.h"

#include <QFileInfo>

namespace tarvo::script {

namespace {

struct EffectName
{
    const char* word;
    FunctionInfo::Effect effect;
    const char* roles[3];
};

// The roles each effect takes; "end" needs its result, "arm" its event.
const EffectName kEffects[] = {
    {"arm", FunctionInfo::Effect::Arm, {"event", "trigger", nullptr}},
    {"end", FunctionInfo::Effect::End, {"result", nullptr, nullptr}},
    {"message", FunctionInfo::Effect::Message, {"message", nullptr, nullptr}},
    {"sound", FunctionInfo::Effect::Sound, {"sound", nullptr, nullptr}},
    {"time", FunctionInfo::Effect::Time, {"time", nullptr, nullptr}},
    {"write", FunctionInfo::Effect::Write, {"variable", nullptr, nullptr}},
    {"name", FunctionInfo::Effect::Name, {nullptr, nullptr, nullptr}},
};

const EffectName* effectNamed(QStringView word)
{
    for (const EffectName& effect : kEffects)
        if (word == QLatin1String(effect.word))
            return &effect;
    return nullptr;
}

// The same lines as data/program/functions.txt.
const char* const kShipped = "setEventTrigger|arm|event=1|trigger=2\n"
                             "gameOverMessage|end|result=4\n"
                             "showConsoleText|message|message=1\n"
                             "addMessage|message|message=1\n"
                             "playSound|sound|sound=1\n"
                             "setMissionTime|time|time=1\n"
                             "NULLOBJECT|name\n"
                             "inactive|name\n";

} // namespace

FunctionTable FunctionTable::shipped()
{
    return parse(QString::fromLatin1(kShipped), QStringLiteral("functions.txt"));
}

FunctionTable FunctionTable::load(const QString& path)
{
    return parse(text::readText(path), path);
}

FunctionTable FunctionTable::forProgramFolder(const QString& programDir)
{
    const QString path = programDir + QStringLiteral("/functions.txt");
    return QFileInfo(path).isFile() ? load(path) : shipped();
}

FunctionTable FunctionTable::parse(const QString& text, const QString& file)
{
    FunctionTable table;
    text::forEachLine(text, [&](qsizetype number, QStringView line) {
        const QString trimmed = line.trimmed().toString();
        if (trimmed.isEmpty() || trimmed.startsWith(QLatin1String("//")))
            return;
        const auto bad
            = [&](const QString& sentence) { return FileError(file, int(number + 1), sentence); };
        const QStringList fields = trimmed.split(u'|');
        const QString name = fields.at(0).trimmed();
        if (name.isEmpty() || fields.size() < 2)
            throw bad(QStringLiteral("expected \"name|effect|role=argument|...\""));
        const EffectName* effect = effectNamed(fields.at(1).trimmed());
        if (!effect)
            throw bad(QStringLiteral("unknown effect \"%1\" (arm, end, message, sound, time, "
                                     "write or name)")
                          .arg(fields.at(1).trimmed()));
        FunctionInfo info;
        info.effect = effect->effect;
        for (qsizetype f = 2; f < fields.size(); ++f) {
            const QString field = fields.at(f).trimmed();
            if (field.isEmpty())
                continue;
            const qsizetype equals = field.indexOf(u'=');
            const QString role = field.left(equals).trimmed();
            bool ok = false;
            const int position = equals > 0 ? field.mid(equals + 1).trimmed().toInt(&ok) : 0;
            bool known = false;
            for (const char* allowed : effect->roles)
                known = known || (allowed && role == QLatin1String(allowed));
            if (!ok || position < 1 || !known)
                throw bad(QStringLiteral("\"%1\" is not a role of \"%2\" with an argument "
                                         "number from 1")
                              .arg(field, QLatin1String(effect->word)));
            info.roles.insert(role, position - 1);
        }
        if (effect->roles[0] && !info.roles.contains(QLatin1String(effect->roles[0])))
            throw bad(QStringLiteral("\"%1\" needs the argument of its %2")
                          .arg(QLatin1String(effect->word), QLatin1String(effect->roles[0])));
        table.m_functions.insert(name, info);
    });
    return table;
}

const FunctionInfo* FunctionTable::find(const QString& name) const
{
    const auto found = m_functions.constFind(name);
    return found == m_functions.cend() ? nullptr : &*found;
}

} // namespace tarvo::script
