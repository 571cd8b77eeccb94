#include "catalogue/trigger_tables.h"

#include "base/file_error.h"

#include <array>

namespace tarvo {

namespace {

std::array<TriggerKind, kTriggerKindCount> buildTriggerKinds()
{
    std::array<TriggerKind, kTriggerKindCount> kinds;
    const QString comma = QStringLiteral(", ");
    kinds[0] = {QStringLiteral("Repeart every:"), QStringLiteral("every"), comma, 1, -1, 0};
    kinds[1] = {QStringLiteral("After:"), QStringLiteral("wait"), comma, 1, -1, 0};
    kinds[2] = {QStringLiteral("Inactive"), QStringLiteral("inactive"), {}, 0, -1, 0};
    kinds[3] = {QStringLiteral("On startup"), QStringLiteral("CALL_GAMEINIT"), {}, 0, -1, 0};
    // Kind 4 keeps a first argument type of 0: the table was always built
    // that way, and the kind takes no argument.
    kinds[4] = {QStringLiteral("Mission timeout (set Mission Time first)"),
        QStringLiteral("CALL_MISSION_TIME"), {}, 0, 0, 0};
    kinds[5] = {QStringLiteral("On transport landing, unload units to group:"),
        QStringLiteral("CALL_TRANSPORTER_LANDED"), comma, 2, 7, 1};
    kinds[6].caption = QStringLiteral("Droid attacked:");
    kinds[7].caption = QStringLiteral("Any object attacked:");
    kinds[8].caption = QStringLiteral("Structure destroyed:");
    kinds[9].caption = QStringLiteral("Droid destroyed:");
    kinds[10].caption = QStringLiteral("Any object destroyed:");
    kinds[11].caption = QStringLiteral("Structure destroyed:");
    kinds[12].caption = QStringLiteral("Feature destroyed:");
    return kinds;
}

const std::array<TriggerKind, kTriggerKindCount>& triggerKinds()
{
    static const auto kinds = buildTriggerKinds();
    return kinds;
}

void checkIndex(int index, int count, const char* table)
{
    if (index < 0 || index >= count)
        throw DataError(QStringLiteral("%1 %2 is out of range 0 to %3")
                            .arg(QLatin1String(table))
                            .arg(index)
                            .arg(count - 1));
}

} // namespace

const TriggerKind& triggerKind(int kind)
{
    checkIndex(kind, kTriggerKindCount, "trigger kind");
    return triggerKinds()[kind];
}

QString operatorText(int index)
{
    static const std::array<const char*, kOperatorCount> texts
        = {">", "<", "==", ">=", "<=", "!=", ""};
    checkIndex(index, kOperatorCount, "operator");
    return QString::fromLatin1(texts[index]);
}

QString negationText(int index)
{
    checkIndex(index, kNegationCount, "negation");
    return index == 1 ? QStringLiteral("not ") : QString();
}

QStringList operatorComboItems()
{
    return {QStringLiteral(">"), QStringLiteral("<"), QStringLiteral("="), QStringLiteral(">="),
        QStringLiteral("<="), QStringLiteral("!=")};
}

QStringList negationComboItems()
{
    return {QString(), QStringLiteral("Not")};
}

} // namespace tarvo
