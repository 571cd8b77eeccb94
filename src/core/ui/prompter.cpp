#include "ui/prompter.h"

#include "text/shown_text.h"

namespace tarvo {

QString statusLineText(const QString& kind, const QString& text)
{
    if (kind.toLower() == QLatin1String("error"))
        return QStringLiteral("Error: ") + tarvo::text::shownText(text);
    return tarvo::text::shownText(text);
}

} // namespace tarvo
