#include "shell/qt_prompter.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QtDebug>

namespace tarvo::gui {

namespace {

QString programTitle()
{
    const QString name = QGuiApplication::applicationDisplayName();
    return name.isEmpty() ? QStringLiteral("T.A.R.V.O.") : name;
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
    QMessageBox box(qtIcon(icon), title.isEmpty() ? programTitle() : title, text,
        buttons == Buttons::YesNo ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, m_parent);
    if (buttons == Buttons::YesNo)
        box.setDefaultButton(QMessageBox::Yes);
    const int result = box.exec();
    if (buttons == Buttons::Ok)
        return Answer::Ok;
    // Closing the box with Escape or its close button counts as No.
    return result == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

QString QtPrompter::input(const QString& prompt, const QString& title, const QString& defaultText)
{
    bool ok = false;
    const QString answer = QInputDialog::getText(m_parent, title.isEmpty() ? programTitle() : title,
        prompt, QLineEdit::Normal, defaultText, &ok);
    return ok ? answer : QString();
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
    if (save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        // A name typed without the extension still becomes a project file.
        const qsizetype dot = filter.lastIndexOf(QLatin1String("*."));
        if (dot >= 0)
            dialog.setDefaultSuffix(filter.mid(dot + 2));
    } else {
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        dialog.setFileMode(QFileDialog::ExistingFile);
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().first();
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
