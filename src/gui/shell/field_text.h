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
