#include "compile/droid_built.h"

#include "text/basic_text.h"

namespace tarvo::WriteScript {

QString droidBuiltBlock()
{
    const QString& crlf = text::crlf;
    QString block;
    for (int p = 0; p < 8; ++p) {
        const QString player = QString::number(p);
        block += QStringLiteral("event droidBuilt(CALL_NEWDROID,") + player
            + QStringLiteral(", ref droid,ref structure)") + crlf;
        block += QStringLiteral("{") + crlf;
        block += QStringLiteral("       if(droid.droidType == DROID_CONSTRUCT)") + crlf;
        block += QStringLiteral("       {") + crlf;
        block += QStringLiteral("           groupAddDroid(Group[") + QString::number(3 * p + 2)
            + QStringLiteral("], droid);") + crlf;
        block += QStringLiteral("       }") + crlf;
        block += QStringLiteral("       else if(droid.droidType == DROID_CYBORG)") + crlf;
        block += QStringLiteral("       {") + crlf;
        block += QStringLiteral("           groupAddDroid(Group[") + QString::number(3 * p + 1)
            + QStringLiteral("], droid);") + crlf;
        block += QStringLiteral("       }") + crlf;
        block += QStringLiteral("       else") + crlf;
        block += QStringLiteral("       {") + crlf;
        block += QStringLiteral("           groupAddDroid(Group[") + QString::number(3 * p)
            + QStringLiteral("], droid);") + crlf;
        block += QStringLiteral("       }") + crlf;
        block += QStringLiteral("}") + crlf;
        block += crlf;
    }
    return block;
}

DroidBuiltSlot::DroidBuiltSlot()
    : builtBlock(droidBuiltBlock())
{
}

} // namespace tarvo::WriteScript
