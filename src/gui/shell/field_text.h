#pragma once

#include <QPlainTextEdit>

class QComboBox;
class QLineEdit;

namespace tarvo {
class Prompter;
}

namespace tarvo::gui {

// Texts the user types become fields of the project file, which keeps its
// fields apart with "|". The boxes below refuse that character as it is typed
// or pasted: it is not inserted, a beep sounds and a hint says why.
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
