#include "app/batch_path.h"

#include "core/batch_option_parse.h"
#include "core/batch_options.h"
#include "core/cfg_load.h"
#include "core/cfg_model.h"
#include "core/file_replace.h"
#include "core/reporter.h"

#include <cstdio>
#include <memory>

namespace {

const char usageText[] =
    "Usage:\n"
    "  quva-cfg-editor [FILE]                    open FILE, or nothing, in the editor\n"
    "  quva-cfg-editor FILE OPTION [OPTION...]   patch FILE and exit (batch)\n"
    "  quva-cfg-editor --help | -h | --version\n"
    "\n"
    "FILE is a .CfgXML; \".CfgXML\" is appended when the name does not end in it.\n"
    "The batch path applies the options in order, a later one overriding an\n"
    "earlier one, and writes FILE back. The first refused option stops it and\n"
    "nothing is written. Messages go to standard error.\n"
    "\n"
    "Options:\n"
    "  -AUCMAX=v          maximum univariate AUC, in percent (letters in any case)\n"
    "  -I=pattern         ignore the matching columns\n"
    "  -A=pattern         make the matching columns active\n"
    "  -F=pattern         set the matching columns to the state 'F'\n"
    "                     -I -A -F match case-sensitively, -i -a -f in any case\n"
    "  -W=pattern         weight: the last variable whose label matches\n"
    "                     (-W case-sensitive, -w in any case)\n"
    "  -T=pattern         target column: the last variable whose label matches,\n"
    "  -TC=pattern        in any case\n"
    "  -TE=nums;strs;expr target expression; nums and strs are comma-separated\n"
    "                     names of numeric and text input variables\n"
    "  -LF=path           line selection from a file\n"
    "  -LE=nums;strs;expr line selection expression, like -TE\n"
    "  -p1=v  -p2=v       the two points of the AUC weighting\n"
    "  -pr=n              pruning mode (0 none, 1 importances, 2 fast, 3 slow)\n"
    "  -pa=v              alpha of the elastic net\n"
    "  -pl=v              lambda\n"
    "  -pe=v;pattern      penalty factor v on the matching columns\n"
    "  -cpu=n             number of processors\n"
    "  -cm=v;pattern      center missings (v not 0) on the variables whose name\n"
    "                     matches\n"
    "  -seed=n            random seed\n"
    "  -mn=text  -mo=text minimum modality size of nominal / ordered variables\n"
    "  -mi=v              allowed AUC loss in pruning\n"
    "  -mm=n              memory for the learning and test sets, MB\n"
    "  -md=v              maximum target density\n"
    "  -mt=v              maximum test set size\n"
    "  -mv=v;pattern      minimum modality size of the variables whose name matches\n"
    "\n"
    "Patterns are wildcards (* ? [...]) matching the whole text: the column name\n"
    "group.kind.label[.modality] for -I -A -F -pe, the variable's label for -W -T,\n"
    "its name for -cm -mv; -pe -T -cm -mv match in any case. Numbers that are no\n"
    "numbers count as 0; integer fields take the number truncated.\n"
    "\n"
    "A refused option is told as \"Syntax error (N) in command-line option '...'\":\n"
    "  (none) not \"-\" followed by at least one more character\n"
    "  2   -A -F -I (any case): shorter than 4 characters, or no \"=\" third\n"
    "  3   -W -w: shorter than 4 characters, or no \"=\" third\n"
    "  4   -T -t: shorter than 4 characters, or \"=\" neither third nor fourth\n"
    "  5   -TE: fewer than three parts between \";\"\n"
    "  6   -L -l: shorter than 4 characters, or no \"=\" fourth\n"
    "  7   -LE: fewer than three parts between \";\"\n"
    "  8   -p: shorter than 5 characters, or no \"=\" fourth; -pe without \";\"\n"
    "  9   -p: third character none of 1 2 r a l e\n"
    "  10  -cp: does not start with \"-cpu=\"\n"
    "  11  -cm: shorter than 5 characters, no \"=\" fourth, or no \";\"\n"
    "  12  -s: does not start with \"-seed=\"\n"
    "  13  -m: shorter than 5 characters, no \"=\" fourth; -mv without \";\"\n"
    "  14  -m: third character none of n o i m d t v\n"
    "  15  any other second character\n"
    "-TX=... (another letter before \"=\"), -LX=... and -cx=... pass unnoticed.\n"
    "\n"
    "Exit status:\n"
    "  0   batch done (also when the file could not be written; standard error\n"
    "      then names the file and the reason)\n"
    "  1   the window module cannot be loaded\n"
    "  2   the window was asked for where there is no display\n"
    "  99  batch: the file could not be loaded, or an option was refused\n";

// The record of a finished batch run, left to the end of the process. The
// pointer is volatile: the store to it is never read back, and the compiler
// would otherwise drop it, leaving the record unreachable to leak checkers.
CfgModel *volatile finishedRecord = nullptr;

void printOut(const QByteArray &text)
{
    std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
    std::fflush(stdout);
}

} // namespace

bool handleInfoOption(const QStringList &args)
{
    if (args.size() != 2)
        return false;
    if (args.at(1) == QLatin1String("--help") || args.at(1) == QLatin1String("-h")) {
        printOut(QByteArray(usageText));
        return true;
    }
    if (args.at(1) == QLatin1String("--version")) {
        printOut(QByteArray("quva-cfg-editor " QUVA_VERSION "\n"));
        return true;
    }
    return false;
}

int runBatch(const QStringList &args)
{
    setOneShotLoading(true);
    std::unique_ptr<CfgModel> cfg = loadCfgFile(args.value(1), true, nullptr, QString()).model;
    if (!cfg) {
        reportMessage(MessageIcon::Critical, QStringLiteral("Loading .CfgXML file"),
                      QStringLiteral("error loading .CfgXML file"));
        return 99;
    }
    for (int i = 2; i < args.size(); ++i) {
        const BatchOptionResult result = applyBatchOption(*cfg, args.at(i));
        if (result.outcome == BatchOutcome::Refused) {
            reportMessage(MessageIcon::Critical, QStringLiteral("Quva CfgXML Editor Error"),
                          batchRefusalMessage(result.refusal, args.at(i)));
            return 99;
        }
    }
    // No window: the record's working space stays as it was read. Whether
    // the write succeeded does not change the exit code; a failure is told
    // on standard error only, where no box can hold up the caller.
    FileWriteFailure failure;
    if (!saveCfgFile(*cfg, nullptr, &failure)) {
        const QByteArray line = oneLineMessage(QStringLiteral("Saving .CfgXML file"),
                                               describeFileWriteFailure(failure))
                                    .toUtf8();
        std::fprintf(stderr, "%s\n", line.constData());
    }
    // The process ends with this path; the record is not taken apart piece
    // by piece, since nothing reads it again and the system takes the memory
    // back at once. It stays reachable so that leak checkers see no loss.
    finishedRecord = cfg.release();
    return 0;
}
