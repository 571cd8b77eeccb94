#pragma once

#include <QPlainTextEdit>

class QComboBox;
class QLineEdit;

namespace tarvo {
class Prompter;
}

namespace tarvo::gui {

// Texts the user types become fields of the project file, which keeps its
// fields apart with "|" and is written in the Windows-1252 code page. The
// boxes below refuse "|" and the characters the code page cannot hold as they
// are typed or pasted: they are not inserted, a beep sounds and a hint says
// why, naming the character. Lines pasted into a one-line box are joined with
// a blank, and the hint says so.
void refuseFieldBreaks(QLineEdit* box, Prompter& prompter);
void refuseFieldBreaks(QComboBox* box, Prompter& prompter);

// Shows `text` in a multi-line box. Wrapping a line of a megabyte makes the
// layout take minutes, so a box whose text has a line past
// `WrapLineLimit` characters does not wrap (it scrolls sideways); other texts
// wrap at the box's width.
constexpr qsizetype WrapLineLimit = 10000;
void setBoxText(QPlainTextEdit* box, const QString& text);
// Whether a line of `text` passes the limit, in one pass over it.
bool holdsHugeLine(const QString& text);

// A multi-line comment box with the same refusal (line breaks are fine here).
class CommentBox : public QPlainTextEdit
{
    Q_OBJECT
public:
    CommentBox(Prompter& prompter, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    Prompter& m_prompter;
};

} // namespace tarvo::gui
