// What the wizard's argument boxes ask of the window: "New..." makes the item
// a list lacks by the rules of its dialog, "Go to" shows the item a box names.
#include "catalogue/project_places.h"
#include "document/project_document.h"
#include "main/main_page.h"
#include "main/main_window.h"
#include "transfer/argument_items.h"
#include "ui/prompter.h"
#include "wizard/argument_box.h"
#include "wizard/event_wizard.h"

#include <QStatusBar>
#include <QTabWidget>

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
}

QString MainWindow::makeArgumentItem(int row)
{
    // A new event being made lives behind the counted events, where another
    // one would go.
    const bool slotBusy = m_wizard->isRunning() && m_wizard->mode() == WizardMode::NewEvent;
    const MadeItem made = m_document->edit(
        stepLabel(row), [&] { return tarvo::makeArgumentItem(m_workspace, row, slotBusy); });
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
    const bool onMainPage
        = place->owner == ProjectPlace::Owner::Event || place->owner == ProjectPlace::Owner::Timer;
    // The main page's lines are out of reach until the wizard's pages end.
    if (onMainPage && m_wizard->isRunning()) {
        m_workspace.prompter.message(
            QStringLiteral("Finish or cancel the event being edited before going to the %1 '%2'.")
                .arg(place->owner == ProjectPlace::Owner::Event ? QStringLiteral("event")
                                                                : QStringLiteral("timer"),
                    text),
            Prompter::Icon::Information);
        return;
    }
    goToPlace(*place);
}

} // namespace tarvo::gui
