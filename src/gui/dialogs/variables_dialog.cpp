#include "dialogs/variables_dialog.h"

#include "catalogue/reference_list.h"
#include "dialogs/guarded_call.h"
#include "model/workspace.h"
#include "resources/resource_removal.h"
#include "variables/variable_operations.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tarvo::gui {

namespace {

QPushButton* button(const QString& name, const QString& caption, QWidget* parent)
{
    auto* result = new QPushButton(caption, parent);
    result->setObjectName(name);
    result->setAutoDefault(false);
    return result;
}

QListWidget* list(const QString& name, QWidget* parent)
{
    auto* result = new QListWidget(parent);
    result->setObjectName(name);
    return result;
}

// Each tab holds one frame with the tab's controls, as the dialog always had.
QFrame* frame(const QString& name, QWidget* page)
{
    auto* result = new QFrame(page);
    result->setObjectName(name);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(result);
    return result;
}

void fill(QListWidget* widget, const QStringList& names)
{
    widget->clear();
    widget->addItems(names);
}

} // namespace

VariablesDialog::VariablesDialog(Workspace& workspace, QWidget* parent)
    : QDialog(parent)
    , m_workspace(workspace)
    , m_tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("Form4"));
    setWindowTitle(QStringLiteral("Variables"));
    m_tabs->setObjectName(QStringLiteral("SSTab1"));
    m_tabs->addTab(makeFlagsPage(), QStringLiteral("Flags"));
    m_tabs->addTab(makeGroupsPage(), QStringLiteral("Groups"));
    m_tabs->addTab(makeNumbersPage(), QStringLiteral("Numbers"));

    QPushButton* close = button(QStringLiteral("Command1"), QStringLiteral("Close"), this);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* closeRow = new QHBoxLayout;
    closeRow->addStretch(1);
    closeRow->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addLayout(closeRow);
    resize(420, 360);

    LoadFlags();
    LoadGroups();
    LoadIntegers();
}

QWidget* VariablesDialog::makeFlagsPage()
{
    auto* page = new QWidget(this);
    QFrame* box = frame(QStringLiteral("Frame1"), page);
    m_flags = list(QStringLiteral("List1"), box);
    auto* label = new QLabel(QStringLiteral("Value:"), box);
    label->setObjectName(QStringLiteral("Label1"));
    m_flagValue = new QComboBox(box);
    m_flagValue->setObjectName(QStringLiteral("Combo1"));
    m_flagValue->addItems({QStringLiteral("FALSE"), QStringLiteral("TRUE")});
    QPushButton* rename = button(QStringLiteral("Command8"), QStringLiteral("Rename"), box);

    auto* layout = new QGridLayout(box);
    layout->addWidget(m_flags, 0, 0, 4, 1);
    layout->addWidget(label, 0, 1);
    layout->addWidget(m_flagValue, 1, 1);
    layout->addWidget(rename, 2, 1);
    layout->setRowStretch(3, 1);

    connect(m_flags, &QListWidget::currentRowChanged, this, &VariablesDialog::showFlagValue);
    connect(m_flagValue, &QComboBox::currentIndexChanged, this, &VariablesDialog::storeFlagValue);
    connect(rename, &QPushButton::clicked, this, [this] { this->rename(row::Flags, m_flags); });
    return page;
}

QWidget* VariablesDialog::makeGroupsPage()
{
    auto* page = new QWidget(this);
    QFrame* box = frame(QStringLiteral("Frame2"), page);
    m_groups = list(QStringLiteral("List2"), box);
    QPushButton* add = button(QStringLiteral("Command2"), QStringLiteral("New"), box);
    QPushButton* remove = button(QStringLiteral("Command3"), QStringLiteral("Delete"), box);
    QPushButton* rename = button(QStringLiteral("Command4"), QStringLiteral("Rename"), box);

    auto* layout = new QGridLayout(box);
    layout->addWidget(m_groups, 0, 0, 4, 1);
    layout->addWidget(add, 0, 1);
    layout->addWidget(remove, 1, 1);
    layout->addWidget(rename, 2, 1);
    layout->setRowStretch(3, 1);

    connect(add, &QPushButton::clicked, this, guarded(&VariablesDialog::newGroup));
    connect(remove, &QPushButton::clicked, this, guarded(&VariablesDialog::deleteGroup));
    connect(rename, &QPushButton::clicked, this, guarded(&VariablesDialog::renameGroup));
    return page;
}

