#include "simulate/dry_run_dock.h"

#include "base/file_error.h"
#include "catalogue/workspace.h"
#include "simulate/timeline_view.h"
#include "simulate/transcript_model.h"
#include "simulate/why_not.h"
#include "ui/prompter.h"

#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollArea>
#include <QSortFilterProxyModel>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tarvo::gui {

namespace {

constexpr int kSliceMs = 12; // a run yields to the window this often

QString shownValue(const simulate::ScriptValue& value)
{
    return value.kind == simulate::ScriptValue::Kind::Nothing ? QStringLiteral("—")
                                                              : value.scriptText();
}

} // namespace

DryRunDock::DryRunDock(const Workspace& workspace, Prompter& prompter, QWidget* parent)
    : QDockWidget(QStringLiteral("Dry Run"), parent)
    , m_workspace(workspace)
    , m_prompter(prompter)
{
    setObjectName(QStringLiteral("DryRunDock"));
    m_slices.setSingleShot(true);
    m_slices.setInterval(0);
    connect(&m_slices, &QTimer::timeout, this, &DryRunDock::runSlice);
    // Edits come in bursts; the model is read again once they settle.
    m_rebuild.setSingleShot(true);
    m_rebuild.setInterval(400);
    connect(&m_rebuild, &QTimer::timeout, this, [this] {
        if (isVisible())
            prepareModel();
    });

    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(buildControls());
    m_status = new QLabel(body);
    m_status->setObjectName(QStringLiteral("dryRunStatus"));
    m_status->setWordWrap(true);
    m_status->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(m_status);

    m_tabs = new QTabWidget(body);
    m_tabs->setObjectName(QStringLiteral("dryRunTabs"));

    auto* transcriptPage = new QWidget(m_tabs);
    auto* transcriptLayout = new QVBoxLayout(transcriptPage);
    transcriptLayout->setContentsMargins(0, 4, 0, 0);
    auto* filter = new QLineEdit(transcriptPage);
    filter->setObjectName(QStringLiteral("dryRunFilter"));
    filter->setPlaceholderText(QStringLiteral("Filter the transcript (an event, a variable, "
                                              "\"fired\", \"game:\"...)"));
    filter->setClearButtonEnabled(true);
    m_transcript = new TranscriptModel(this);
    m_filtered = new QSortFilterProxyModel(this);
    m_filtered->setSourceModel(m_transcript);
    m_filtered->setFilterCaseSensitivity(Qt::CaseInsensitive);
    connect(
        filter, &QLineEdit::textChanged, m_filtered, &QSortFilterProxyModel::setFilterFixedString);
    m_transcriptView = new QListView(transcriptPage);
    m_transcriptView->setObjectName(QStringLiteral("dryRunTranscript"));
    m_transcriptView->setModel(m_filtered);
    m_transcriptView->setUniformItemSizes(true);
    m_transcriptView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(m_transcriptView, &QListView::activated, this, [this](const QModelIndex& index) {
        const QVariant event = index.data(TranscriptModel::EventRole);
        if (event.isValid() && event.toInt() >= 0)
            Q_EMIT eventChosen(event.toInt());
    });
    transcriptLayout->addWidget(filter);
    transcriptLayout->addWidget(m_transcriptView);
    m_tabs->addTab(transcriptPage, QStringLiteral("Transcript"));

    m_timeline = new TimelineView(m_tabs);
    m_timeline->setObjectName(QStringLiteral("dryRunTimeline"));
    auto* timelineScroll = new QScrollArea(m_tabs);
    timelineScroll->setWidget(m_timeline);
    timelineScroll->setWidgetResizable(true);
    connect(m_timeline, &TimelineView::eventChosen, this, &DryRunDock::eventChosen);
    m_tabs->addTab(timelineScroll, QStringLiteral("Timeline"));

    m_watch = new QTableWidget(0, 4, m_tabs);
    m_watch->setObjectName(QStringLiteral("dryRunWatch"));
    m_watch->setHorizontalHeaderLabels({QStringLiteral("Variable"), QStringLiteral("Value"),
        QStringLiteral("Changed at"), QStringLiteral("By")});
    m_watch->horizontalHeader()->setStretchLastSection(true);
    m_watch->verticalHeader()->hide();
    m_watch->setWordWrap(false);
    m_watch->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_watch->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tabs->addTab(m_watch, QStringLiteral("Watch"));

    m_tabs->addTab(buildScenarioPage(), QStringLiteral("Scenario"));
    layout->addWidget(m_tabs, 1);
    setWidget(body);
    updateStatus();
}

