#include "ui/prompter.h"

namespace tarvo {

QString statusLineText(const QString& kind, const QString& text)
{
    if (kind.toLower() == QLatin1String("error"))
        return QStringLiteral("Error: ") + text;
    return text;
}

} // namespace tarvo
