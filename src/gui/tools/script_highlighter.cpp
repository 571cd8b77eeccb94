#include "tools/script_highlighter.h"

namespace tarvo::gui {

namespace {

QTextCharFormat textFormat(const QColor& colour, bool bold = false)
{
    QTextCharFormat result;
    result.setForeground(colour);
    if (bold)
        result.setFontWeight(QFont::Bold);
    return result;
}

} // namespace

ScriptHighlighter::ScriptHighlighter(QTextDocument* document)
    : QSyntaxHighlighter(document)
{
    // Later rules win where they overlap: strings and comments over words in
    // them, the warning over everything.
    m_rules = {
        {QRegularExpression(QStringLiteral(
             "\\b(event|trigger|public|private|if|else|while|not|and|or|ref|wait|every|"
             "inactive|script|run)\\b")),
            textFormat(QColor(0x00, 0x00, 0xa0), true)},
        {QRegularExpression(QStringLiteral("\\b(INT|BOOL|DROID|STRUCTURE|GROUP|SOUND|TEXTSTRING|"
                                           "INTMESSAGE|CALL_[A-Z_]+)\\b")),
            textFormat(QColor(0x80, 0x00, 0x80))},
        {QRegularExpression(QStringLiteral("\\b-?\\d+\\b")), textFormat(QColor(0x00, 0x70, 0x70))},
        {QRegularExpression(QStringLiteral("\"[^\"]*\"")), textFormat(QColor(0xa0, 0x50, 0x00))},
        {QRegularExpression(QStringLiteral("//.*$")), textFormat(QColor(0x00, 0x80, 0x00))},
    };
    QTextCharFormat warning = textFormat(Qt::white, true);
    warning.setBackground(QColor(0xd0, 0x30, 0x20));
    m_rules.append({QRegularExpression(QStringLiteral("\\?")), warning});
}

void ScriptHighlighter::highlightBlock(const QString& text)
{
    for (const Rule& rule : m_rules) {
        for (auto it = rule.pattern.globalMatch(text); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            setFormat(int(match.capturedStart()), int(match.capturedLength()), rule.format);
        }
    }
}

} // namespace tarvo::gui
