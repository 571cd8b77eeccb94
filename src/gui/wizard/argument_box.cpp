#include "wizard/argument_box.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>

namespace tarvo::gui {

namespace {

const char* const kNormalBase = "tarvoNormalBase";
const char* const kMarked = "tarvoMarked";
const char* const kRow = "tarvoRow";
const char* const kLastText = "tarvoLastText";
// Marks the "New..." entry among the items.
constexpr int kNewEntryRole = Qt::UserRole + 7;

// The highlight of a box whose text names a known item: red and green full.
const QColor kMarkColour(255, 255, 0);

ArgumentBoxHelper* helperOf(const QComboBox* box)
{
    return box->window() ? box->window()->findChild<ArgumentBoxHelper*>() : nullptr;
}

bool isNewEntry(const QComboBox* box, int index)
{
    return index >= 0 && box->itemData(index, kNewEntryRole).toBool();
}

// "New..." chosen: the item is made and chosen, or the text goes back to
// what it was.
void newEntryChosen(QComboBox* box)
{
    // The page hears of the text going back, as of any change of it.
    const QString before = box->property(kLastText).toString();
    box->setCurrentIndex(box->findText(before, Qt::MatchExactly | Qt::MatchCaseSensitive));
    box->setEditText(before);
    ArgumentBoxHelper* helper = helperOf(box);
    const QPointer<QComboBox> alive(box);
    const QString made = helper ? helper->makeItem(argumentBoxRow(box)) : QString();
    if (!alive)
        return;
    if (made.isEmpty())
        return;
    int index = box->findText(made, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0 || isNewEntry(box, index)) {
        index = box->count() - 1;
        box->insertItem(index, made);
    }
    box->setCurrentIndex(index);
    box->setEditText(made);
}

// Ctrl+click and the pop-up menu's "Go to" on the box's text.
class GoToFilter : public QObject
{
public:
    explicit GoToFilter(QComboBox* box)
        : QObject(box)
        , m_box(box)
    {
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonPress) {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() == Qt::LeftButton && mouse->modifiers() == Qt::ControlModifier
                && goTo())
                return true;
        } else if (event->type() == QEvent::ContextMenu && m_box->lineEdit()
            && watched == m_box->lineEdit()) {
            ArgumentBoxHelper* helper = helperOf(m_box);
            if (!helper || argumentBoxRow(m_box) < 0)
                return false;
            QMenu* menu = m_box->lineEdit()->createStandardContextMenu();
            menu->setAttribute(Qt::WA_DeleteOnClose);
            menu->addSeparator();
            QAction* go = menu->addAction(QStringLiteral("Go to"));
            go->setObjectName(QStringLiteral("mArgumentGoTo"));
            go->setEnabled(!m_box->currentText().isEmpty());
            connect(go, &QAction::triggered, m_box, [this] { goTo(); });
            menu->popup(static_cast<QContextMenuEvent*>(event)->globalPos());
            return true;
        }
        return false;
    }

private:
    bool goTo()
    {
        ArgumentBoxHelper* helper = helperOf(m_box);
        const int row = argumentBoxRow(m_box);
        if (!helper || row < 0 || m_box->currentText().isEmpty())
            return false;
        helper->goToItem(row, m_box->currentText());
        return true;
    }

    QComboBox* m_box;
};

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
    box->setProperty(kRow, -1);
    QObject::connect(box, &QComboBox::editTextChanged, box, [box](const QString& text) {
        if (!isNewEntry(box, box->currentIndex()))
            box->setProperty(kLastText, text);
    });
    QObject::connect(box, &QComboBox::activated, box, [box](int index) {
        if (isNewEntry(box, index))
            newEntryChosen(box);
    });
    auto* filter = new GoToFilter(box);
    box->lineEdit()->installEventFilter(filter);
    return box;
}

void fillArgumentBox(QComboBox* box, const QStringList& items)
{
    const QSignalBlocker blocker(box);
    box->setProperty(kRow, -1);
    box->clear();
    box->addItems(items);
    box->setCurrentIndex(-1);
    box->clearEditText();
}

void fillArgumentBox(QComboBox* box, const QStringList& items, int row)
{
    fillArgumentBox(box, items);
    box->setProperty(kRow, row);
    const ArgumentBoxHelper* helper = helperOf(box);
    const QString caption = helper ? helper->newItemCaption(row) : QString();
    if (caption.isEmpty())
        return;
    const QSignalBlocker blocker(box);
    box->addItem(caption);
    box->setItemData(box->count() - 1, true, kNewEntryRole);
    box->setCurrentIndex(-1);
    box->clearEditText();
}

int argumentBoxRow(const QComboBox* box)
{
    const QVariant row = box->property(kRow);
    return row.isValid() ? row.toInt() : -1;
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
