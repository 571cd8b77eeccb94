#pragma once

#include "catalogue/project_places.h"

#include <QDockWidget>

class QLabel;
class QListWidget;

namespace tarvo::gui {

// A dock listing places of the project (the issues of a check, the results of
// Find or Find References); double-clicking a line, Enter on it, or Next
// (F3) goes to its place.
class PlaceListDock : public QDockWidget
{
    Q_OBJECT
public:
    struct Line
    {
        QString text;
        ProjectPlace place;
        bool warning = false; // shown with a warning mark
        bool error = false; // shown with an error mark
    };

    PlaceListDock(const QString& title, const QString& objectName, QWidget* parent = nullptr);

    // Shows the lines under a heading ("3 issues", "Find "abc": 2 places").
    void showLines(const QString& heading, const QList<Line>& lines);
    // Goes to the line after the current one (the first after the last).
    void next();
    QListWidget* list() const { return m_list; }

Q_SIGNALS:
    void placeChosen(const tarvo::ProjectPlace& place);

private:
    void choose(int row);

    QLabel* m_heading;
    QListWidget* m_list;
    QList<Line> m_lines;
};

} // namespace tarvo::gui
