#include "wizard/list_lines.h"

#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace tarvo::gui {

QPushButton* makeButton(const QString& caption, const QString& objectName, QWidget* parent)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(objectName);
    button->setAutoDefault(false);
    return button;
}

void addCheckLine(QListWidget* list, const QString& text, bool checked)
{
    insertCheckLine(list, list->count(), text, checked);
}

void insertCheckLine(QListWidget* list, int row, const QString& text, bool checked)
{
    const QSignalBlocker blocker(list);
    auto* item = new QListWidgetItem(text);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
    list->insertItem(row, item);
}

QString commentBoxText(const QPlainTextEdit* box)
{
    QString text = box->toPlainText();
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\n', QStringLiteral("\r\n"));
    return text;
}

} // namespace tarvo::gui
