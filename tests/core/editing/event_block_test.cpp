// The commands on several event lines keep the history right: each is one
// step whose stretch of records covers what it changed, so undo gives back
// the file as it was and redo the file as the command left it.
#include "editing/event_block.h"
#include "project_builder.h"
#include "test_paths.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

struct Row
{
    const char* name;
    QList<int> lines;
    const char* command; // delete, up, down, on, off
    int spare = 0; // records kept behind the count, as a damaged file may have
};

const Row kRows[] = {
    {"delete_apart", {3, 1}, "delete"},
    {"delete_first_and_last", {0, 5}, "delete"},
    {"delete_all", {0, 1, 2, 3, 4, 5}, "delete"},
    {"delete_with_spare_records", {1, 2}, "delete", 2},
    {"up_with_a_gap", {2, 4, 5}, "up"},
    {"down_with_a_gap", {0, 1, 3}, "down"},
    {"down_to_the_bottom", {3}, "down", 1},
    {"switch_on", {1, 2, 3, 5}, "on"},
    {"switch_off", {0, 3, 5}, "off"},
};

class BlockRows : public testing::TestWithParam<Row>
{
};

TEST_P(BlockRows, isOneStepThatUndoesAndRedoesExactly)
{
    const Row& row = GetParam();
    ProjectBuilder b(sourceProgramDir());
    for (int e = 0; e < 6; ++e) {
        b.addEvent(QStringLiteral("E%1").arg(e), e % 2 == 1);
        if (e != 1)
            b.addAction(e, QStringLiteral("Set mission time"), {QString::number(e)});
    }
    Project& p = b.project();
    p.eventCount = qint16(p.eventCount - row.spare);
    const QByteArray before = b.bytes();
    const QList<EventRecord> recordsBefore = p.events;
    const QString command = row.command;
    if (command == "delete")
        b.document.editEvents("Delete Events", deleteEventsStretch(p, row.lines),
            [&] { deleteEvents(p, row.lines); });
    else if (command == "up" || command == "down") {
        const int direction = command == "up" ? -1 : 1;
        EXPECT_FALSE(b.document
                         .editEvents("Move Events", moveEventsStretch(row.lines, direction),
                             [&] { return moveEvents(p, row.lines, direction); })
                         .isEmpty());
    } else
        b.document.editEvents("Switch Events", blockStretch(p, row.lines),
            [&] { setEventsTicked(b.workspace, row.lines, command == "on"); });
    const QByteArray after = b.bytes();
    const qsizetype recordsAfter = p.events.size();
    EXPECT_NE(after, before);

    b.document.undo();
    EXPECT_EQ(b.bytes(), before);
    EXPECT_EQ(p.events.size(), recordsBefore.size());
    EXPECT_FALSE(b.document.canUndo());
    b.document.redo();
    EXPECT_EQ(b.bytes(), after);
    EXPECT_EQ(p.events.size(), recordsAfter);
}

INSTANTIATE_TEST_SUITE_P(Events, BlockRows, testing::ValuesIn(kRows),
    [](const testing::TestParamInfo<Row>& info) { return std::string(info.param.name); });

} // namespace
