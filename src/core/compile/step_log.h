#pragma once

#include <QString>
#include <QStringList>
#include <exception>

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

    // Runs one statement; on failure records `what` with the reason and
    // returns false.
    template <typename Statement> bool attempt(const QString& what, Statement&& statement)
    {
        try {
            statement();
            return true;
        } catch (const std::exception& error) {
            add(what + QStringLiteral(": ") + reasonOf(error));
        }
        return false;
    }

private:
    static QString reasonOf(const std::exception& error);

    QStringList m_warnings;
};

} // namespace tarvo
