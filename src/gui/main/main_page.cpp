#include "main/main_page.h"

#include "document/project_document.h"
#include "shell/field_text.h"
#include "shell/guard.h"
#include "wizard/event_wizard.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>

namespace tarvo::gui {

namespace {

QPushButton* makeButton(QWidget* parent, const char* name, const QString& caption)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QLatin1String(name));
    return button;
}

QLabel* makeLabel(QWidget* parent, const char* name, const QString& caption)
{
    auto* label = new QLabel(caption, parent);
    label->setObjectName(QLatin1String(name));
    return label;
}

} // namespace

MainPage::MainPage(ProjectDocument& document, const StatusPanels& panels, QWidget* parent)
    : QWidget(parent)
    , m_document(document)
    , m_workspace(document.workspace())
    , m_panels(panels)
{
    setObjectName(QStringLiteral("Frame4"));
    buildControls();
    buildLayout();
    connectControls();
    setEditingEnabled(false);
    connect(&m_document, &ProjectDocument::changed, this, &MainPage::projectChanged);
    connect(&m_document, &ProjectDocument::selectionRestored, this, &MainPage::selectionRestored);
    // The document may outlive the page while a window closes.
    m_document.setSelectionSource([page = QPointer<MainPage>(this)] {
        return page ? ViewSelection {page->selectedEvent(), page->selectedTimer(),
                   page->m_commentMode == CommentTimer}
                    : ViewSelection {};
    });
}

template <typename Handler> auto MainPage::guarded(Handler handler)
{
    return guard(m_workspace.prompter, std::move(handler));
}

void MainPage::buildControls()
{
    m_events = new QListWidget(this);
    m_events->setObjectName(QStringLiteral("List1"));
    m_events->setContextMenuPolicy(Qt::CustomContextMenu);
    // Shift and Ctrl mark several lines; a plain click still selects one.
    m_events->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_events->installEventFilter(this);
    m_timers = new QListWidget(this);
    m_timers->setObjectName(QStringLiteral("List5"));
    // Every line is one line of text: the lists need not measure each of
    // thousands of lines again after a change.
    m_events->setUniformItemSizes(true);
    m_timers->setUniformItemSizes(true);

    m_eventsHeading = makeLabel(this, "Label14", QStringLiteral("Events:"));
    m_eventsHeading->setBuddy(m_events);
    m_timersHeading = makeLabel(this, "Label15", QStringLiteral("Timers:"));
    m_timersHeading->setBuddy(m_timers);
    m_eventId = makeLabel(this, "Label16", QString());
    m_timerId = makeLabel(this, "Label17", QString());
    m_commentLabel = makeLabel(this, "Label10", QStringLiteral("Comment:"));

    m_comment = new CommentBox(m_workspace.prompter, this);
    m_comment->setObjectName(QStringLiteral("TxtMaintDescription"));
    m_comment->setTabChangesFocus(true);
    m_commentLabel->setBuddy(m_comment);
    connect(m_comment, &QPlainTextEdit::textChanged, this, &MainPage::notePendingText);
    m_update = makeButton(this, "Command11", QStringLiteral("Update"));

    m_new = makeButton(this, "Command3", QStringLiteral("&New"));
    m_new->setToolTip(QStringLiteral("Create new event or new timer"));
    m_editEvent = makeButton(this, "Command1", QStringLiteral("Edit"));
    m_renameEvent = makeButton(this, "Command36", QStringLiteral("Rename"));
    m_deleteEvent = makeButton(this, "Command2", QStringLiteral("Delete"));
    m_copy = makeButton(this, "Command27", QStringLiteral("Copy"));
    m_editTimer = makeButton(this, "Command32", QStringLiteral("Edit"));
    m_renameTimer = makeButton(this, "Command35", QStringLiteral("Rename"));
    m_deleteTimer = makeButton(this, "Command33", QStringLiteral("Delete"));
    m_newTimer = makeButton(this, "NewTimer", QStringLiteral("New Timer"));
    m_newTimer->setToolTip(QStringLiteral("Make a timer and choose its trigger"));

    m_up = makeButton(this, "Command38", QString());
    m_up->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    m_up->setToolTip(QStringLiteral("Move the selected event up (Ctrl+Up)"));
    m_down = makeButton(this, "Command39", QString());
    m_down->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    m_down->setToolTip(QStringLiteral("Move the selected event down (Ctrl+Down)"));

    m_eventMenu = new QMenu(QStringLiteral("mInvisibleEventEdit"), this);
    m_eventMenu->setObjectName(QStringLiteral("mInvisibleEventEdit"));
    QAction* edit = m_eventMenu->addAction(QStringLiteral("Edit"));
    edit->setObjectName(QStringLiteral("mEventEdit"));
    connect(edit, &QAction::triggered, this, guarded([this] { editEvent(); }));
    QAction* rename = m_eventMenu->addAction(QStringLiteral("Rename"));
    rename->setObjectName(QStringLiteral("mEventRename"));
    connect(rename, &QAction::triggered, this, guarded([this] { renameEvent(); }));
    QAction* remove = m_eventMenu->addAction(QStringLiteral("Delete"));
    remove->setObjectName(QStringLiteral("mEventDelete"));
    connect(remove, &QAction::triggered, this, guarded([this] { deleteEvent(); }));
    m_eventMenu->addSeparator();
    QAction* switchOn = m_eventMenu->addAction(QStringLiteral("Switch On"));
    switchOn->setObjectName(QStringLiteral("mEventSwitchOn"));
    connect(switchOn, &QAction::triggered, this, guarded([this] { switchEvents(true); }));
    QAction* switchOff = m_eventMenu->addAction(QStringLiteral("Switch Off"));
    switchOff->setObjectName(QStringLiteral("mEventSwitchOff"));
    connect(switchOff, &QAction::triggered, this, guarded([this] { switchEvents(false); }));
}

