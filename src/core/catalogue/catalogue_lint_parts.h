#pragma once

// Inside the catalogue lint: what both files add up to, the kinds, and the
// list rows of the action catalogue ("<j>" and "<g>" lines) with the
// arguments that offer them.
#include "catalogue/catalogue_lint.h"

#include <QHash>
#include <array>

namespace tarvo::lint {

constexpr int kReferenceRows = 30;
// The editors show this many arguments of a kind and refuse a kind with more.
constexpr int kArgumentPositions = 8;

// What one "<c>" entry gathered up to the next one.
struct Kind
{
    int line = 0;
    QString title;
    QString callName;
    int args = 0;
    bool hasResult = false;
    int codeLine = 0; // of the "<i>" line in force; 0 without one
    qint16 codeMode = 0;
    QStringList codeLines;
};

// What the action catalogue says about one list row.
struct RowFacts
{
    int declaredAt = 0; // line of the first "<j>"
    int filledAt = 0; // line of the first "<g>" with items
    int items = 0;
    QString name;
    QHash<QString, int> texts; // shown text -> line of its first item
};

// An argument or a compared value that offers the items of a row.
struct RowReference
{
    QString file;
    int line = 0;
    int row = 0;
    QString what; // "argument "Player"", "the compared value"
};

struct Collector
{
    QList<CatalogueFinding> findings;
    std::array<RowFacts, kReferenceRows> rows;
    QList<RowReference> references;

    void add(CatalogueFinding::Severity severity, const QString& file, int line,
        const QString& sentence, bool stopsLoad = false)
    {
        findings.append({severity, file, line, sentence, stopsLoad});
    }
    void refer(const QString& file, int line, int row, const QString& what)
    {
        references.append({file, line, row, what});
    }
};

// Piece `index` of a split line; a missing one stops the reader (DataError).
const QString& piece(const QStringList& pieces, int index, const char* what);
// A piece the reader converts strictly (no Val): not a number stops it.
qint16 number(const QStringList& pieces, int index, const char* what);

void readListHeader(Collector& out, const QString& file, int line, const QString& text);
void readListItems(Collector& out, const QString& file, int line, const QString& text);

// Whether the script writer can make something of the kind's form, call
// name, code lines and argument markers.
void checkKindCode(Collector& out, const QString& file, const Kind& kind, bool action);

// After both files: rows offered but never declared or filled, rows filled
// but never declared.
void checkRows(Collector& out, const QString& actionFile);

} // namespace tarvo::lint
