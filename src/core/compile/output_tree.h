#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <optional>

namespace tarvo {

class StepLog;
struct OutputPlan;
struct Project;

// What every writing step of a compile works with. Paths given to the helpers
// below are relative to the output root and use "/".
struct OutputContext
{
    const Project& project;
    QString root; // the output root, without a trailing separator
    QString sourceDir; // the templates
    StepLog& log;
    std::function<void()> progress;
    mutable std::optional<bool> m_gameOverMessages = std::nullopt;

    QString path(const QString& relative) const { return root + u'/' + relative; }
    QString templatePath(const QString& name) const { return sourceDir + u'/' + name; }
    // Whether an action calls the game-over message: several steps ask, and
    // the answer walks every action, so it is found once per compile.
    bool gameOverMessages() const;

    // Lets the window process its pending events between steps.
    void processMessages() const
    {
        if (progress)
            progress();
    }
};

// The directories the compile owns, in the order cleaning empties them.
// One spelling each: the file system may be case-sensitive.
namespace outdir {
inline const QString Lists = QStringLiteral("vnr");
inline const QString Messages = QStringLiteral("messages");
inline const QString Strings = QStringLiteral("messages/strings");
inline const QString Script = QStringLiteral("script");
inline const QString ScriptData = QStringLiteral("script/data");
inline const QString ScriptText = QStringLiteral("script/text");
inline const QString Audio = QStringLiteral("audio");
inline const QString Sounds = QStringLiteral("audio/Extra");
} // namespace outdir

// Empties and removes the compile's directories under the root. Files lying
// directly in the root stay. A symbolic link met on the way is removed as a
// link and never followed; subdirectories someone put inside are left alone
// (their parents then stay too, which is reported). The planned files and
// directories stay, to be written over by the compile that follows.
void CleanOutputTree(const OutputContext& context, const OutputPlan& plan);

// Creates the output root (and the projects folder above it if need be).
void MakeOutputRoot(const OutputContext& context);

// The statements of the writing steps: each one that fails is recorded in the
// context's log and the step goes on.
void makeDirectory(const OutputContext& context, const QString& relative);
// Copies a file over `relative`, replacing a file or link already there. On
// failure nothing is left at `relative`.
bool copyInto(const OutputContext& context, const QString& from, const QString& relative);
// Writes `bytes`, read from `from` by the caller, as the copy at `relative`.
bool putCopy(const OutputContext& context, const QString& from, const QString& relative,
    const QByteArray& bytes);
// Records `warning` for a copy not made and removes an old one at `relative`.
bool refuseCopy(const OutputContext& context, const QString& relative, const QString& warning);
bool copyTemplate(const OutputContext& context, const QString& name, const QString& relative);
// Writes the text in the 8-bit code page, replacing the file.
void writeTextFile(const OutputContext& context, const QString& relative, const QString& text);
// Appends; creates the file when the template copy before it failed.
void appendTextFile(const OutputContext& context, const QString& relative, const QString& text);

} // namespace tarvo
