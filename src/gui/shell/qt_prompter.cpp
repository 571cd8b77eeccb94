#include "shell/qt_prompter.h"

#include "shell/field_text.h"
#include "text/shown_text.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QtDebug>

namespace tarvo::gui {

namespace {

// Boxes without a title of their own carry the program's short name. It is
// not the application's display name, which Qt would append to every caption.
QString programTitle()
{
    return QStringLiteral("T.A.R.V.O.");
}

QMessageBox::Icon qtIcon(Prompter::Icon icon)
{
    switch (icon) {
    case Prompter::Icon::Information:
        return QMessageBox::Information;
    case Prompter::Icon::Exclamation:
        return QMessageBox::Warning;
    case Prompter::Icon::Critical:
        return QMessageBox::Critical;
    case Prompter::Icon::Question:
        return QMessageBox::Question;
    case Prompter::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

Prompter::Answer QtPrompter::message(
    const QString& text, Icon icon, Buttons buttons, const QString& title)
{
    QMessageBox box(qtIcon(icon), title.isEmpty() ? programTitle() : title,
        tarvo::text::shownText(text),
        buttons == Buttons::YesNo ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, m_parent);
    if (buttons == Buttons::YesNo)
        box.setDefaultButton(QMessageBox::Yes);
    const int result = box.exec();
    if (buttons == Buttons::Ok)
        return Answer::Ok;
    // Closing the box with Escape or its close button counts as No.
    return result == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

void QtPrompter::note(const QString& text)
{
    if (m_noteSink)
        m_noteSink(text);
    else
        Prompter::note(text);
}

int QtPrompter::choose(
    const QString& text, const QStringList& answers, int defaultAnswer, const QString& title)
{
    QMessageBox box(QMessageBox::Question, title.isEmpty() ? programTitle() : title, text,
        QMessageBox::NoButton, m_parent);
    QList<QAbstractButton*> buttons;
    for (const QString& answer : answers)
        buttons.append(box.addButton(answer, QMessageBox::ActionRole));
    if (defaultAnswer >= 0 && defaultAnswer < buttons.size())
        box.setDefaultButton(static_cast<QPushButton*>(buttons.at(defaultAnswer)));
    // Escape and the close button answer with the last answer, the one that
    // changes nothing.
    if (!buttons.isEmpty())
        box.setEscapeButton(buttons.last());
    box.exec();
    return int(buttons.indexOf(box.clickedButton()));
}

int QtPrompter::chooseItem(const QString& prompt, const QString& title, const QStringList& items)
{
    if (items.isEmpty())
        return -1;
    QInputDialog dialog(m_parent);
    dialog.setWindowTitle(title.isEmpty() ? programTitle() : title);
    dialog.setLabelText(prompt);
    dialog.setComboBoxItems(items);
    dialog.setComboBoxEditable(false);
    dialog.setOption(QInputDialog::UseListViewForComboBoxItems);
    if (dialog.exec() != QDialog::Accepted)
        return -1;
    return int(items.indexOf(dialog.textValue()));
}

QString QtPrompter::input(const QString& prompt, const QString& title, const QString& defaultText)
{
    QInputDialog dialog(m_parent);
    dialog.setWindowTitle(title.isEmpty() ? programTitle() : title);
    dialog.setLabelText(tarvo::text::shownText(prompt));
    dialog.setTextValue(defaultText);
    // Wide enough for its title and prompt, and for a name of some length.
    const QFontMetrics metrics(dialog.font());
    dialog.resize(std::max({360, metrics.horizontalAdvance(dialog.labelText()) + 80,
                      metrics.horizontalAdvance(dialog.windowTitle()) + 160}),
        dialog.sizeHint().height());
    // Every answer becomes a field of the project file.
    if (auto* box = dialog.findChild<QLineEdit*>()) {
        refuseFieldBreaks(box, *this);
        box->selectAll();
    }
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    return dialog.textValue();
}

QString QtPrompter::openFileName(const QString& title, const QString& filter)
{
    return fileName(title, filter, false);
}

QString QtPrompter::saveFileName(const QString& title, const QString& filter)
{
    return fileName(title, filter, true);
}

QString QtPrompter::fileName(const QString& title, const QString& filter, bool save)
{
    QFileDialog dialog(m_parent, title);
    dialog.setNameFilter(qtFilter(filter));
    // The file dialogs start in the folder the last one ended in.
    QSettings settings(QStringLiteral("tarvo"), QStringLiteral("tarvo"));
    const QString lastFolder = settings.value(QStringLiteral("fileDialog/lastFolder")).toString();
    if (!lastFolder.isEmpty() && QFileInfo(lastFolder).isDir())
        dialog.setDirectory(lastFolder);
    if (save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        // A name typed without the extension still becomes a project file.
        const qsizetype dot = filter.lastIndexOf(QLatin1String("*."));
        if (dot >= 0)
            dialog.setDefaultSuffix(filter.mid(dot + 2));
        if (m_suggestedName && !m_suggestedName().isEmpty())
            dialog.selectFile(m_suggestedName());
    } else {
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        dialog.setFileMode(QFileDialog::ExistingFile);
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    const QString chosen = dialog.selectedFiles().first();
    settings.setValue(QStringLiteral("fileDialog/lastFolder"), QFileInfo(chosen).absolutePath());
    return chosen;
}

void QtPrompter::beep()
{
    QApplication::beep();
}

void QtPrompter::addStatusLine(const QString& kind, const QString& text)
{
    if (m_statusSink)
        m_statusSink(kind, text);
    else
        qWarning().noquote() << statusLineText(kind, text);
}

QString QtPrompter::qtFilter(const QString& filter)
{
    const QStringList pieces = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2)
        filters.append(pieces.at(i) + QStringLiteral(" (") + pieces.at(i + 1) + u')');
    return filters.isEmpty() ? filter : filters.join(QStringLiteral(";;"));
}

} // namespace tarvo::gui
