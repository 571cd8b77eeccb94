#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <array>

namespace tarvo {

// One named list that arguments choose from: players, fixed choices, script
// variables, events, timers, sounds, messages.
struct ReferenceList
{
    QStringList Codes;
    QStringList Texts;
    QList<qint16> Ids;
    bool UsesIds = false;
    qint16 ItemCount = 0;
    QString ListName;
    QStringList RawCodes;
    bool Saved = false;
    qint16 Scope = 0;
    QString CodeTemplate;
    QString ValueType;

    // Member by member, written out (see reference_list.cpp): a new member
    // must be compared there too.
    friend bool operator==(const ReferenceList&, const ReferenceList&);
};

constexpr int kReferenceRowCount = 30;
using ReferenceListTable = std::array<ReferenceList, kReferenceRowCount>;

// Rows with a fixed meaning.
namespace row {
constexpr int Integers = 0;
constexpr int Groups = 7;
constexpr int Events = 12;
constexpr int Timers = 13;
constexpr int Sounds = 14;
constexpr int Messages = 15;
constexpr int Flags = 17;
} // namespace row

// Checked row access: a row outside 0 to 29 is a DataError.
ReferenceList& referenceRow(ReferenceListTable& table, int row);
const ReferenceList& referenceRow(const ReferenceListTable& table, int row);

} // namespace tarvo
