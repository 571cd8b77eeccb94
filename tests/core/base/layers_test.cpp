#include "test_paths.h"

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

// Floor of each room of the core, read from the table in tests/data/layers.
QMap<QString, int> readFloors()
{
    QFile file(testDataDir() + QStringLiteral("/layers/floors.txt"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QMap<QString, int> floors;
    int floor = 0;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (line.trimmed().isEmpty() || line.startsWith(u'#'))
            continue;
        for (const QString& room : line.split(u' ', Qt::SkipEmptyParts))
            floors.insert(room, floor);
        ++floor;
    }
    return floors;
}

} // namespace

// An include may point at the file's own room or down, never up or across: a
// lower room that knows a higher one cannot be built, read or tested alone.
TEST(Layers, NoCoreIncludePointsUpOrAcross)
{
    const QMap<QString, int> floors = readFloors();
    ASSERT_GT(floors.size(), 5);
    const QString root = coreSourceDir();
    static const QRegularExpression include(QStringLiteral(R"(^#include "([a-z_]+)/)"));
    int files = 0;
    QDirIterator it(root, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
        QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString room = path.mid(root.size() + 1).section(u'/', 0, 0);
        ASSERT_TRUE(floors.contains(room)) << path.toStdString() << ": a room with no floor";
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        int lineNumber = 0;
        for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
            ++lineNumber;
            const QString target = include.match(line).captured(1);
            if (target.isEmpty() || target == room)
                continue;
            EXPECT_LT(floors.value(target, 1000), floors.value(room))
                << path.toStdString() << ":" << lineNumber << ": " << line.toStdString();
        }
        ++files;
    }
    EXPECT_GT(files, 100);
}
