// The compiled engine on any text: it compiles and evaluates, or refuses
// with a position inside the text; a compiled expression evaluated again
// gives the same bits.

#include "fuzz_engine_setup.h"
#include "fuzz_entry.h"

#include "expr/engine_fastest/mu_parser.h"

using namespace fuzzengine;

int fuzzFastest(const uint8_t *data, size_t size)
{
    const QString expression = expressionOf(data, size);
    ExprContext context;
    prepareContext(context, expression);
    double numbers[numberCount];
    mu::Parser parser(&context);
    for (int i = 0; i < numberCount; ++i) {
        numbers[i] = numberValues[i];
        parser.DefineVar(toStdWString(QLatin1String(numberNames[i])), &numbers[i]);
    }
    registerFastestFunctions(parser, &context);
    const std::wstring text = toStdWString(expression);
    try {
        parser.SetExpr(text);
        const quint64 first = quva::toBits(parser.Eval());
        const quint64 second = quva::toBits(parser.Eval());
        fuzzCheck(first == second || !repeatable(expression), "the same value twice");
    } catch (const mu::ParserError &e) {
        fuzzCheck(e.GetPos() >= -1 && e.GetPos() <= static_cast<int>(text.size()),
                  "the error's position lies in the text");
    }
    return 0;
}

QUVA_FUZZ_ENTRY(fuzzFastest)