DryRunDock::~DryRunDock() = default;

QWidget* DryRunDock::buildControls()
{
    auto* bar = new QWidget(this);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(QStringLiteral("Run to:"), bar);
    m_until = new QDoubleSpinBox(bar);
    m_until->setObjectName(QStringLiteral("dryRunUntil"));
    m_until->setDecimals(1);
    m_until->setSingleStep(10);
    m_until->setRange(0, 1e7);
    m_until->setSuffix(QStringLiteral(" s"));
    m_until->setValue(simulate::Scenario::kDefaultUntil / 10.0);
    label->setBuddy(m_until);
    m_runButton = new QPushButton(QStringLiteral("Run"), bar);
    m_runButton->setObjectName(QStringLiteral("dryRunRun"));
    m_stepButton = new QPushButton(QStringLiteral("Step"), bar);
    m_stepButton->setObjectName(QStringLiteral("dryRunStep"));
    m_stepButton->setToolTip(QStringLiteral("Run the next moment at which an event fires"));
    m_resetButton = new QPushButton(QStringLiteral("Reset"), bar);
    m_resetButton->setObjectName(QStringLiteral("dryRunReset"));
    m_callbacks = new QComboBox(bar);
    m_callbacks->setObjectName(QStringLiteral("dryRunCallbacks"));
    m_callbacks->setToolTip(QStringLiteral("The callbacks the script waits for"));
    m_callbacks->setMinimumContentsLength(16);
    m_fireButton = new QPushButton(QStringLiteral("Fire now"), bar);
    m_fireButton->setObjectName(QStringLiteral("dryRunFire"));
    row->addWidget(label);
    row->addWidget(m_until);
    row->addWidget(m_runButton);
    row->addWidget(m_stepButton);
    row->addWidget(m_resetButton);
    row->addStretch(1);
    row->addWidget(m_callbacks);
    row->addWidget(m_fireButton);
    connect(
        m_runButton, &QPushButton::clicked, this, [this] { runTo(qRound(m_until->value() * 10)); });
    connect(m_stepButton, &QPushButton::clicked, this, &DryRunDock::step);
    connect(m_resetButton, &QPushButton::clicked, this, &DryRunDock::reset);
    connect(m_fireButton, &QPushButton::clicked, this, [this] {
        if (m_callbacks->currentIndex() >= 0)
            fire(m_callbacks->currentText());
    });
    return bar;
}

QWidget* DryRunDock::buildScenarioPage()
{
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 4, 0, 0);
    m_scenario = new QPlainTextEdit(page);
    m_scenario->setObjectName(QStringLiteral("dryRunScenario"));
    m_scenario->setPlaceholderText(
        QStringLiteral("# What the game does, one line each (times in tenths of a second):\n"
                       "# until 6000\n"
                       "# at 300 fire CALL_TRANSPORTER_LANDED\n"
                       "# at 0 answer countStructures(REF_ANY, 0) = 12\n"
                       "# at 900 answer getDroidCount = 0"));
    QFont fixed(QStringLiteral("monospace"));
    fixed.setStyleHint(QFont::TypeWriter);
    m_scenario->setFont(fixed);
    // The next run reads the scenario as it stands.
    connect(m_scenario, &QPlainTextEdit::textChanged, this, [this] {
        if (m_run) {
            m_run.reset();
            m_note = QStringLiteral("The scenario changed: the next run starts from 0.0 s.");
            updateStatus();
        }
    });
    auto* buttons = new QHBoxLayout;
    auto* load = new QPushButton(QStringLiteral("Load..."), page);
    load->setObjectName(QStringLiteral("dryRunLoad"));
    auto* save = new QPushButton(QStringLiteral("Save beside the project"), page);
    save->setObjectName(QStringLiteral("dryRunSave"));
    connect(load, &QPushButton::clicked, this, &DryRunDock::loadScenario);
    connect(save, &QPushButton::clicked, this, &DryRunDock::saveScenario);
    buttons->addWidget(load);
    buttons->addWidget(save);
    buttons->addStretch(1);
    layout->addWidget(m_scenario, 1);
    layout->addLayout(buttons);
    return page;
}

void DryRunDock::showEvent(QShowEvent* event)
{
    QDockWidget::showEvent(event);
    if (m_modelStale)
        prepareModel();
}

