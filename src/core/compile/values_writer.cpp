#include "compile/values_writer.h"

#include "compile/output_tree.h"
#include "compile/resource_lists.h"
#include "compile/step_log.h"
#include "base/checked.h"
#include "records/project.h"
#include "text/basic_text.h"

namespace tarvo::WriteScript {

using text::crlf;

QString valuesText(const Project& project)
{
    return valuesText(project, usesGameOverMessages(project));
}

QString valuesText(const Project& project, bool gameOverMessages)
{
    const QChar quote = u'"';
    QString text = QStringLiteral("script ") + quote + project.name + QStringLiteral(".slo") + quote
        + crlf + QStringLiteral("run") + crlf + QStringLiteral("{") + crlf + crlf
        + QStringLiteral("\t//-----------------") + crlf + QStringLiteral("\t//Variables") + crlf
        + QStringLiteral("\t//-----------------") + crlf + crlf;

    // Worked out for every row, so after the loop it is the last row's: the
    // game-over lines below use that one.
    QString q;
    const QString marker = QStringLiteral("&&0");
    for (int r = 0; r < kReferenceRowCount; ++r) {
        const ReferenceList& list = project.tables[r];
        q = list.ValueType == QLatin1String("INT") || list.ValueType == QLatin1String("BOOL")
            ? QString()
            : QString(quote);
        if (list.Scope != 2)
            continue;
        // Row 0's first five values belong to the game; the names count from
        // 0 all the same, so name n carries value n + 5.
        const int start = r == row::Integers ? 5 : 0;
        if (list.ItemCount - start <= 0)
            continue;
        text += QStringLiteral("\t//") + list.ListName + crlf;
        for (int k = start; k < list.ItemCount; ++k) {
            const QString& raw = at(list.RawCodes, k, "raw codes");
            text += u'\t';
            text += text::basicReplace(list.CodeTemplate, marker, QString::number(k - start));
            text += u"\t\t";
            text += list.ValueType;
            text += u"\t\t";
            text += q;
            text += raw;
            text += q;
            text += crlf;
        }
        text += crlf;
    }
    if (gameOverMessages) {
        text += QStringLiteral("\tendMsg              INTMESSAGE  ") + q + QStringLiteral("END") + q
            + crlf;
        text += QStringLiteral("\twinMsg              INTMESSAGE  ") + q + QStringLiteral("WIN") + q
            + crlf;
    }
    return text + u'}';
}

void WriteValuesFile(const OutputContext& context, const QString& relative)
{
    makeDirectory(context, outdir::Script);
    makeDirectory(context, outdir::ScriptData);
    QString text;
    if (context.log.attempt(QStringLiteral("values file"),
            [&] { text = valuesText(context.project, context.gameOverMessages()); }))
        writeTextFile(context, relative, text + crlf);
    else
        writeTextFile(context, relative, QString());
}

} // namespace tarvo::WriteScript
