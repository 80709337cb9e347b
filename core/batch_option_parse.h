#pragma once

#include <QString>
#include <QStringList>

// Reading one option of the batch command line into what it asks for, before
// any record is touched. The syntax is terse on purpose: the callers are other
// programs, and a refused option must carry the number its caller expects.

enum class BatchAction {
    Refuse,                     // refusal holds the number of the message
    Pass,                       // neither applied nor refused
    SetAUCmax,                  // number, in percent
    SetColumnActivity,          // activity on the columns matching pattern
    SetWeight,                  // label of the last variable matching pattern
    SetTargetColumn,            // label of the last variable matching pattern
    SetTargetExpression,        // numericVars, stringVars, text
    SetLineSelectionFile,       // text
    SetLineSelectionExpression, // numericVars, stringVars, text
    SetP1,                      // number
    SetP2,                      // number
    SetPruning,                 // number, truncated
    SetAlpha,                   // number
    SetLambda,                  // number
    SetColumnPenality,          // number on the columns matching pattern
    SetCpuCount,                // number, truncated
    SetVarCm,                   // number != 0 on the first column of matching variables
    SetRandomSeed,              // number, truncated
    SetMinSizeNominal,          // text, unparsed
    SetMinSizeOrdered,          // text, unparsed
    SetAllowedAUCLoss,          // number
    SetMaxMemoryDS,             // number, truncated
    SetMaxTargetDensity,        // number
    SetMaxTestDSSize,           // number
    SetVarMinSizeModality,      // number on the first column of matching variables
};

struct BatchOption
{
    BatchAction action = BatchAction::Pass;
    int refusal = 0;             // Refuse: message number; 0 is the one without a number
    double number = 0.0;         // read with QString::toDouble, no check: no number is 0
    QString text;                // text value, path or expression
    QString pattern;             // wildcard, matched against whole names
    Qt::CaseSensitivity patternCase = Qt::CaseInsensitive;
    char activity = 0;           // SetColumnActivity: 'I', ' ' or 'F'
    QStringList numericVars;     // expression options: names as given, empty parts skipped
    QStringList stringVars;
};

// Number of the refusal message that has no number in its text.
constexpr int kRefusalWithoutNumber = 0;

BatchOption parseBatchOption(const QString &option);

// Truncation toward zero of a number given for an integer field; values
// beyond the int range stop at its ends and NaN gives 0.
int truncateOptionNumber(double value);

// The text of a refusal: "Syntax error (n) in command-line option '<option>'",
// or without "(n)" for kRefusalWithoutNumber.
QString batchRefusalMessage(int refusal, const QString &option);
