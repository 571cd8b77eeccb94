#include "variables/variable_operations.h"

#include "model/checked.h"
#include "ui/prompter.h"

#include <functional>

namespace tarvo {

namespace {

const QString kNamePrompt = QStringLiteral("Ener new name");

// Every per-variable array gets room for the valid entries plus the one spare
// slot the row always keeps behind them.
void ensureSlots(ReferenceList& list)
{
    const qsizetype slots = list.ItemCount + 1;
    growTo(list.Codes, slots);
    growTo(list.Texts, slots);
    growTo(list.Ids, slots);
    growTo(list.RawCodes, slots);
}

void cutToSlots(ReferenceList& list)
{
    const qsizetype slots = list.ItemCount + 1;
    list.Codes.resize(slots);
    list.Texts.resize(slots);
    list.Ids.resize(slots);
    list.RawCodes.resize(slots);
}

// Appends one variable. The ID is taken before the row grows, so the new
// entry's own (empty) slot never takes part in it: the first variable of an
// empty row gets 0, every other one the highest ID so far plus one.
int appendVariable(Project& project, int table, const QString& name,
    const std::function<QString(int position)>& identifier, const QString& value)
{
    ReferenceList& list = referenceRow(project.tables, table);
    const qint16 id = NextVariableID(project, table);
    const int position = list.ItemCount;
    list.ItemCount = raisedCount(list.ItemCount, "variables");
    ensureSlots(list);
    list.Texts[position] = name;
    list.Codes[position] = identifier(position);
    list.Ids[position] = id;
    list.RawCodes[position] = value;
    return position;
}

bool isValidPosition(const ReferenceList& list, int position)
{
    return position >= 0 && position < list.ItemCount;
}

void removeVariable(ReferenceList& list, int position)
{
    ensureSlots(list);
    list.Codes.removeAt(position);
    list.Texts.removeAt(position);
    list.Ids.removeAt(position);
    list.RawCodes.removeAt(position);
    list.ItemCount = static_cast<qint16>(list.ItemCount - 1);
    cutToSlots(list);
}

void inform(Prompter& prompter, const QString& text)
{
    prompter.message(text, Prompter::Icon::Information, Prompter::Buttons::Ok);
}

} // namespace

QStringList variableNames(const Project& project, int table)
{
    const ReferenceList& list = referenceRow(project.tables, table);
    QStringList names;
    for (int i = 0; i < list.ItemCount; ++i)
        names.append(at(list.Texts, i, "variable names"));
    return names;
}

int NewGroup(Project& project, Prompter& prompter)
{
    if (project.tables[row::Groups].ItemCount >= kMaxVariables) {
        inform(prompter, QStringLiteral("Can't create new group. Max number of groups = 64"));
        return -1;
    }
    const QString name = prompter.input(kNamePrompt, QStringLiteral("New group"));
    if (name.isEmpty())
        return -1;
    return appendVariable(
        project, row::Groups, name,
        [](int position) { return QStringLiteral("Group[%1]").arg(position); }, QString());
}

int NewNumber(Project& project, Prompter& prompter)
{
    if (project.tables[row::Integers].ItemCount >= kMaxVariables) {
        inform(prompter, QStringLiteral("Can't create new variable. Max number of variables = 64"));
        return -1;
    }
    const QString name = prompter.input(kNamePrompt, QStringLiteral("New variable name"));
    if (name.isEmpty())
        return -1;
    // Script identifiers count only the user's numbers, after the fixed five.
    return appendVariable(
        project, row::Integers, name,
        [](int position) { return QStringLiteral("integ[%1]").arg(position - kFixedNumbers); },
        QStringLiteral("0"));
}

bool DeleteGroup(Project& project, Prompter&, int position)
{
    ReferenceList& list = project.tables[row::Groups];
    if (!isValidPosition(list, position))
        return false;
    removeVariable(list, position);
    return true;
}

bool DeleteNumber(Project& project, Prompter& prompter, int position)
{
    ReferenceList& list = project.tables[row::Integers];
    if (!isValidPosition(list, position))
        return false;
    if (position < kFixedNumbers) {
        inform(prompter, QStringLiteral("You can't delete this variable."));
        return false;
    }
    removeVariable(list, position);
    return true;
}

bool RenameVariable(Project& project, Prompter& prompter, int table, int position)
{
    ReferenceList& list = referenceRow(project.tables, table);
    if (!isValidPosition(list, position))
        return false;
    const QString name = prompter.input(kNamePrompt, QStringLiteral("New name"));
    if (name.isEmpty())
        return false;
    at(list.Texts, position, "variable names") = name;
    return true;
}

QString flagChoice(const Project& project, int position)
{
    const ReferenceList& list = project.tables[row::Flags];
    const QString value
        = position >= 0 && position < list.RawCodes.size() ? list.RawCodes.at(position) : QString();
    return value == QLatin1String("FALSE") ? QStringLiteral("FALSE") : QStringLiteral("TRUE");
}

void SetFlagValue(Project& project, int position, const QString& value)
{
    ReferenceList& list = project.tables[row::Flags];
    if (!isValidPosition(list, position))
        return;
    ensureSlots(list);
    list.RawCodes[position] = value;
}

QString numberValueText(const Project& project, int position)
{
    const ReferenceList& list = project.tables[row::Integers];
    const QString value
        = position >= 0 && position < list.RawCodes.size() ? list.RawCodes.at(position) : QString();
    return value.isEmpty() ? QStringLiteral("0") : value;
}

bool UpdateNumberValue(Project& project, Prompter& prompter, int position, const QString& value)
{
    ReferenceList& list = project.tables[row::Integers];
    if (!isValidPosition(list, position))
        return false;
    if (position < kFixedNumbers) {
        inform(prompter, QStringLiteral("You can't change this variable."));
        return false;
    }
    ensureSlots(list);
    list.RawCodes[position] = value;
    return true;
}

} // namespace tarvo
