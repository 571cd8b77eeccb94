#pragma once

#include "ui/prompter.h"

#include <QPointer>
#include <functional>

class QWidget;

namespace tarvo::gui {

// The editor's Prompter: Qt message boxes, input boxes and file dialogs over
// the main window, the system beep, and status lines handed to the status
// window.
class QtPrompter : public Prompter
{
public:
    using StatusSink = std::function<void(const QString& kind, const QString& text)>;

    // Dialogs are centred over `parent` (none before the main window exists).
    void setParentWidget(QWidget* parent) { m_parent = parent; }
    // Where status lines go; without a sink they are written to the log.
    void setStatusSink(StatusSink sink) { m_statusSink = std::move(sink); }
    // Where notes go (the Issues dock); without a sink they are status lines.
    void setNoteSink(std::function<void(const QString&)> sink) { m_noteSink = std::move(sink); }
    // The file name a save dialog offers (the project's name).
    void setSuggestedFileName(std::function<QString()> name) { m_suggestedName = std::move(name); }

    Answer message(const QString& text, Icon icon, Buttons buttons, const QString& title) override;
    QString input(const QString& prompt, const QString& title, const QString& defaultText) override;
    QString openFileName(const QString& title, const QString& filter) override;
    QString saveFileName(const QString& title, const QString& filter) override;
    void beep() override;
    int choose(const QString& text, const QStringList& answers, int defaultAnswer,
        const QString& title) override;
    int chooseItem(const QString& prompt, const QString& title, const QStringList& items) override;
    void addStatusLine(const QString& kind, const QString& text) override;
    void note(const QString& text) override;

    // "Script files|*.vnsc" becomes "Script files (*.vnsc)".
    static QString qtFilter(const QString& filter);

private:
    QString fileName(const QString& title, const QString& filter, bool save);

    QPointer<QWidget> m_parent;
    StatusSink m_statusSink;
    std::function<void(const QString&)> m_noteSink;
    std::function<QString()> m_suggestedName;
};

} // namespace tarvo::gui
