#pragma once

#include <functional>
#include <vector>

class ProgressPrinter;

// One step of a run: its progress line, then its work.
struct RunStep
{
    int percent;
    const char *text;
    std::function<bool()> work; // false: the run ends here with exit code 1
};

// Prints each step's progress line and does its work, in order; then the
// last progress line, 100 with `doneText`. Returns the exit code: `exitCode`
// when every step went through, 1 at the first step that failed.
int runSteps(ProgressPrinter &out, const std::vector<RunStep> &steps, const char *doneText,
             int exitCode);
