// The general engine on any text: it evaluates to a value, or refuses with a
// position inside the text; the list evaluated again gives the same value.

#include "fuzz_engine_setup.h"
#include "fuzz_entry.h"

#include "expr/engine_fast/mup_parser.h"

using namespace fuzzengine;

namespace {

bool sameValue(const mup::Value &a, const mup::Value &b)
{
    return a.GetType() == b.GetType() && quva::toBits(a.number()) == quva::toBits(b.number())
           && a.text() == b.text() && a.text().isNull() == b.text().isNull();
}

} // namespace

int fuzzFast(const uint8_t *data, size_t size)
{
    const QString expression = expressionOf(data, size);
    ExprContext context;
    prepareContext(context, expression);
    mup::Value values[numberCount + 2];
    mup::ParserX parser(mup::pckCOMMON | mup::pckNON_COMPLEX | mup::pckSTRING | mup::pckUNIT);
    for (int i = 0; i < numberCount; ++i) {
        values[i] = numberValues[i];
        parser.DefineVar(QLatin1String(numberNames[i]), mup::Variable(&values[i]));
    }
    values[numberCount] = QStringLiteral("Paris");
    values[numberCount + 1] = QString();
    for (int i = 0; i < 2; ++i)
        parser.DefineVar(QLatin1String(textNames[i]), mup::Variable(&values[numberCount + i]));
    registerFastFunctions(parser, &context);
    try {
        parser.SetExpr(expression);
        const mup::Value first = parser.Eval();
        const mup::Value second = parser.Eval();
        fuzzCheck(sameValue(first, second) || !repeatable(expression), "the same value twice");
    } catch (const mup::ParserError &e) {
        fuzzCheck(e.GetPos() >= -1 && e.GetPos() <= expression.size() + 1,
                  "the error's position lies in the text");
    }
    return 0;
}

QUVA_FUZZ_ENTRY(fuzzFast)
