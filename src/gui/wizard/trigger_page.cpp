#include "wizard/trigger_page.h"

#include "catalogue/reference_markers.h"
#include "document/project_document.h"
#include "shell/field_text.h"
#include "shell/guard.h"
#include "wizard/argument_box.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tarvo::gui {

namespace {

struct KindLabels
{
    QString first;
    QString firstTip;
    QString second; // empty: the kind has no second argument box
    QString secondTip;
};

KindLabels labelsOf(int kind)
{
    const QString player = QStringLiteral("Player:");
    switch (kind) {
    case 0:
    case 1:
        return {QStringLiteral("Time:"), QStringLiteral("Time in 10th of a second"), {}, {}};
    case 5:
        return {QStringLiteral("Group:"), QStringLiteral("Group to add units from transport to"),
            player, QStringLiteral("Player which transport is about to land")};
    default:
        return {player, {}, {}, {}};
    }
}

QString indexed(const char* name, int index)
{
    return QString::fromLatin1(name) + u'_' + QString::number(index);
}

} // namespace

TriggerPage::TriggerPage(ProjectDocument& document, QWidget* parent)
    : QWidget(parent)
    , m_workspace(document.workspace())
{
    const auto on = [this](auto handler) { return guard(m_workspace.prompter, handler); };
    auto* page = new QVBoxLayout(this);

    auto* headingRow = new QHBoxLayout;
    m_heading = new QLabel(QStringLiteral("New event:"), this);
    m_heading->setObjectName(QStringLiteral("Label8"));
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_name = new QLabel(this);
    m_name->setObjectName(QStringLiteral("EventName"));
    headingRow->addWidget(m_heading);
    headingRow->addWidget(m_name, 1);
    page->addLayout(headingRow);

    auto* frame5 = new QFrame(this);
    frame5->setObjectName(QStringLiteral("Frame5"));
    frame5->setFrameShape(QFrame::StyledPanel);
    auto* frameLayout = new QVBoxLayout(frame5);
    auto* frame6 = new QFrame(frame5);
    frame6->setObjectName(QStringLiteral("Frame6"));
    auto* grid = new QGridLayout(frame6);
    grid->setHorizontalSpacing(10);
    auto* label7 = new QLabel(QStringLiteral("Timer type (when to check condition):"), frame6);
    label7->setObjectName(QStringLiteral("Label7"));
    auto* label6 = new QLabel(QStringLiteral("Arguments:"), frame6);
    label6->setObjectName(QStringLiteral("Label6"));
    label7->setFont(bold);
    label6->setFont(bold);
    grid->addWidget(label7, 0, 0);
    grid->addWidget(label6, 0, 1, 1, 4);

    m_options = new QButtonGroup(this);
    m_options->setExclusive(true);
    for (int k = 0; k < kTriggerOptionCount; ++k) {
        const KindLabels labels = labelsOf(k);
        m_option1[k] = new QRadioButton(triggerKind(k).caption, frame6);
        m_option1[k]->setObjectName(indexed("Option1", k));
        m_options->addButton(m_option1[k], k);

        m_label5[k] = new QLabel(labels.first, frame6);
        m_label5[k]->setObjectName(indexed("Label5", k));
        m_combo8[k] = makeArgumentBox(indexed("Combo8", k), frame6);
        refuseFieldBreaks(m_combo8[k], m_workspace.prompter);
        m_combo8[k]->setToolTip(labels.firstTip);
        m_combo8[k]->setMinimumWidth(180);
        m_label9[k] = new QLabel(labels.second, frame6);
        m_label9[k]->setObjectName(indexed("Label9", k));
        m_combo9[k] = makeArgumentBox(indexed("Combo9", k), frame6);
        refuseFieldBreaks(m_combo9[k], m_workspace.prompter);
        m_combo9[k]->setToolTip(labels.secondTip);
        m_combo9[k]->setMinimumWidth(180);
        // Kinds without a second argument keep their placeholders out of sight.
        m_label9[k]->setVisible(!labels.second.isEmpty());
        m_combo9[k]->setVisible(!labels.second.isEmpty());

        const int row = k + 1;
        grid->addWidget(m_option1[k], row, 0);
        grid->addWidget(m_label5[k], row, 1, Qt::AlignRight);
        grid->addWidget(m_combo8[k], row, 2);
        grid->addWidget(m_label9[k], row, 3, Qt::AlignRight);
        grid->addWidget(m_combo9[k], row, 4);

        const TriggerKind& kind = triggerKind(k);
        connect(m_combo8[k], &QComboBox::editTextChanged, this,
            on([this, k, type = kind.firstArgType] { markBox(m_combo8[k], type); }));
        connect(m_combo9[k], &QComboBox::editTextChanged, this,
            on([this, k, type = kind.secondArgType] { markBox(m_combo9[k], type); }));
        connect(m_combo8[k]->lineEdit(), &QLineEdit::returnPressed, this,
            on([this] { enterPressed(); }));
    }
    grid->setColumnStretch(2, 1);
    grid->setColumnStretch(4, 1);
    frameLayout->addWidget(frame6);
    page->addWidget(frame5);
    page->addStretch(1);

    // Only a kind that becomes chosen clears the boxes: clicking the chosen
    // option again keeps what was typed.
    connect(m_options, &QButtonGroup::idToggled, this, on([this](int kind, bool checked) {
        if (checked && kind != m_selectedKind)
            SelectTriggerKind(kind);
    }));
    // The first kind is the one shown as chosen when the page opens.
    m_option1[0]->setChecked(true);

    auto* frame8 = new QFrame(this);
    frame8->setObjectName(QStringLiteral("Frame8"));
    auto* buttons = new QHBoxLayout(frame8);
    m_cancel = new QPushButton(QStringLiteral("Ca&ncel"), frame8);
    m_cancel->setObjectName(QStringLiteral("Command25"));
    m_finish = new QPushButton(QStringLiteral("&Finish"), frame8);
    m_finish->setObjectName(QStringLiteral("Command34"));
    m_next = new QPushButton(QStringLiteral("Nex&t >>"), frame8);
    m_next->setObjectName(QStringLiteral("Command15"));
    buttons->addStretch(1);
    buttons->addWidget(m_cancel);
    buttons->addWidget(m_finish);
    buttons->addWidget(m_next);
    page->addWidget(frame8);
    connect(m_next, &QPushButton::clicked, this, &TriggerPage::nextRequested);
    connect(m_finish, &QPushButton::clicked, this, &TriggerPage::finishRequested);
    connect(m_cancel, &QPushButton::clicked, this, &TriggerPage::cancelRequested);
    setTimerEditing(false);
}