QWidget* VariablesDialog::makeNumbersPage()
{
    auto* page = new QWidget(this);
    QFrame* box = frame(QStringLiteral("Frame3"), page);
    m_numbers = list(QStringLiteral("List3"), box);
    auto* label = new QLabel(QStringLiteral("Value:"), box);
    label->setObjectName(QStringLiteral("Label2"));
    m_numberValue = new QLineEdit(box);
    m_numberValue->setObjectName(QStringLiteral("Text1"));
    QPushButton* update = button(QStringLiteral("Command9"), QStringLiteral("Update"), box);
    QPushButton* add = button(QStringLiteral("Command5"), QStringLiteral("New"), box);
    QPushButton* remove = button(QStringLiteral("Command6"), QStringLiteral("Delete"), box);
    QPushButton* rename = button(QStringLiteral("Command7"), QStringLiteral("Rename"), box);

    auto* layout = new QGridLayout(box);
    layout->addWidget(m_numbers, 0, 0, 8, 1);
    layout->addWidget(label, 0, 1);
    layout->addWidget(m_numberValue, 1, 1);
    layout->addWidget(update, 2, 1);
    layout->setRowMinimumHeight(3, 12);
    layout->addWidget(add, 4, 1);
    layout->addWidget(remove, 5, 1);
    layout->addWidget(rename, 6, 1);
    layout->setRowStretch(7, 1);

    connect(m_numbers, &QListWidget::currentRowChanged, this, &VariablesDialog::showNumberValue);
    connect(update, &QPushButton::clicked, this, &VariablesDialog::updateNumberValue);
    connect(add, &QPushButton::clicked, this, guarded(&VariablesDialog::newNumber));
    connect(remove, &QPushButton::clicked, this, guarded(&VariablesDialog::deleteNumber));
    connect(
        rename, &QPushButton::clicked, this, [this] { this->rename(row::Integers, m_numbers); });
    return page;
}

std::function<void()> VariablesDialog::guarded(void (VariablesDialog::*work)())
{
    return [this, work] { guardedCall(m_workspace.prompter, [this, work] { (this->*work)(); }); };
}

void VariablesDialog::renameGroup()
{
    rename(row::Groups, m_groups);
}

void VariablesDialog::LoadFlags()
{
    fill(m_flags, variableNames(m_workspace.project, row::Flags));
    m_showingFlag = true;
    m_flagValue->setCurrentIndex(-1);
    m_showingFlag = false;
}

void VariablesDialog::LoadGroups()
{
    fill(m_groups, variableNames(m_workspace.project, row::Groups));
}

void VariablesDialog::LoadIntegers()
{
    fill(m_numbers, variableNames(m_workspace.project, row::Integers));
}

void VariablesDialog::reload(QListWidget* widget)
{
    if (widget == m_flags)
        LoadFlags();
    else if (widget == m_groups)
        LoadGroups();
    else
        LoadIntegers();
}

void VariablesDialog::newGroup()
{
    const int position = NewGroup(m_workspace.project, m_workspace.prompter);
    if (position < 0)
        return;
    LoadGroups();
    m_groups->setCurrentRow(position);
}

void VariablesDialog::newNumber()
{
    const int position = NewNumber(m_workspace.project, m_workspace.prompter);
    if (position < 0)
        return;
    LoadIntegers();
    m_numbers->setCurrentRow(position);
}

void VariablesDialog::deleteGroup()
{
    const int position = m_groups->currentRow();
    if (!DeleteGroup(m_workspace.project, m_workspace.prompter, position))
        return;
    LoadGroups();
    m_groups->setCurrentRow(selectionAfterRemoval(position, m_groups->count()));
}

void VariablesDialog::deleteNumber()
{
    const int position = m_numbers->currentRow();
    if (!DeleteNumber(m_workspace.project, m_workspace.prompter, position))
        return;
    LoadIntegers();
    m_numbers->setCurrentRow(selectionAfterRemoval(position, m_numbers->count()));
}

void VariablesDialog::rename(int table, QListWidget* widget)
{
    const int position = widget->currentRow();
    if (!RenameVariable(m_workspace.project, m_workspace.prompter, table, position))
        return;
    reload(widget);
    widget->setCurrentRow(position);
}

void VariablesDialog::showFlagValue()
{
    const int position = m_flags->currentRow();
    if (position < 0)
        return;
    m_showingFlag = true;
    m_flagValue->setCurrentText(flagChoice(m_workspace.project, position));
    m_showingFlag = false;
}

void VariablesDialog::storeFlagValue()
{
    const int position = m_flags->currentRow();
    if (m_showingFlag || position < 0 || m_flagValue->currentIndex() < 0)
        return;
    SetFlagValue(m_workspace.project, position, m_flagValue->currentText());
}

void VariablesDialog::showNumberValue()
{
    const int position = m_numbers->currentRow();
    if (position < 0) {
        m_numberValue->clear();
        return;
    }
    m_numberValue->setText(numberValueText(m_workspace.project, position));
}

void VariablesDialog::updateNumberValue()
{
    UpdateNumberValue(
        m_workspace.project, m_workspace.prompter, m_numbers->currentRow(), m_numberValue->text());
}

} // namespace tarvo::gui
