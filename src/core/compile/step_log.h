#pragma once

#include <QString>
#include <QStringList>
#include <exception>
#include <type_traits>

namespace tarvo {

// The writing steps of a compile skip a statement that fails and go on with
// the next one, so that one faulty item costs one line rather than the whole
// output. What was skipped is collected here and shown to the user afterwards
// instead of vanishing.
class StepLog
{
public:
    void add(const QString& warning) { m_warnings.append(warning); }
    const QStringList& warnings() const { return m_warnings; }
    // A file or directory (relative to the output root; "" is the root
    // itself) that could not be written: the compile counts these.
    void unwritten(const QString& relative) { m_unwritten.append(relative); }
    const QStringList& unwrittenPaths() const { return m_unwritten; }

    // Runs one statement; on failure records `what` with the reason and
    // returns false. `what` is a text or a function that makes it: names of
    // items are only needed when something fails, and making one for every
    // statement would cost more than many statements themselves.
    template <typename Name, typename Statement> bool attempt(Name&& what, Statement&& statement)
    {
        try {
            statement();
            return true;
        } catch (const std::exception& error) {
            add(nameOf(what) + QStringLiteral(": ") + reasonOf(error));
        }
        return false;
    }

private:
    static const QString& nameOf(const QString& what) { return what; }
    template <typename MakeName>
    requires std::is_invocable_r_v<QString, MakeName>
    static QString nameOf(const MakeName& what) { return what(); }

    static QString reasonOf(const std::exception& error);

    QStringList m_warnings;
    QStringList m_unwritten;
};

} // namespace tarvo
