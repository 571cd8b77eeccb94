#include "text/shown_text.h"

namespace tarvo::text {

QString shownText(const QString& text, qsizetype lineLimit, qsizetype textLimit)
{
    const QChar ellipsis(0x2026);
    if (text.size() <= lineLimit)
        return text;
    QString shown;
    qsizetype start = 0;
    while (start <= text.size() && shown.size() < textLimit) {
        qsizetype end = text.indexOf(u'\n', start);
        const bool last = end < 0;
        if (last)
            end = text.size();
        const qsizetype length = end - start;
        shown += QStringView(text).sliced(start, std::min(length, lineLimit));
        if (length > lineLimit)
            shown += ellipsis;
        if (last)
            return shown;
        shown += u'\n';
        start = end + 1;
    }
    if (shown.size() > textLimit)
        shown.truncate(textLimit);
    return shown.endsWith(ellipsis) ? shown : shown + ellipsis;
}

} // namespace tarvo::text
