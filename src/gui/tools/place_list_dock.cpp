#include "tools/place_list_dock.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QStyle>
#include <QVBoxLayout>

namespace tarvo::gui {

PlaceListDock::PlaceListDock(const QString& title, const QString& objectName, QWidget* parent)
    : QDockWidget(title, parent)
    , m_heading(new QLabel(this))
    , m_list(new QListWidget(this))
{
    setObjectName(objectName);
    m_list->setObjectName(objectName + QStringLiteral("List"));
    m_list->setUniformItemSizes(true);
    m_heading->setObjectName(objectName + QStringLiteral("Heading"));
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(4, 2, 4, 4);
    layout->addWidget(m_heading);
    layout->addWidget(m_list);
    setWidget(body);
    connect(m_list, &QListWidget::itemActivated, this,
        [this](QListWidgetItem* item) { choose(m_list->row(item)); });
}

void PlaceListDock::showLines(const QString& heading, const QList<Line>& lines)
{
    m_lines = lines;
    m_heading->setText(heading);
    m_list->clear();
    const QStyle* style = QApplication::style();
    for (const Line& line : lines) {
        auto* item = new QListWidgetItem(line.text, m_list);
        if (line.error)
            item->setIcon(style->standardIcon(QStyle::SP_MessageBoxCritical));
        else if (line.warning)
            item->setIcon(style->standardIcon(QStyle::SP_MessageBoxWarning));
    }
}

void PlaceListDock::next()
{
    if (m_lines.isEmpty())
        return;
    const int row = (m_list->currentRow() + 1) % int(m_lines.size());
    m_list->setCurrentRow(row);
    choose(row);
}

void PlaceListDock::choose(int row)
{
    if (row >= 0 && row < m_lines.size())
        Q_EMIT placeChosen(m_lines.at(row).place);
}

} // namespace tarvo::gui
