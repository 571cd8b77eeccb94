#pragma once

#include <QRegularExpression>
#include <QSyntaxHighlighter>

namespace tarvo::gui {

// Colours the generated script: keywords, numbers, strings, comments, and
// the "?" of a reference that no longer names anything, in a warning colour.
class ScriptHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT
public:
    explicit ScriptHighlighter(QTextDocument* document);

protected:
    void highlightBlock(const QString& text) override;

private:
    struct Rule
    {
        QRegularExpression pattern;
        QTextCharFormat format;
    };
    QList<Rule> m_rules;
};

} // namespace tarvo::gui