void DryRunDock::prepareModel()
{
    try {
        m_model = std::make_shared<const simulate::DryRunModel>(
            simulate::buildDryRunModel(m_workspace));
        m_modelStale = false;
    } catch (const FileError& error) {
        m_model.reset();
        m_note = error.message();
    }
    const QString current = m_callbacks->currentText();
    m_callbacks->clear();
    if (m_model)
        m_callbacks->addItems(m_model->callbacks);
    m_callbacks->setCurrentIndex(qMax(0, m_callbacks->findText(current)));
    updateStatus();
}

bool DryRunDock::ensureRun()
{
    if (m_run)
        return true;
    if (m_modelStale || !m_model)
        prepareModel();
    if (!m_model)
        return false;
    if (!m_model->errors.isEmpty()) {
        m_note = QStringLiteral("The game cannot read the script; fix these first:\n")
            + m_model->errors.join(u'\n');
        updateStatus();
        return false;
    }
    QList<FileError> errors;
    const QString label = QFileInfo(scenarioPath()).fileName();
    simulate::Scenario scenario = simulate::readScenario(
        m_scenario->toPlainText(), label.isEmpty() ? QStringLiteral("scenario") : label, errors);
    if (!errors.isEmpty()) {
        QStringList lines;
        for (const FileError& error : std::as_const(errors))
            lines << error.message();
        m_note = lines.join(u'\n');
        m_tabs->setCurrentIndex(3);
        updateStatus();
        return false;
    }
    m_transcript->reset(m_model);
    m_pending.clear();
    m_run = std::make_unique<simulate::DryRun>(m_model, std::move(scenario),
        [this](const simulate::TranscriptEntry& entry) { m_pending.push_back(entry); });
    m_timeline->setRun(m_run.get());
    m_note.clear();
    return true;
}

void DryRunDock::runTo(int tenths)
{
    if (!ensureRun())
        return;
    m_target = tenths;
    runSlice();
}

void DryRunDock::runSlice()
{
    if (!m_run)
        return;
    QElapsedTimer clock;
    clock.start();
    while (!m_run->finished() && m_run->time() < m_target) {
        const std::optional<int> next = m_run->nextMoment();
        if (!next || *next > m_target) {
            m_run->runTo(m_target);
            break;
        }
        m_run->step();
        if (clock.elapsed() >= kSliceMs) {
            flush();
            m_slices.start();
            return;
        }
    }
    flush();
}

void DryRunDock::finishPending()
{
    while (m_slices.isActive()) {
        m_slices.stop();
        runSlice();
    }
}

void DryRunDock::step()
{
    m_slices.stop();
    if (!ensureRun())
        return;
    m_run->step();
    flush();
}

void DryRunDock::fire(const QString& keyword)
{
    m_slices.stop();
    if (!ensureRun())
        return;
    m_run->fireCallback(keyword);
    flush();
}

void DryRunDock::reset()
{
    m_slices.stop();
    m_run.reset();
    m_pending.clear();
    m_transcript->reset(m_model);
    m_timeline->setRun(nullptr);
    m_note.clear();
    if (m_modelStale)
        prepareModel();
    updateWatch();
    updateStatus();
}

void DryRunDock::projectChanged()
{
    m_modelStale = true;
    m_rebuild.start();
    if (!m_run)
        return;
    m_slices.stop();
    m_run.reset();
    m_timeline->setRun(nullptr);
    m_note = QStringLiteral("The project changed: the run was reset; the next one starts "
                            "from 0.0 s with the project as it is now.");
    updateStatus();
}

void DryRunDock::flush()
{
    if (!m_pending.empty()) {
        m_transcript->append(m_pending);
        m_pending.clear();
        m_transcriptView->scrollToBottom();
        // Past the lines kept, the run need not make any more.
        if (m_transcript->dropped() > 0 && m_run)
            m_run->stopRecording();
    }
    m_timeline->refresh();
    updateWatch();
    updateStatus();
}

void DryRunDock::updateWatch()
{
    if (!m_model) {
        m_watch->setRowCount(0);
        return;
    }
    const QStringList& codes = m_model->watchOrder;
    const bool first = m_watch->rowCount() == 0;
    m_watch->setRowCount(int(codes.size()));
    const auto set = [this](int row, int column, const QString& text) {
        QTableWidgetItem* item = m_watch->item(row, column);
        if (!item) {
            item = new QTableWidgetItem;
            m_watch->setItem(row, column, item);
        }
        if (item->text() != text)
            item->setText(text);
    };
    for (int row = 0; row < codes.size(); ++row) {
        const QString& code = codes.at(row);
        const QString name = m_model->authorName(code);
        set(row, 0, name == code ? code : QStringLiteral("%1 (%2)").arg(name, code));
        if (!m_run) {
            set(row, 1, shownValue(m_model->startValues.value(code)));
            set(row, 2, {});
            set(row, 3, {});
            continue;
        }
        const simulate::VariableState state = m_run->variable(code);
        set(row, 1, shownValue(state.value));
        set(row, 2, state.changedAt >= 0 ? simulate::clockText(state.changedAt) : QString());
        set(row, 3,
            state.changedBy >= 0 ? m_model->events[size_t(state.changedBy)].name : QString());
    }
    if (first)
        m_watch->resizeColumnsToContents();
}

