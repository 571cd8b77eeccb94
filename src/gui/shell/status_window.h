#pragma once

#include <QWidget>

class QListWidget;

namespace tarvo {
class Prompter;
}

namespace tarvo::gui {

// The status window "Messages": a list of error and progress lines and a
// "Clear" button. It is a top-level window of its own, so it can stay open
// beside the main window.
class StatusWindow : public QWidget
{
    Q_OBJECT
public:
    explicit StatusWindow(Prompter& prompter, QWidget* parent = nullptr);

    void addLine(const QString& line);
    QStringList lines() const;

Q_SIGNALS:
    // The user closed the window with its close button.
    void closedByUser();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void showWholeLine(int row);

    Prompter& m_prompter;
    QListWidget* m_list;
};

} // namespace tarvo::gui
