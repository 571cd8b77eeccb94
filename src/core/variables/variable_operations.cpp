#include "variables/variable_operations.h"

#include "base/checked.h"
#include "ui/prompter.h"

#include <functional>

namespace tarvo {

namespace {

const QString kNamePrompt = QStringLiteral("Ener new name");
const QString kZero = QStringLiteral("0");

// The four per-variable arrays of a row hold the valid entries plus one spare
// slot behind them.
void resizeSlots(ReferenceList& list)
{
    const qsizetype slots = list.ItemCount + 1;
    list.Codes.resize(slots);
    list.Texts.resize(slots);
    list.Ids.resize(slots);
    list.RawCodes.resize(slots);
}

// Appends one variable the way the dialog always has: the count is raised
// and the arrays grown first, and only then is the ID asked for, so the new
// entry's slot takes part in the search with whatever it held. A slot left
// behind by deleting the last entry still holds that entry's ID, which is
// therefore not given again; a fresh slot holds 0, so the first group of an
// empty row gets ID 1. A group keeps the value its slot held.
int appendVariable(Project& project, int table, const QString& name,
    const std::function<QString(int position)>& identifier, const QString* value)
{
    ReferenceList& list = referenceRow(project.tables, table);
    const int position = list.ItemCount;
    list.ItemCount = raisedCount(list.ItemCount, "variables");
    resizeSlots(list);
    const qint16 id = NextVariableID(project, table);
    list.Texts[position] = name;
    list.Codes[position] = identifier(position);
    list.Ids[position] = id;
    if (value)
        list.RawCodes[position] = *value;
    return position;
}

bool isValidPosition(const ReferenceList& list, int position)
{
    return position >= 0 && position < list.ItemCount;
}

// Every entry behind `position` moves up one place with all four fields; the
// arrays are then cut to the new count plus one, so the spare slot keeps what
// the last entry held.
void removeVariable(ReferenceList& list, int position)
{
    const auto moveUp = [&](auto& values) {
        for (int i = position; i <= list.ItemCount - 2; ++i)
            at(values, i, "variables") = at(values, i + 1, "variables");
    };
    moveUp(list.Codes);
    moveUp(list.Texts);
    moveUp(list.Ids);
    moveUp(list.RawCodes);
    list.ItemCount = static_cast<qint16>(list.ItemCount - 1);
    resizeSlots(list);
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
        [](int position) { return QStringLiteral("Group[%1]").arg(position); }, nullptr);
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
        &kZero);
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
    QString& current = at(list.Texts, position, "variable names");
    const QString name = prompter.input(kNamePrompt, QStringLiteral("New name"), current);
    if (name.isEmpty())
        return false;
    current = name;
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
    at(list.RawCodes, position, "variable values") = value;
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
    at(list.RawCodes, position, "variable values") = value;
    return true;
}

} // namespace tarvo