void DryRunDock::updateStatus()
{
    QString line;
    if (!m_run) {
        line = QStringLiteral("Ready: Run plays the mission from 0.0 s; Step runs one moment "
                              "at a time.");
    } else if (m_run->finished()) {
        const QString& ending = m_run->ending();
        line = QStringLiteral("Finished at %1: %2.")
                   .arg(simulate::clockText(m_run->time()),
                       ending == QLatin1String("win")        ? QStringLiteral("the mission is won")
                           : ending == QLatin1String("lose") ? QStringLiteral("the mission is lost")
                           : ending == QLatin1String("loop") || ending == QLatin1String("limit")
                           ? QStringLiteral("the run reached a bound (see the last line)")
                           : QStringLiteral("the end time was reached"));
    } else {
        const std::optional<int> next = m_run->nextMoment();
        line = QStringLiteral("At %1%2.")
                   .arg(simulate::clockText(qMax(0, m_run->time())),
                       next ? QStringLiteral("; next firing at %1").arg(simulate::clockText(*next))
                            : QStringLiteral("; nothing more is planned"));
    }
    if (m_transcript->dropped() > 0)
        line += QStringLiteral(" The transcript keeps the first %1 lines; %2 more were left out.")
                    .arg(TranscriptModel::kKept)
                    .arg(m_transcript->dropped());
    if (!m_note.isEmpty())
        line = m_note + u'\n' + line;
    m_status->setText(line);
    const bool over = m_run && m_run->finished();
    m_stepButton->setEnabled(!over);
    m_runButton->setEnabled(!over);
    m_fireButton->setEnabled(!over && m_callbacks->count() > 0);
}

QStringList DryRunDock::whyNot(int event)
{
    if (!m_run || m_modelStale) {
        reset();
        runTo(qRound(m_until->value() * 10));
        finishPending();
    }
    if (!m_run)
        return {m_note};
    QStringList lines = simulate::whyNotLines(*m_run, event);
    if (!m_run->finished())
        lines.prepend(QStringLiteral("So far (the dry run is at %1):")
                          .arg(simulate::clockText(qMax(0, m_run->time()))));
    return lines;
}

QString DryRunDock::scenarioPath() const
{
    const QString& file = m_workspace.project.filePath;
    if (file.isEmpty())
        return {};
    const QFileInfo info(file);
    return info.absolutePath() + u'/' + info.completeBaseName() + QStringLiteral(".scenario");
}

void DryRunDock::loadScenarioBesideProject()
{
    const QString path = scenarioPath();
    QString text;
    if (!path.isEmpty() && QFileInfo::exists(path)) {
        try {
            text = simulate::scenarioFileText(path);
        } catch (const FileError& error) {
            m_note = error.message();
        }
    }
    m_scenario->setPlainText(text);
}

void DryRunDock::loadScenario()
{
    const QString path = m_prompter.openFileName(
        QStringLiteral("Load scenario"), QStringLiteral("Scenarios|*.scenario"));
    if (path.isEmpty())
        return;
    try {
        m_scenario->setPlainText(simulate::scenarioFileText(path));
    } catch (const FileError& error) {
        m_prompter.message(error.message(), Prompter::Icon::Exclamation);
    }
}

void DryRunDock::saveScenario()
{
    QString path = scenarioPath();
    if (path.isEmpty())
        path = m_prompter.saveFileName(
            QStringLiteral("Save scenario"), QStringLiteral("Scenarios|*.scenario"));
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    const QByteArray bytes = m_scenario->toPlainText().toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        m_prompter.message(
            QStringLiteral("%1: %2").arg(path, file.errorString()), Prompter::Icon::Exclamation);
        return;
    }
    m_note = QStringLiteral("Saved %1.").arg(QDir::toNativeSeparators(path));
    updateStatus();
}

} // namespace tarvo::gui
