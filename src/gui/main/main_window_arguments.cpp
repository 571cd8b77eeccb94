// What the wizard's argument boxes ask of the window: "New..." makes the item
// a list lacks by the rules of its dialog, "Go to" shows the item a box names.
#include "catalogue/project_places.h"
#include "document/project_document.h"
#include "main/main_page.h"
#include "main/main_window.h"
#include "tools/preview_dock.h"
#include "transfer/argument_items.h"
#include "ui/prompter.h"
#include "wizard/argument_box.h"
#include "wizard/event_wizard.h"

#include <QMenu>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextBlock>

namespace tarvo::gui {

namespace {

class WindowArgumentHelper : public ArgumentBoxHelper
{
public:
    WindowArgumentHelper(MainWindow* window, std::function<QString(int)> make,
        std::function<void(int, const QString&)> goTo)
        : ArgumentBoxHelper(window)
        , m_make(std::move(make))
        , m_goTo(std::move(goTo))
    {
        setObjectName(QStringLiteral("ArgumentBoxHelper"));
    }

    QString newItemCaption(int row) const override { return makeItemCaption(row); }
    QString makeItem(int row) override { return m_make(row); }
    void goToItem(int row, const QString& text) override { m_goTo(row, text); }

private:
    std::function<QString(int)> m_make;
    std::function<void(int, const QString&)> m_goTo;
};

// The script name around a place of the preview: an identifier, with an
// index in brackets when one follows ("Group[2]").
QString scriptNameAt(QTextCursor cursor)
{
    const QString line = cursor.block().text();
    const int at = cursor.positionInBlock();
    static const QRegularExpression name(QStringLiteral("[A-Za-z_][A-Za-z0-9_]*(\\[\\d+\\])?"));
    auto matches = name.globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.capturedStart() <= at && at <= match.capturedEnd())
            return match.captured();
    }
    return {};
}

QString stepLabel(int row)
{
    // "New message..." -> "New Message"
    QString caption = makeItemCaption(row);
    caption.chop(3);
    caption[4] = caption.at(4).toUpper();
    return caption;
}

} // namespace

void MainWindow::buildArgumentHelper()
{
    new WindowArgumentHelper(
        this,
        [this](int row) {
            QString made;
            guard(m_workspace.prompter, [&] { made = makeArgumentItem(row); })();
            return made;
        },
        [this](int row, const QString& text) {
            guard(m_workspace.prompter, [&] { goToArgument(row, text); })();
        });

    // The preview's pop-up menu goes to the item whose script name is under
    // the mouse.
    QPlainTextEdit* preview = m_preview->textBox();
    preview->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(preview, &QWidget::customContextMenuRequested, this,
        guard(m_workspace.prompter, [this, preview](const QPoint& position) {
            QMenu* menu = preview->createStandardContextMenu(position);
            menu->setAttribute(Qt::WA_DeleteOnClose);
            const QString word = scriptNameAt(preview->cursorForPosition(position));
            const std::optional<ProjectPlace> place = scriptNameTarget(m_workspace.project, word);
            menu->addSeparator();
            QAction* go = menu->addAction(place
                    ? QStringLiteral("Go to %1").arg(describePlace(m_workspace.project, *place))
                    : QStringLiteral("Go to"));
            go->setObjectName(QStringLiteral("mPreviewGoTo"));
            go->setEnabled(place.has_value());
            if (place)
                connect(go, &QAction::triggered, this,
                    guard(m_workspace.prompter, [this, p = *place] { goToItemPlace(p); }));
            menu->popup(preview->viewport()->mapToGlobal(position));
        }));
}

QString MainWindow::makeArgumentItem(int row)
{
    // A new event being made lives behind the counted events, where another
    // one would go.
    const bool slotBusy = m_wizard->isRunning() && m_wizard->mode() == WizardMode::NewEvent;
    const MadeItem made = m_document->edit(
        stepLabel(row), [&] { return tarvo::makeArgumentItem(*m_document, row, slotBusy); });
    if (made.position >= 0 && row == row::Events && slotBusy)
        m_wizard->newEventMoved();
    if (made.position >= 0 && row == row::Timers)
        statusBar()->showMessage(
            QStringLiteral("Timer '%1' made with the Inactive trigger; Edit on the timers list "
                           "changes its trigger.")
                .arg(made.text),
            8000);
    return made.text;
}

void MainWindow::goToArgument(int row, const QString& text)
{
    const std::optional<ProjectPlace> place = argumentTarget(m_workspace.project, row, text);
    if (!place) {
        m_workspace.prompter.beep();
        statusBar()->showMessage(
            QStringLiteral("\"%1\" names no item of this list.").arg(text), 8000);
        return;
    }
    goToItemPlace(*place);
}

void MainWindow::goToItemPlace(const ProjectPlace& item)
{
    const bool onMainPage
        = item.owner == ProjectPlace::Owner::Event || item.owner == ProjectPlace::Owner::Timer;
    // The main page's lines are out of reach until the wizard's pages end.
    if (onMainPage && m_wizard->isRunning()) {
        m_workspace.prompter.message(
            QStringLiteral("Finish or cancel the event being edited before going to the %1.")
                .arg(describePlace(m_workspace.project, item)),
            Prompter::Icon::Information);
        return;
    }
    goToPlace(item);
}

} // namespace tarvo::gui
