#include "dialogs/variables_dialog.h"

#include "catalogue/side_names.h"
#include "document/project_document.h"
#include "records/reference_list.h"
#include "shell/field_text.h"
#include "shell/guard.h"
#include "ui/prompter.h"
#include "variables/variable_commands.h"
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

VariablesDialog::VariablesDialog(ProjectDocument& document, QWidget* parent)
    : QDialog(parent)
    , m_document(document)
    , m_workspace(document.workspace())
    , m_tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("Form4"));
    setWindowTitle(QStringLiteral("Variables"));
    m_tabs->setObjectName(QStringLiteral("SSTab1"));
    m_tabs->addTab(makeFlagsPage(), QStringLiteral("Flags"));
    m_tabs->addTab(makeGroupsPage(), QStringLiteral("Groups"));
    m_tabs->addTab(makeNumbersPage(), QStringLiteral("Numbers"));

    QPushButton* close = button(QStringLiteral("Command1"), QStringLiteral("Close"), this);
    QPushButton* references
        = button(QStringLiteral("FindReferences"), QStringLiteral("Find References"), this);
    connect(references, &QPushButton::clicked, this,
        guard(m_workspace.prompter, [this] { findReferences(); }));
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* closeRow = new QHBoxLayout;
    closeRow->addWidget(references);
    closeRow->addStretch(1);
    closeRow->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addLayout(closeRow);
    resize(420, 360);

    LoadFlags();
    LoadGroups();
    LoadIntegers();
    connect(&m_document, &ProjectDocument::changed, this,
        guard(m_workspace.prompter, [this](const ProjectChange& change) { follow(change); }));
}

// The lists follow every change of their rows, the dialog's own and undo's;
// after an undo or a redo the value boxes show the values as they are again.
void VariablesDialog::follow(const ProjectChange& change)
{
    const Project& project = m_workspace.project;
    if (change.everything || change.rows.test(row::Flags))
        syncLines(m_flags, variableNames(project, row::Flags));
    if (change.everything || change.rows.test(row::Groups))
        syncLines(m_groups, variableNames(project, row::Groups));
    if (change.everything || change.rows.test(row::Integers))
        syncLines(m_numbers, variableNames(project, row::Integers));
    if (change.everything || change.fromHistory)
        showValues();
}

void VariablesDialog::showValues()
{
    showFlagValue();
    showNumberValue();
}

QWidget* VariablesDialog::makeFlagsPage()
{
    const auto on = [this](auto handler) { return guard(m_workspace.prompter, handler); };
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

    connect(m_flags, &QListWidget::currentRowChanged, this, on([this] { showFlagValue(); }));
    connect(m_flagValue, &QComboBox::currentIndexChanged, this, on([this] { storeFlagValue(); }));
    connect(rename, &QPushButton::clicked, this,
        on([this] { this->rename(row::Flags, m_flags, QStringLiteral("Rename Flag")); }));
    return page;
}

QWidget* VariablesDialog::makeGroupsPage()
{
    const auto on = [this](auto handler) { return guard(m_workspace.prompter, handler); };
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

    connect(add, &QPushButton::clicked, this, on([this] { newGroup(); }));
    connect(remove, &QPushButton::clicked, this, on([this] { deleteGroup(); }));
    connect(rename, &QPushButton::clicked, this,
        on([this] { this->rename(row::Groups, m_groups, QStringLiteral("Rename Group")); }));
    return page;
}

QWidget* VariablesDialog::makeNumbersPage()
{
    const auto on = [this](auto handler) { return guard(m_workspace.prompter, handler); };
    auto* page = new QWidget(this);
    QFrame* box = frame(QStringLiteral("Frame3"), page);
    m_numbers = list(QStringLiteral("List3"), box);
    auto* label = new QLabel(QStringLiteral("Value:"), box);
    label->setObjectName(QStringLiteral("Label2"));
    m_numberValue = new QLineEdit(box);
    m_numberValue->setObjectName(QStringLiteral("Text1"));
    refuseFieldBreaks(m_numberValue, m_workspace.prompter);
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

    connect(m_numbers, &QListWidget::currentRowChanged, this, on([this] { showNumberValue(); }));
    connect(update, &QPushButton::clicked, this, on([this] { updateNumberValue(); }));
    connect(add, &QPushButton::clicked, this, on([this] { newNumber(); }));
    connect(remove, &QPushButton::clicked, this, on([this] { deleteNumber(); }));
    connect(rename, &QPushButton::clicked, this,
        on([this] { this->rename(row::Integers, m_numbers, QStringLiteral("Rename Number")); }));
    return page;
}

// The variable selected on the tab that is shown.
void VariablesDialog::findReferences()
{
    static const int rows[] = {row::Flags, row::Groups, row::Integers};
    QListWidget* const lists[] = {m_flags, m_groups, m_numbers};
    const int tab = m_tabs->currentIndex();
    if (!m_finder || tab < 0 || tab > 2 || lists[tab]->currentRow() < 0) {
        m_workspace.prompter.beep();
        return;
    }
    m_finder(rows[tab], lists[tab]->currentRow());
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

void VariablesDialog::newGroup()
{
    const int position = NewGroup(m_document);
    if (position >= 0)
        showLine(m_groups, position);
}

void VariablesDialog::newNumber()
{
    const int position = NewNumber(m_document);
    if (position >= 0)
        showLine(m_numbers, position);
}

// Delete leaves no line selected, as a reload of the list always has.
void VariablesDialog::deleteGroup()
{
    if (DeleteGroup(m_document, m_groups->currentRow()))
        showLine(m_groups, -1);
}

void VariablesDialog::deleteNumber()
{
    if (DeleteNumber(m_document, m_numbers->currentRow()))
        showLine(m_numbers, -1);
}

void VariablesDialog::rename(int table, QListWidget* widget, const QString& label)
{
    const int position = widget->currentRow();
    if (!RenameVariable(m_document, table, position, label))
        return;
    // The renamed line stays selected and its value is shown afresh.
    showLine(widget, position);
    if (widget == m_flags)
        showFlagValue();
    else if (widget == m_numbers)
        showNumberValue();
    // Once per dialog: where a name the project file cannot keep is kept.
    const QString note = sideNamesNote(m_workspace.project, table);
    if (!note.isEmpty() && !m_toldAboutSideNames) {
        m_toldAboutSideNames = true;
        m_workspace.prompter.message(note, Prompter::Icon::Information);
    }
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
    SetFlagValue(m_document, position, m_flagValue->currentText());
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
    UpdateNumberValue(m_document, m_numbers->currentRow(), m_numberValue->text());
}

} // namespace tarvo::gui
