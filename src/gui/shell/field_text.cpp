#include "shell/field_text.h"

#include "ui/prompter.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QToolTip>
#include <QValidator>

namespace tarvo::gui {

namespace {

const QString kHint = QStringLiteral(
    "A project file keeps its fields apart with \"|\", so a text cannot hold that character.");

void refused(QWidget* box, Prompter& prompter)
{
    prompter.beep();
    QToolTip::showText(box->mapToGlobal(QPoint(0, box->height())), kHint, box);
}

// Refuses a text that would hold more "|" or line breaks than the box held
// before the change, so whatever the box was given to show stays editable.
class FieldValidator : public QValidator
{
public:
    FieldValidator(QLineEdit* box, Prompter& prompter)
        : QValidator(box)
        , m_box(box)
        , m_prompter(prompter)
        , m_accepted(box->text())
    {
        // The box already holds the new text while it asks; what it held
        // before is the last text it announced.
        connect(
            box, &QLineEdit::textChanged, this, [this](const QString& text) { m_accepted = text; });
    }

    State validate(QString& input, int&) const override
    {
        if (breaks(input) <= breaks(m_accepted))
            return Acceptable;
        refused(m_box, m_prompter);
        return Invalid;
    }

private:
    static qsizetype breaks(const QString& text)
    {
        return text.count(u'|') + text.count(u'\n') + text.count(u'\r');
    }

    QLineEdit* m_box;
    Prompter& m_prompter;
    QString m_accepted;
};

} // namespace

void refuseFieldBreaks(QLineEdit* box, Prompter& prompter)
{
    box->setValidator(new FieldValidator(box, prompter));
}

void refuseFieldBreaks(QComboBox* box, Prompter& prompter)
{
    if (box->lineEdit())
        refuseFieldBreaks(box->lineEdit(), prompter);
}

bool holdsHugeLine(const QString& text)
{
    if (text.size() <= WrapLineLimit)
        return false;
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = text.indexOf(u'\n', start);
        if (end < 0)
            end = text.size();
        if (end - start > WrapLineLimit)
            return true;
        start = end + 1;
    }
    return false;
}

void setBoxText(QPlainTextEdit* box, const QString& text)
{
    // The layout is made again whenever the text or the mode changes: wrapping
    // is switched off before a huge text comes in, and on only after it left.
    if (holdsHugeLine(text)) {
        box->setLineWrapMode(QPlainTextEdit::NoWrap);
        box->setPlainText(text);
    } else {
        box->setPlainText(text);
        box->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    }
}

CommentBox::CommentBox(Prompter& prompter, QWidget* parent)
    : QPlainTextEdit(parent)
    , m_prompter(prompter)
{
}

void CommentBox::keyPressEvent(QKeyEvent* event)
{
    if (event->text().contains(u'|')) {
        refused(this, m_prompter);
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void CommentBox::insertFromMimeData(const QMimeData* source)
{
    if (source->hasText() && holdsHugeLine(source->text()))
        setLineWrapMode(NoWrap);
    if (!source->hasText() || !source->text().contains(u'|')) {
        QPlainTextEdit::insertFromMimeData(source);
        return;
    }
    refused(this, m_prompter);
    QString text = source->text();
    text.remove(u'|');
    insertPlainText(text);
}

} // namespace tarvo::gui