void MainPage::buildLayout()
{
    auto* eventButtons = new QHBoxLayout;
    for (QPushButton* button : {m_new, m_editEvent, m_renameEvent, m_deleteEvent, m_copy})
        eventButtons->addWidget(button);
    eventButtons->addStretch();

    auto* moveButtons = new QVBoxLayout;
    moveButtons->addStretch();
    moveButtons->addWidget(m_up);
    moveButtons->addWidget(m_down);
    moveButtons->addStretch();

    auto* eventHeader = new QHBoxLayout;
    eventHeader->addWidget(m_eventsHeading);
    eventHeader->addSpacing(16);
    eventHeader->addWidget(m_eventId);
    eventHeader->addStretch();

    auto* eventList = new QHBoxLayout;
    eventList->addWidget(m_events, 1);
    eventList->addLayout(moveButtons);

    auto* eventColumn = new QVBoxLayout;
    eventColumn->addLayout(eventHeader);
    eventColumn->addLayout(eventList, 1);
    eventColumn->addLayout(eventButtons);

    auto* timerHeader = new QHBoxLayout;
    timerHeader->addWidget(m_timersHeading);
    timerHeader->addSpacing(16);
    timerHeader->addWidget(m_timerId);
    timerHeader->addStretch();

    auto* timerButtons = new QHBoxLayout;
    for (QPushButton* button : {m_editTimer, m_renameTimer, m_deleteTimer, m_newTimer})
        timerButtons->addWidget(button);
    timerButtons->addStretch();

    auto* timerColumn = new QVBoxLayout;
    timerColumn->addLayout(timerHeader);
    timerColumn->addWidget(m_timers, 1);
    timerColumn->addLayout(timerButtons);

    auto* lists = new QHBoxLayout;
    lists->addLayout(eventColumn, 3);
    lists->addSpacing(12);
    lists->addLayout(timerColumn, 2);

    auto* commentHeader = new QHBoxLayout;
    commentHeader->addWidget(m_commentLabel);
    commentHeader->addStretch();
    commentHeader->addWidget(m_update);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists, 3);
    layout->addLayout(commentHeader);
    layout->addWidget(m_comment, 1);

    m_events->setMinimumSize(220, 160);
    m_timers->setMinimumSize(160, 160);
    m_comment->setMinimumHeight(70);
}

