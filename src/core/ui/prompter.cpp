#include "ui/prompter.h"

#include "text/shown_text.h"

namespace tarvo {

int Prompter::choose(const QString&, const QStringList&, int defaultAnswer, const QString&)
{
    return defaultAnswer;
}

void Prompter::note(const QString& text)
{
    addStatusLine(QStringLiteral("warning"), text);
}

int Prompter::chooseItem(const QString&, const QString&, const QStringList&)
{
    return -1;
}

QString statusLineText(const QString& kind, const QString& text)
{
    if (kind.toLower() == QLatin1String("error"))
        return QStringLiteral("Error: ") + tarvo::text::shownText(text);
    return tarvo::text::shownText(text);
}

} // namespace tarvo
