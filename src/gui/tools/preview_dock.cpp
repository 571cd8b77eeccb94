#include "tools/preview_dock.h"

#include "tools/script_highlighter.h"

#include <QFontDatabase>
#include <QPlainTextEdit>

namespace tarvo::gui {

PreviewDock::PreviewDock(std::function<QString()> source, QWidget* parent)
    : QDockWidget(QStringLiteral("Script Preview"), parent)
    , m_source(std::move(source))
    , m_text(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("ScriptPreviewDock"));
    m_text->setObjectName(QStringLiteral("ScriptPreviewText"));
    m_text->setReadOnly(true);
    // Wide enough for a line of script; the user may move the edge.
    m_text->setMinimumWidth(240);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setTabStopDistance(4 * m_text->fontMetrics().horizontalAdvance(u' '));
    new ScriptHighlighter(m_text->document());
    setWidget(m_text);
    m_delay.setSingleShot(true);
    m_delay.setInterval(150);
    connect(&m_delay, &QTimer::timeout, this, &PreviewDock::refreshNow);
    connect(this, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        if (visible)
            refreshSoon();
    });
}

void PreviewDock::refreshSoon()
{
    if (isVisible())
        m_delay.start();
}

void PreviewDock::refreshNow()
{
    m_delay.stop();
    QString text = m_source();
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (text != m_text->toPlainText())
        m_text->setPlainText(text);
}

} // namespace tarvo::gui
