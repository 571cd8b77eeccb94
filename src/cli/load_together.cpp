#include "commands.h"
#include "document/project_file.h"

#include <thread>
#include <vector>

// Loading dominates diff and merge of large projects, and the versions are
// independent (each workspace has its own catalogues and project; the reader
// keeps no shared state), so each loads on a thread of its own. Failures are
// printed afterwards, in the order of the arguments.
bool loadTogether(const QList<std::pair<LoadedProject*, QString>>& loads)
{
    QStringList failures(loads.size());
    {
        std::vector<std::jthread> threads;
        for (qsizetype i = 0; i < loads.size(); ++i) {
            threads.emplace_back([&failures, &loads, i] {
                const auto& [loaded, path] = loads.at(i);
                try {
                    tarvo::LoadProject(loaded->workspace, path);
                } catch (const tarvo::FileError& error) {
                    failures[i] = error.message();
                } catch (const tarvo::DataError& error) {
                    failures[i] = path + QStringLiteral(": ") + error.sentence();
                } catch (const std::exception& error) {
                    failures[i]
                        = path + QStringLiteral(": ") + QString::fromLocal8Bit(error.what());
                }
            });
        }
    }
    for (qsizetype i = 0; i < loads.size(); ++i) {
        if (!failures.at(i).isEmpty()) {
            printLine(stderr, failures.at(i));
            return false;
        }
        loads.at(i).first->document.projectReplaced();
    }
    return true;
}
