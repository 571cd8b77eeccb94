#include "compile/resource_lists.h"

#include "compile/output_tree.h"
#include "compile/sound_source.h"
#include "compile/step_log.h"
#include "base/checked.h"
#include "records/project.h"
#include "text/basic_text.h"

#include <QDir>
#include <QFileInfo>

namespace tarvo {

using text::crlf;

namespace {

const QString kGameOverCall = QStringLiteral("gameOverMessage");

QString quoted(const QString& text)
{
    return u'"' + text + u'"';
}

// A missing sound only leaves its file out, as before; an existing one is
// read only when it passes the sound source rules.
void copySound(const OutputContext& context, int k, const QString& name, const QString& from)
{
    const QString to = outdir::Sounds + u'/' + name;
    const QFileInfo info(from);
    if (!info.exists() && !info.isSymLink()) {
        copyInto(context, from, to);
        return;
    }
    const QString programDir = QFileInfo(context.sourceDir).absolutePath();
    QByteArray bytes;
    const QString problem = sound_source::problem(
        from, sound_source::homeFolders(context.project, programDir), &bytes);
    if (!problem.isEmpty()) {
        refuseCopy(context, to,
            QStringLiteral("Sound %1 \"%2\" was left out: its file \"%3\" was not read: %4")
                .arg(QString::number(k), name, QDir::toNativeSeparators(from), problem));
        return;
    }
    putCopy(context, from, to, bytes);
}

} // namespace

bool usesGameOverMessages(const Project& project)
{
    for (int i = 0; i < heldCount(project.eventCount, project.events); ++i) {
        const EventRecord& event = project.events[i];
        for (int k = 0; k < heldCount(event.actionCount, event.actions); ++k) {
            if (event.actions[k].CallName == kGameOverCall)
                return true;
        }
    }
    return false;
}

bool OutputContext::gameOverMessages() const
{
    if (!m_gameOverMessages)
        m_gameOverMessages = usesGameOverMessages(project);
    return *m_gameOverMessages;
}

void WriteSounds(const OutputContext& context)
{
    makeDirectory(context, outdir::Lists);
    makeDirectory(context, outdir::Audio);
    makeDirectory(context, outdir::Sounds);
    context.processMessages();

    const QString list = outdir::Lists + QStringLiteral("/audio.vnr");
    copyTemplate(context, QStringLiteral("audio.vnr"), list);
    context.processMessages();

    QString lines
        = crlf + QStringLiteral("directory   ") + quoted(QStringLiteral("audio\\Extra")) + crlf;
    const ReferenceList& sounds = context.project.tables[row::Sounds];
    for (int k = 0; k < sounds.ItemCount; ++k) {
        const QString what = QStringLiteral("sound %1").arg(k);
        context.log.attempt(what, [&] {
            const QString& name = at(sounds.Texts, k, "sound names");
            lines += QStringLiteral("\t\tfile        WAV ") + quoted(name) + crlf;
            context.log.attempt(what, [&] {
                copySound(context, k, name,
                    soundFilePath(context.project, at(context.project.sounds, k, "sounds")));
            });
        });
    }
    appendTextFile(context, list, lines);
    context.processMessages();
}

void WriteStatsList(const OutputContext& context)
{
    makeDirectory(context, outdir::Lists);
    const QString list = outdir::Lists + QStringLiteral("/Stats.vnr");
    copyTemplate(context, QStringLiteral("Stats.vnr"), list);
    context.processMessages();

    const QString directory = QStringLiteral("directory       ");
    QString lines = crlf;
    if (context.gameOverMessages())
        lines += directory + quoted(QStringLiteral("messages")) + crlf
            + QStringLiteral("file            SMSG   ") + quoted(QStringLiteral("brief1-1.txt"))
            + crlf;
    lines += crlf + directory + quoted(QStringLiteral("script\\text")) + crlf
        + QStringLiteral("file            SCRIPT      ")
        + quoted(context.project.name + QStringLiteral(".slo")) + crlf;
    lines += crlf + directory + quoted(QStringLiteral("script\\data")) + crlf
        + QStringLiteral("file            SCRIPTVAL   ")
        + quoted(context.project.name + QStringLiteral(".vlo")) + crlf;
    appendTextFile(context, list, lines);
    context.processMessages();
}

void WriteMessages(const OutputContext& context)
{
    makeDirectory(context, outdir::Messages);
    makeDirectory(context, outdir::Strings);
    copyTemplate(context, QStringLiteral("Cam1.vnr"), outdir::Lists + QStringLiteral("/Cam1.vnr"));
    context.processMessages();

    const QString strings = outdir::Strings + QStringLiteral("/GenStrings.txt");
    copyTemplate(context, QStringLiteral("GenStrings.txt"), strings);
    context.processMessages();

    QString lines;
    const ReferenceList& messages = context.project.tables[row::Messages];
    for (int k = 0; k < messages.ItemCount; ++k) {
        context.log.attempt(QStringLiteral("message %1").arg(k), [&] {
            // The text goes in as it stands, double quotes included.
            lines += QStringLiteral("msg") + QString::number(k) + QStringLiteral("\t\t\t\t")
                + quoted(at(messages.Texts, k, "message texts")) + crlf;
        });
    }
    appendTextFile(context, strings, lines);
    context.processMessages();
}

void CopyBriefing(const OutputContext& context)
{
    makeDirectory(context, outdir::Messages);
    copyTemplate(context, QStringLiteral("brief1-1.txt"),
        outdir::Messages + QStringLiteral("/brief1-1.txt"));
    context.processMessages();
}

} // namespace tarvo
