#pragma once

#include <QDockWidget>
#include <QTimer>
#include <functional>

class QPlainTextEdit;

namespace tarvo::gui {

// "Script Preview": the script text that Compile would write for what the
// user looks at, read-only, monospace and highlighted. It asks its source for
// the text a short while after the last change (changes often come in runs)
// and only while it is shown.
class PreviewDock : public QDockWidget
{
    Q_OBJECT
public:
    PreviewDock(std::function<QString()> source, QWidget* parent = nullptr);

    void refreshSoon();
    // Refreshes at once (tests, and showing the dock).
    void refreshNow();
    QPlainTextEdit* textBox() const { return m_text; }

private:
    std::function<QString()> m_source;
    QPlainTextEdit* m_text;
    QTimer m_delay;
};

} // namespace tarvo::gui
