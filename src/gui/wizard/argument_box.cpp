#include "wizard/argument_box.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>

namespace tarvo::gui {

namespace {

const char* const kNormalBase = "tarvoNormalBase";
const char* const kMarked = "tarvoMarked";

// The highlight of a box whose text names a known item: red and green full.
const QColor kMarkColour(255, 255, 0);

} // namespace

QComboBox* makeArgumentBox(const QString& objectName, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    box->setObjectName(objectName);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setMaxVisibleItems(20);
    box->setProperty(kNormalBase, box->palette().color(QPalette::Base));
    box->setProperty(kMarked, false);
    return box;
}

void fillArgumentBox(QComboBox* box, const QStringList& items)
{
    const QSignalBlocker blocker(box);
    box->clear();
    box->addItems(items);
    box->setCurrentIndex(-1);
    box->clearEditText();
}

void clearArgumentBox(QComboBox* box)
{
    fillArgumentBox(box, {});
    markArgumentBox(box, false);
}

void setBoxText(QComboBox* box, const QString& text)
{
    const QSignalBlocker blocker(box);
    box->setCurrentIndex(box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
    box->setEditText(text);
}

void markArgumentBox(QComboBox* box, bool namesItem)
{
    if (box->property(kMarked).toBool() == namesItem)
        return;
    QPalette palette = box->palette();
    const QColor base = namesItem ? kMarkColour : box->property(kNormalBase).value<QColor>();
    palette.setColor(QPalette::Base, base);
    box->setPalette(palette);
    if (box->lineEdit())
        box->lineEdit()->setPalette(palette);
    box->setProperty(kMarked, namesItem);
}

bool isArgumentBoxMarked(const QComboBox* box)
{
    return box->property(kMarked).toBool();
}

} // namespace tarvo::gui
