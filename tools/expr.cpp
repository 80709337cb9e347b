// quva-expr: tries one expression on the two engines as the editor's check
// does, and prints what the window would show and the value itself.
//
//   quva-expr [-n NAME=NUMBER]... [-s NAME=TEXT]... [--addn] [--seed N]
//             [--date-format FORMAT] [--et-origin "yyyyMMdd hh:mm:ss"]
//             [--et-unit 0..4] [--utc] EXPRESSION
//
// Standard output gets three lines: "engine: <label>", "check: <text>" and
// "value: <type> <value>". A failure writes the engine's message to standard
// error and exits with 1; a bad command line exits with 2; --help prints the
// usage and exits with 0.

#include "expr/null_value.h"
#include "expr/parser_facade.h"

#include <QCoreApplication>
#include <QStringList>
#include <QTextStream>

#include <cstdio>

namespace {

struct ToolOptions
{
    QVector<InputVar> inputVars;
    ExprContext context;
    bool addN = false;
    QString expression;
    bool haveExpression = false;
};

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

QTextStream &err()
{
    static QTextStream stream(stderr);
    return stream;
}

const char usage[] =
    "usage: quva-expr [-n NAME=NUMBER]... [-s NAME=TEXT]... [--addn] [--seed N]\n"
    "                 [--date-format FORMAT] [--et-origin \"yyyyMMdd hh:mm:ss\"]\n"
    "                 [--et-unit 0..4] [--utc] EXPRESSION\n"
    "       quva-expr --help | --version\n";

const char help[] =
    "\n"
    "Checks EXPRESSION as the editor does: the \"Fastest parser\" first, then the\n"
    "\"Fast parser\", with the variables bound in the order given.\n"
    "\n"
    "  -n NAME=NUMBER      a numeric variable; the text nan binds NULL\n"
    "  -s NAME=TEXT        a text variable\n"
    "  --addn              the check's \"add N\" switch\n"
    "  --seed N            seed of the random functions\n"
    "  --date-format F     the date format of the date functions\n"
    "  --et-origin T       origin of elapsed times, \"yyyyMMdd hh:mm:ss\"\n"
    "  --et-unit U         unit of elapsed times, 0 to 4\n"
    "  --utc               dates in UTC\n"
    "  -h, --help          this text\n"
    "  --version           the version\n"
    "\n"
    "Standard output gets \"engine: <label>\", \"check: <text>\" and\n"
    "\"value: <type> <value>\". Exit status: 0 the expression gave a value,\n"
    "1 it failed (the engine's message on standard error), 2 the command line\n"
    "could not be used.\n";

bool readNumber(const QString &text, double *target)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (ok)
        *target = value;
    return ok;
}

// NAME=VALUE into a variable; the number text "nan" binds NULL. Text that
// is no number is refused: on the command line it is a typing error, not a
// value (the editor's table, where it counts as 0, keeps its own rule).
bool addVariable(const QString &binding, bool isNumber, QVector<InputVar> *vars)
{
    const int equals = binding.indexOf(QLatin1Char('='));
    if (equals <= 0)
        return false;
    InputVar var;
    var.label = binding.left(equals);
    var.column = QStringList(var.label);
    var.isNumber = isNumber;
    const QString value = binding.mid(equals + 1);
    if (!isNumber)
        var.stringValue = value;
    else if (value == QLatin1String("nan"))
        var.value = quva::nullValue();
    else if (!readNumber(value, &var.value))
        return false;
    vars->append(var);
    return true;
}

bool readInteger(const QString &text, qint32 *target)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    if (ok)
        *target = value;
    return ok;
}

// Reads the command line; false with a message for anything it cannot use.
bool parseArguments(const QStringList &args, ToolOptions *options)
{
    ExprContext &c = options->context;
    for (int i = 1; i < args.size(); ++i) {
        const QString &arg = args.at(i);
        const bool hasValue = i + 1 < args.size();
        const QString value = hasValue ? args.at(i + 1) : QString();
        bool ok = true;
        if (arg == QLatin1String("-n") || arg == QLatin1String("-s")) {
            ok = hasValue && addVariable(value, arg == QLatin1String("-n"), &options->inputVars);
            ++i;
        } else if (arg == QLatin1String("--addn")) {
            options->addN = true;
        } else if (arg == QLatin1String("--seed")) {
            ok = hasValue && readInteger(value, &c.randomSeed);
            ++i;
        } else if (arg == QLatin1String("--date-format")) {
            ok = hasValue;
            c.dateFormatKind = 0;
            c.dateFormatText = value;
            ++i;
        } else if (arg == QLatin1String("--et-origin")) {
            ok = hasValue;
            c.etOriginText = value;
            ++i;
        } else if (arg == QLatin1String("--et-unit")) {
            ok = hasValue && readInteger(value, &c.etUnit);
            ++i;
        } else if (arg == QLatin1String("--utc")) {
            c.useUtc = true;
        } else if (!options->haveExpression && !(arg.startsWith(QLatin1String("--")))) {
            options->expression = arg;
            options->haveExpression = true;
        } else {
            ok = false;
        }
        if (!ok) {
            err() << "quva-expr: cannot use the argument '" << arg;
            if (hasValue && (arg == QLatin1String("-n") || arg == QLatin1String("-s")))
                err() << ' ' << value << "': NAME=VALUE expected"
                      << (arg == QLatin1String("-n") ? ", VALUE a number or nan" : "");
            else
                err() << '\'';
            err() << '\n' << usage;
            return false;
        }
    }
    if (!options->haveExpression) {
        err() << usage;
        return false;
    }
    return true;
}

QString printedNumber(double d)
{
    if (quva::isNull(d))
        return QStringLiteral("NULL");
    return QString::number(d, 'g', 17);
}

QString quoted(const QString &text)
{
    if (text.isNull())
        return QStringLiteral("nullS");
    QString escaped = text;
    escaped.replace(QLatin1String("\\"), QLatin1String("\\\\"));
    escaped.replace(QLatin1String("\""), QLatin1String("\\\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

QString printedValue(const ExpressionCheck &check)
{
    switch (check.valueType.unicode()) {
    case ' ': return QStringLiteral("none");
    case 's': return QStringLiteral("s ") + quoted(check.text);
    case 'v': return QStringLiteral("v void");
    default: return QString(check.valueType) + QLatin1Char(' ') + printedNumber(check.number);
    }
}

bool isHelpRequest(const QStringList &args)
{
    return args.size() == 2
           && (args.at(1) == QLatin1String("--help") || args.at(1) == QLatin1String("-h"));
}

bool isVersionRequest(const QStringList &args)
{
    return args.size() == 2 && args.at(1) == QLatin1String("--version");
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (isHelpRequest(QCoreApplication::arguments())) {
        out() << usage << help;
        return 0;
    }
    if (isVersionRequest(QCoreApplication::arguments())) {
        out() << "quva-expr " QUVA_VERSION "\n";
        return 0;
    }
    ToolOptions options;
    if (!parseArguments(QCoreApplication::arguments(), &options))
        return 2;
    const ExpressionCheck check = checkExpressionCore(options.expression, options.addN,
                                                      options.context, &options.inputVars);
    out() << "engine: " << check.engineLabel << '\n';
    out() << "check: " << check.valueText << '\n';
    out() << "value: " << printedValue(check) << '\n';
    out().flush();
    if (check.failed) {
        err() << check.message << '\n';
        return 1;
    }
    return 0;
}
