#pragma once

#include <QString>

struct CfgModel;

// Applying the options of the batch command line to a configuration record.
// This is the one place where a record changes outside the undo stack: the
// batch path loads, applies every option in order and saves.

enum class BatchOutcome {
    Applied, // the record took the option (a pattern matching nothing included)
    Passed,  // one of the forms that are neither applied nor refused
    Refused, // syntax error: the caller stops and saves nothing
};

struct BatchOptionResult
{
    BatchOutcome outcome = BatchOutcome::Applied;
    int refusal = 0; // Refused: number of the message (see batchRefusalMessage)
};

BatchOptionResult applyBatchOption(CfgModel &cfg, const QString &option);