void MainPage::connectControls()
{
    connect(m_events, &QListWidget::currentRowChanged, this, guarded([this] { eventSelected(); }));
    connect(m_events, &QListWidget::itemClicked, this, guarded([this] { eventSelected(); }));
    connect(m_events, &QListWidget::itemChanged, this,
        guarded([this](QListWidgetItem* item) { eventItemChanged(item); }));
    connect(m_events, &QWidget::customContextMenuRequested, this,
        guarded([this](const QPoint& position) { showEventMenu(position); }));
    connect(m_timers, &QListWidget::currentRowChanged, this, guarded([this] { timerSelected(); }));
    connect(m_timers, &QListWidget::itemClicked, this, guarded([this] { timerSelected(); }));
    connect(m_timers, &QListWidget::itemDoubleClicked, this, guarded([this] { editTimer(); }));

    const auto button = [this](QPushButton* control, void (MainPage::*handler)()) {
        connect(
            control, &QPushButton::clicked, this, guarded([this, handler] { (this->*handler)(); }));
    };
    button(m_new, &MainPage::newEvent);
    button(m_editEvent, &MainPage::editEvent);
    button(m_editTimer, &MainPage::editTimer);
    button(m_renameEvent, &MainPage::renameEvent);
    button(m_renameTimer, &MainPage::renameTimer);
    button(m_deleteEvent, &MainPage::deleteEvent);
    button(m_deleteTimer, &MainPage::deleteTimer);
    button(m_newTimer, &MainPage::newTimer);
    button(m_copy, &MainPage::copyEvent);
    button(m_update, &MainPage::updateComment);
    connect(m_up, &QPushButton::clicked, this, guarded([this] { moveEvent(-1); }));
    connect(m_down, &QPushButton::clicked, this, guarded([this] { moveEvent(1); }));

    // Keyboard equivalents of the list buttons, active while a list has focus.
    const auto listKey = [this](QListWidget* list, const QKeySequence& key, auto handler) {
        auto* shortcut = new QShortcut(key, list);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, guarded(handler));
    };
    listKey(m_events, QKeySequence(Qt::Key_Delete), [this] { deleteEvent(); });
    listKey(m_events, QKeySequence(Qt::Key_F2), [this] { renameEvent(); });
    listKey(m_events, QKeySequence(Qt::Key_Return), [this] { editEvent(); });
    listKey(m_events, QKeySequence(Qt::CTRL | Qt::Key_Up), [this] { moveEvent(-1); });
    listKey(m_events, QKeySequence(Qt::CTRL | Qt::Key_Down), [this] { moveEvent(1); });
    listKey(m_timers, QKeySequence(Qt::Key_Delete), [this] { deleteTimer(); });
    listKey(m_timers, QKeySequence(Qt::Key_F2), [this] { renameTimer(); });
    listKey(m_timers, QKeySequence(Qt::Key_Return), [this] { editTimer(); });
}

void MainPage::setWizard(EventWizard* wizard)
{
    m_wizard = wizard;
    connect(wizard, &EventWizard::started, this, [this] {
        m_wizardRunning = true;
        setListsEnabled(false);
    });
    connect(wizard, &EventWizard::finished, this, guarded([this] { wizardFinished(); }));
}

void MainPage::setEditingEnabled(bool enabled)
{
    m_editingEnabled = enabled;
    setListsEnabled(enabled && !m_wizardRunning);
}

void MainPage::setListsEnabled(bool enabled)
{
    const bool on = enabled && m_editingEnabled;
    for (QWidget* widget : std::initializer_list<QWidget*> {m_events, m_timers, m_new, m_editEvent,
             m_editTimer, m_renameEvent, m_renameTimer, m_deleteEvent, m_deleteTimer, m_newTimer,
             m_copy, m_up, m_down, m_update, m_comment})
        widget->setEnabled(on);
    m_eventMenu->setEnabled(on);
}

void MainPage::wizardFinished()
{
    m_wizardRunning = false;
    setListsEnabled(true);
    // Redo of the wizard's step comes back to where it left the author.
    m_document.selectionSettled();
}

} // namespace tarvo::gui
