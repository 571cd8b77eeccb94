#include "map/map_legend.h"

#include "analysis/mission_graph.h"

#include <QLabel>

namespace tarvo::gui {

QWidget* makeMapLegend(QWidget* parent)
{
    QString text;
    for (const char* kind : {"arms", "disarms", "writes", "reads", "ends"}) {
        const QString word = QString::fromLatin1(kind);
        text += QStringLiteral("<span style=\"color:%1\"><b>&#8594;</b> %2</span>&nbsp;&nbsp; ")
                    .arg(analysis::edgeColour(word), word);
    }
    text += QStringLiteral("<br>Boxes: events (trigger in small text) &middot; octagons: timers "
                           "&middot; diamonds: flags &middot; ovals: numbers &middot; folders: "
                           "groups &middot; circles: win / lose &middot; "
                           "<span style=\"color:#c62828\">red dashed: can never run</span> "
                           "&middot; <span style=\"color:#888888\">grey: switched off</span>");
    auto* legend = new QLabel(text, parent);
    legend->setObjectName(QStringLiteral("MapLegend"));
    legend->setWordWrap(true);
    QFont font = legend->font();
    font.setPointSizeF(font.pointSizeF() * 0.85);
    legend->setFont(font);
    return legend;
}

} // namespace tarvo::gui
