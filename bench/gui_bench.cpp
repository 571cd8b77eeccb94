// tarvo-gui-bench: the real main window, offscreen, on a generated campaign
// of 10,000 events (one timer, as a project file holds only one). Every
// action is made through the widgets as a user makes it and timed in CPU
// time of the process, several times; the table gives the median and the
// worst per action, then the peak memory.
#include "bench_folder.h"
#include "bench_project.h"
#include "dialogs/messages_dialog.h"
#include "main/main_page.h"
#include "main/main_window.h"
#include "document/project_document.h"
#include "document/project_file.h"
#include "silent_prompter.h"
#include "wizard/event_wizard.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <sys/resource.h>

using namespace tarvo;
using tarvo::gui::EventWizard;
using tarvo::gui::MainWindow;

namespace {

double cpuMilliseconds()
{
    timespec now {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

struct Timing
{
    QString action;
    std::vector<double> samples;
};

class GuiBench
{
public:
    GuiBench(MainWindow& window, SilentPrompter& prompter)
        : m_window(window)
        , m_prompter(prompter)
    {
    }

    // Runs `action` `repeats` times (with `between` after each, untimed) and
    // keeps the CPU time of each run, pending events included.
    void time(const QString& name, int repeats, const std::function<void(int)>& action,
        const std::function<void()>& between = {})
    {
        // TARVO_GUI_BENCH_ONLY=text runs the opening and the actions whose
        // names hold the text, many times: for a profiler.
        const QString only = qEnvironmentVariable("TARVO_GUI_BENCH_ONLY");
        if (!only.isEmpty() && !name.startsWith(QLatin1String("open"))) {
            if (!name.contains(only))
                return;
            repeats *= 10;
        }
        Timing timing {name, {}};
        for (int r = 0; r < repeats; ++r) {
            const double start = cpuMilliseconds();
            action(r);
            QCoreApplication::processEvents();
            timing.samples.push_back(cpuMilliseconds() - start);
            if (between) {
                between();
                QCoreApplication::processEvents();
            }
        }
        // Samples of an action timed in several rounds go together.
        for (Timing& earlier : m_timings) {
            if (earlier.action == name) {
                earlier.samples.insert(
                    earlier.samples.end(), timing.samples.begin(), timing.samples.end());
                return;
            }
        }
        m_timings.push_back(std::move(timing));
    }

    template <typename T> T* find(const char* name) const
    {
        T* widget = m_window.findChild<T*>(QLatin1String(name));
        if (!widget)
            std::fprintf(stderr, "no widget %s\n", name);
        return widget;
    }
    QListWidget* events() const
    {
        return m_window.mainPage()->findChild<QListWidget*>(QStringLiteral("List1"));
    }
    void click(const char* name) const { find<QAbstractButton>(name)->click(); }
    void trigger(const char* name) const { find<QAction>(name)->trigger(); }
    void undo() const { m_window.document().undo(); }

    // Closes the modal dialog that the next action opens, once it is shown.
    void closeNextDialog() const
    {
        QTimer::singleShot(0, [] {
            if (QWidget* dialog = QApplication::activeModalWidget())
                dialog->close();
        });
    }

    void print() const
    {
        std::printf("%-44s %10s %10s\n", "action (10,000 events)", "median ms", "worst ms");
        for (const Timing& timing : m_timings) {
            std::vector<double> sorted = timing.samples;
            std::sort(sorted.begin(), sorted.end());
            std::printf("%-44s %10.2f %10.2f\n", qPrintable(timing.action),
                sorted[sorted.size() / 2], sorted.back());
        }
        rusage usage {};
        getrusage(RUSAGE_SELF, &usage);
        std::printf("%-44s %10.0f MB\n", "peak memory", double(usage.ru_maxrss) / 1024.0);
    }

private:
    MainWindow& m_window;
    SilentPrompter& m_prompter;
    std::vector<Timing> m_timings;
};

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const int kEvents = qEnvironmentVariableIntValue("TARVO_GUI_BENCH_EVENTS") > 0
        ? qEnvironmentVariableIntValue("TARVO_GUI_BENCH_EVENTS")
        : 10000;

    // The campaign, written as a file the editor opens (one timer only), by a
    // run of this program of its own, so that its memory is not counted here.
    BenchFolder& folder = benchFolder();
    const QString file = folder.scratchPath(QStringLiteral("Campaign.vnsc"));
    if (argc == 4 && QByteArray(argv[1]) == "--write-campaign") {
        SilentPrompter quiet;
        Workspace generated(folder.programDir(), quiet);
        buildBenchProject(generated, folder, kEvents, 1);
        // The sounds of the folder that will open the campaign.
        for (SoundRecord& sound : generated.project.sounds)
            sound.secondText.replace(folder.programDir(), QString::fromLocal8Bit(argv[2]));
        SaveProject(generated.project, QString::fromLocal8Bit(argv[3]));
        return 0;
    }
    QProcess writer;
    writer.start(QCoreApplication::applicationFilePath(),
        {QStringLiteral("--write-campaign"), folder.programDir(), file});
    writer.waitForFinished(-1);
    if (!QFile::exists(file)) {
        std::fprintf(stderr, "the campaign could not be written\n");
        return 1;
    }

    SilentPrompter prompter;
    MainWindow window(folder.programDir(), prompter);
    // The page's own work: the docks a first start shows refresh later, on
    // their timers, and are timed on their own (Script > Check below).
    // TARVO_GUI_BENCH_DOCKS=1 keeps them open.
    if (!qEnvironmentVariableIsSet("TARVO_GUI_BENCH_DOCKS")) {
        for (const char* dock : {"ScriptPreviewDock", "IssuesDock"})
            if (auto* widget = window.findChild<QWidget*>(QLatin1String(dock)))
                widget->hide();
    }
    window.show();
    GuiBench bench(window, prompter);
    QListWidget* list = bench.events();

    bench.time(QStringLiteral("open (File > Open)"), 3, [&](int) {
        prompter.fileNames = {file};
        bench.trigger("mOpen");
    });
    // What the open project holds, apart from the peak while reading it.
    {
        QFile status(QStringLiteral("/proc/self/status"));
        status.open(QIODevice::ReadOnly);
        for (const QByteArray& line : status.readAll().split('\n'))
            if (line.startsWith("VmRSS") || line.startsWith("VmHWM"))
                std::printf("after open: %s\n", line.simplified().constData());
    }
    const int middle = kEvents / 2;
    const int rows[] = {0, middle, kEvents - 1};
    bench.time(
        QStringLiteral("select an event"), 9, [&](int r) { list->setCurrentRow(rows[r % 3] + r); });
    // Event 17 is named by other events' actions, event 18 by none.
    for (const auto& [name, row] :
        {std::pair {"untick (warnings shown)", 17}, std::pair {"untick (no warning)", 18}}) {
        bench.time(
            QString::fromLatin1(name), 5,
            [&, row = row](int) { list->item(row)->setCheckState(Qt::Unchecked); },
            [&, row = row] { list->item(row)->setCheckState(Qt::Checked); });
    }
    bench.time(
        QStringLiteral("tick"), 5, [&](int) { list->item(18)->setCheckState(Qt::Checked); },
        [&] { list->item(18)->setCheckState(Qt::Unchecked); });
    for (const auto& [where, row] :
        {std::pair {"start", 1}, std::pair {"middle", middle}, std::pair {"end", kEvents - 2}}) {
        bench.time(
            QStringLiteral("move down (%1)").arg(QLatin1String(where)), 5,
            [&, row = row](int) {
                list->setCurrentRow(row);
                bench.click("Command39");
            },
            [&] { bench.undo(); });
        bench.time(
            QStringLiteral("move up (%1)").arg(QLatin1String(where)), 5,
            [&, row = row](int) {
                list->setCurrentRow(row);
                bench.click("Command38");
            },
            [&] { bench.undo(); });
    }
    bench.time(
        QStringLiteral("copy"), 5,
        [&](int) {
            list->setCurrentRow(middle);
            bench.click("Command27");
        },
        [&] { bench.undo(); });
    bench.time(
        QStringLiteral("delete"), 5,
        [&](int) {
            list->setCurrentRow(middle);
            bench.click("Command2");
        },
        [&] { bench.undo(); });
    bench.time(QStringLiteral("rename"), 5, [&](int r) {
        list->setCurrentRow(middle);
        prompter.inputs = {QStringLiteral("Renamed %1").arg(r)};
        bench.click("Command36");
    });
    bench.time(QStringLiteral("undo"), 5, [&](int) { bench.undo(); });
    bench.time(QStringLiteral("redo"), 5, [&](int) { window.document().redo(); });
    bench.time(QStringLiteral("comment update"), 5, [&](int r) {
        list->setCurrentRow(middle);
        bench.find<QPlainTextEdit>("TxtMaintDescription")
            ->setPlainText(QStringLiteral("Note %1").arg(r));
        bench.click("Command11");
    });

    EventWizard* wizard = window.wizard();
    bench.time(
        QStringLiteral("wizard: open on an event"), 5,
        [&](int) {
            list->setCurrentRow(middle);
            bench.click("Command1");
        },
        [&] { bench.click("Command25"); });
    // One session: a condition and an action added, then Done!; each step
    // timed on its own, the whole session undone after each round.
    for (int round = 0; round < 5; ++round) {
        list->setCurrentRow(middle);
        bench.click("Command1");
        bench.time(QStringLiteral("wizard: add a condition"), 1, [&](int) {
            bench.click("Command4");
            bench.find<QComboBox>("Combo1")->setCurrentIndex(1);
            bench.click("Command7");
        });
        bench.time(QStringLiteral("wizard: add an action"), 1, [&](int) {
            bench.click("Command16");
            bench.find<QComboBox>("Combo2")->setCurrentIndex(3);
            bench.click("Command20");
        });
        bench.time(QStringLiteral("wizard: Done!"), 1, [&](int) { bench.click("Command21"); });
        bench.undo();
    }
    Q_UNUSED(wizard);

    for (const char* dialog : {"mSounds", "mMessages", "mVariables"}) {
        bench.time(
            QStringLiteral("dialog %1: open and close").arg(QLatin1String(dialog)), 5, [&](int) {
                bench.closeNextDialog();
                bench.trigger(dialog);
            });
    }
    bench.time(QStringLiteral("check (Script > Check)"), 3, [&](int) { bench.trigger("mCheck"); });
    bench.time(QStringLiteral("find (Edit > Find)"), 3, [&](int) {
        prompter.inputs = {QStringLiteral("Event 99")};
        bench.trigger("mFind");
    });
    bench.time(
        QStringLiteral("compile (Script > Compile)"), 3, [&](int) { bench.trigger("mCompile"); });
    if (auto* heading = window.findChild<QLabel*>(QStringLiteral("IssuesDockHeading")))
        std::printf("check found: %s\n", qPrintable(heading->text()));
    if (auto* issues = window.findChild<QListWidget*>(QStringLiteral("IssuesDockList")))
        for (int i = 0; i < std::min(3, issues->count()); ++i)
            std::printf("  %s\n", qPrintable(issues->item(i)->text()));
    bench.print();
    window.document().projectReplaced(); // nothing to ask about at the end
    return 0;
}
