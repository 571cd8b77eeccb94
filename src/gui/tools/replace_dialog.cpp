#include "tools/replace_dialog.h"

#include "editing/replace_text.h"
#include "document/project_document.h"
#include "shell/guard.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvo::gui {

namespace {

QString counted(qsizetype n, const char* what)
{
    return QStringLiteral("%1 %2%3").arg(n).arg(QLatin1String(what)).arg(n == 1 ? "" : "s");
}

} // namespace

ReplaceDialog::ReplaceDialog(ProjectDocument& document, QWidget* parent)
    : QDialog(parent)
    , m_document(document)
    , m_find(new QLineEdit(this))
    , m_replace(new QLineEdit(this))
    , m_wholeWord(new QCheckBox(QStringLiteral("&Whole word"), this))
    , m_matchCase(new QCheckBox(QStringLiteral("Match &case"), this))
    , m_heading(new QLabel(this))
    , m_places(new QListWidget(this))
    , m_replaceButton(new QPushButton(QStringLiteral("&Replace"), this))
{
    setObjectName(QStringLiteral("ReplaceDialog"));
    setWindowTitle(QStringLiteral("Replace"));
    m_find->setObjectName(QStringLiteral("FindText"));
    m_replace->setObjectName(QStringLiteral("ReplaceText"));
    m_wholeWord->setObjectName(QStringLiteral("WholeWord"));
    m_matchCase->setObjectName(QStringLiteral("MatchCase"));
    m_heading->setObjectName(QStringLiteral("PlacesHeading"));
    m_places->setObjectName(QStringLiteral("Places"));
    m_replaceButton->setObjectName(QStringLiteral("ReplaceButton"));
    m_replaceButton->setAutoDefault(false);
    auto* close = new QPushButton(QStringLiteral("Close"), this);
    close->setObjectName(QStringLiteral("CloseButton"));
    close->setAutoDefault(false);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Fi&nd what:"), m_find);
    form->addRow(QStringLiteral("Replace wi&th:"), m_replace);
    auto* options = new QHBoxLayout;
    options->addWidget(m_wholeWord);
    options->addWidget(m_matchCase);
    options->addStretch(1);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(m_replaceButton, QDialogButtonBox::ApplyRole);
    buttons->addButton(close, QDialogButtonBox::RejectRole);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(options);
    layout->addWidget(m_heading);
    layout->addWidget(m_places, 1);
    layout->addWidget(buttons);
    resize(640, 420);

    Prompter& prompter = document.workspace().prompter;
    const auto again = [this] { refresh(); };
    connect(m_find, &QLineEdit::textChanged, this, guard(prompter, again));
    connect(m_replace, &QLineEdit::textChanged, this, guard(prompter, again));
    connect(m_wholeWord, &QCheckBox::toggled, this, guard(prompter, again));
    connect(m_matchCase, &QCheckBox::toggled, this, guard(prompter, again));
    connect(m_places, &QListWidget::itemChanged, this, [this] { updateButton(); });
    connect(
        m_replaceButton, &QPushButton::clicked, this, guard(prompter, [this] { replaceChosen(); }));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    // Undo, redo and edits elsewhere change what would be replaced.
    connect(&document, &ProjectDocument::changed, this, guard(prompter, again));
    refresh();
}

void ReplaceDialog::setFindText(const QString& text)
{
    m_find->setText(text);
    m_find->selectAll();
}

void ReplaceDialog::refresh()
{
    const Project& project = m_document.project();
    const QList<ReplacePlace> places = findReplacePlaces(project,
        {m_find->text(), m_replace->text(), m_wholeWord->isChecked(), m_matchCase->isChecked()});
    const QSignalBlocker quiet(m_places);
    m_places->clear();
    m_shown.clear();
    int refused = 0;
    for (const ReplacePlace& place : places) {
        // The comment of a condition or action is not told apart from the
        // condition or action by its place alone.
        const bool itemComment = place.field == QLatin1String("comment")
            && (place.place.part == ProjectPlace::Part::Condition
                || place.place.part == ProjectPlace::Part::Action);
        QString line = describePlace(project, place.place)
            + (itemComment ? QStringLiteral(", comment: ") : QStringLiteral(": "))
            + place.before.simplified() + QStringLiteral(" \u2192 ") + place.after.simplified();
        auto* item = new QListWidgetItem(m_places);
        if (place.refusal.isEmpty()) {
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(Qt::Checked);
        } else {
            ++refused;
            line += QStringLiteral("  (not replaced: ") + place.refusal + u')';
            item->setFlags(Qt::NoItemFlags);
            item->setToolTip(place.refusal);
        }
        item->setText(line);
        m_shown.append(place.place);
    }
    QString heading = m_find->text().isEmpty() ? QString() : counted(places.size(), "place");
    if (refused > 0)
        heading += QStringLiteral(", %1 the project file cannot hold").arg(refused);
    m_heading->setText(heading);
    updateButton();
}

void ReplaceDialog::updateButton()
{
    bool any = false;
    for (int i = 0; i < m_places->count() && !any; ++i)
        any = m_places->item(i)->checkState() == Qt::Checked
            && (m_places->item(i)->flags() & Qt::ItemIsUserCheckable);
    m_replaceButton->setEnabled(any);
}

void ReplaceDialog::replaceChosen()
{
    QList<ProjectPlace> chosen;
    for (int i = 0; i < m_places->count(); ++i) {
        const QListWidgetItem* item = m_places->item(i);
        if ((item->flags() & Qt::ItemIsUserCheckable) && item->checkState() == Qt::Checked)
            chosen.append(m_shown.at(i));
    }
    const ReplaceQuery query {
        m_find->text(), m_replace->text(), m_wholeWord->isChecked(), m_matchCase->isChecked()};
    m_document.edit(QStringLiteral("Replace"),
        [&] { return replaceInPlaces(m_document.project(), query, chosen); });
    refresh();
}

} // namespace tarvo::gui
