#include "shell/field_text.h"

#include "text/code_page.h"
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

void refused(QWidget* box, Prompter& prompter, const QString& hint = kHint)
{
    prompter.beep();
    QToolTip::showText(box->mapToGlobal(QPoint(0, box->height())), hint, box);
}

qsizetype unencodableCount(const QString& text)
{
    qsizetype count = 0;
    for (qsizetype at = text::firstUnencodable(text); at >= 0;) {
        ++count;
        const qsizetype next = text::firstUnencodable(text.mid(at + 1));
        at = next < 0 ? -1 : at + 1 + next;
    }
    return count;
}

// The hint for a character the project file's code page cannot hold.
QString codePageHint(const QString& text)
{
    return QStringLiteral(
        "The project file is in the Windows-1252 code page, which cannot hold %1.")
        .arg(text::describeCharacter(text, text::firstUnencodable(text)));
}

// `text` without the characters the code page cannot hold.
QString encodable(const QString& text)
{
    QString kept;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype n = text.at(i).isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        if (text::firstUnencodable(text.mid(i, n)) < 0)
            kept += text.mid(i, n);
        i += n - 1;
    }
    return kept;
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
        // Several lines pasted into a one-line box become one line.
        if (lineBreaks(input) > lineBreaks(m_accepted)) {
            input.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
            input.replace(u'\r', u' ');
            input.replace(u'\n', u' ');
            refused(m_box, m_prompter,
                QStringLiteral("The box holds one line: the lines were joined with a blank."));
        }
        if (input.count(u'|') > m_accepted.count(u'|')) {
            refused(m_box, m_prompter);
            return Invalid;
        }
        if (unencodableCount(input) > unencodableCount(m_accepted)) {
            refused(m_box, m_prompter, codePageHint(input));
            return Invalid;
        }
        return Acceptable;
    }

private:
    static qsizetype lineBreaks(const QString& text)
    {
        return text.count(u'\n') + text.count(u'\r');
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
    if (text::firstUnencodable(event->text()) >= 0) {
        refused(this, m_prompter, codePageHint(event->text()));
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void CommentBox::insertFromMimeData(const QMimeData* source)
{
    if (source->hasText() && holdsHugeLine(source->text()))
        setLineWrapMode(NoWrap);
    if (!source->hasText()) {
        QPlainTextEdit::insertFromMimeData(source);
        return;
    }
    QString text = source->text();
    if (text::firstUnencodable(text) >= 0) {
        refused(this, m_prompter, codePageHint(text));
        text = encodable(text);
    } else if (text.contains(u'|')) {
        refused(this, m_prompter);
    } else {
        QPlainTextEdit::insertFromMimeData(source);
        return;
    }
    text.remove(u'|');
    insertPlainText(text);
}

} // namespace tarvo::gui
