#pragma once

#include "catalogue/workspace.h"

class BenchFolder;

// Fills the workspace (after a reset from the bench folder) with a campaign
// of `events` events shaped like a large real one: each event has a trigger
// with two arguments, three conditions (one of each form, comparison values
// with references) and four actions whose code blocks refer to rows 0, 7,
// 12, 13, 14, 15 and 17. Rows 0, 7 and 17 hold 64 variables each; one timer
// per ten events unless `timers` says how many, 200 sounds, 500 messages.
void buildBenchProject(
    tarvo::Workspace& workspace, const BenchFolder& folder, int events, int timers = 0);

// The encoded reference of an item, as an argument stores it.
QString benchReference(int row, int id);

#include "silent_prompter.h"

#include <memory>

// One generated project per size, built on first use and kept for the run.
struct BenchCase
{
    explicit BenchCase(int events);

    int events;
    SilentPrompter prompter;
    tarvo::Workspace workspace;
};

BenchFolder& benchFolder();
BenchCase& benchCase(int events);