void TriggerPage::SelectTriggerKind(int kind)
{
    m_selectedKind = kind;
    const bool hasOption = kind >= 0 && kind < kTriggerOptionCount;
    for (int i = 0; i < kTriggerOptionCount; ++i) {
        m_label5[i]->setEnabled(false);
        m_combo9[i]->setEnabled(false);
        m_label9[i]->setEnabled(false);
        m_combo8[i]->setEnabled(false);
        setBoxText(m_combo9[i], QString());
        setBoxText(m_combo8[i], QString());
        m_option1[i]->setEnabled(kind != -1);
    }
    if (hasOption) {
        m_label5[kind]->setEnabled(true);
        m_combo9[kind]->setEnabled(true);
        m_label9[kind]->setEnabled(true);
        m_combo8[kind]->setEnabled(true);
        m_option1[kind]->setChecked(true);
    } else if (kind != -1) {
        // Kinds 13 to 15 have no option button (a project file may still
        // hold one): no option shows as chosen, and the kind has no boxes.
        if (QAbstractButton* checked = m_options->checkedButton()) {
            m_options->setExclusive(false);
            checked->setChecked(false);
            m_options->setExclusive(true);
        }
    }
    // Refilling replaces every box's items and leaves every text empty.
    FillTriggerChoices();
    Q_EMIT edited();
}

void TriggerPage::FillTriggerChoices()
{
    const ReferenceListTable& table = m_workspace.project.tables;
    // A box of a plain typed value (type -1) is left as it is.
    const auto fill = [&](QComboBox* box, int type) {
        if (type != -1)
            fillArgumentBox(box, comboItemsFromList(table, type), type);
        markArgumentBox(box, false);
    };
    for (int k = 0; k < kTriggerOptionCount; ++k) {
        const TriggerKind& kind = triggerKind(k);
        fill(m_combo8[k], kind.firstArgType);
        fill(m_combo9[k], kind.secondArgType);
    }
}

StoredTrigger TriggerPage::currentTrigger() const
{
    const int kind = m_selectedKind;
    const bool hasBoxes = kind >= 0 && kind < kTriggerOptionCount;
    return storedTrigger(m_workspace.project.tables, kind,
        hasBoxes ? m_combo8[kind]->currentText() : QString(),
        hasBoxes ? m_combo9[kind]->currentText() : QString(), m_workspace.prompter);
}

void TriggerPage::loadTrigger(const StoredTrigger& trigger)
{
    SelectTriggerKind(trigger.kind);
    if (trigger.kind < 0 || trigger.kind >= kTriggerOptionCount)
        return;
    const ReferenceListTable& table = m_workspace.project.tables;
    // Typed-in boxes colour themselves as the text arrives.
    m_combo8[trigger.kind]->setEditText(
        DecodeReferences(table, trigger.texts[0], m_workspace.prompter));
    m_combo9[trigger.kind]->setEditText(
        DecodeReferences(table, trigger.texts[1], m_workspace.prompter));
}

void TriggerPage::setHeading(const QString& heading, const QString& name)
{
    m_heading->setText(heading);
    m_name->setText(name);
}

void TriggerPage::setTimerEditing(bool timerEditing)
{
    m_timerEditing = timerEditing;
    m_next->setVisible(!timerEditing);
    m_finish->setVisible(timerEditing);
    m_next->setDefault(!timerEditing);
    m_finish->setDefault(timerEditing);
}

void TriggerPage::markBox(QComboBox* box, int type)
{
    Q_EMIT edited();
    markArgumentBox(box,
        referenceBoxNamesItem(
            m_workspace.project.tables, type, box->currentText(), m_workspace.prompter));
}

void TriggerPage::enterPressed()
{
    if (m_timerEditing)
        Q_EMIT finishRequested();
    else
        Q_EMIT nextRequested();
}

} // namespace tarvo::gui
