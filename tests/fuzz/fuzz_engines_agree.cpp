// The two engines on the numeric expressions where the language says they
// must agree, built from the fuzzer's bytes by the generator of the
// differential test: the same bits from both, on rows of values also drawn
// from the bytes.

#include "fuzz_entry.h"

#include "../expr_agreement.h"

#include <cstdio>

namespace {

// Each choice takes one byte; once they run out every choice is the lowest,
// which ends the expression at its next leaf.
struct ByteChoices
{
    const uint8_t *data;
    size_t size;
    size_t used = 0;
    int pick(int lo, int hi)
    {
        if (used >= size)
            return lo;
        return lo + data[used++] % (hi - lo + 1);
    }
};

} // namespace

int fuzzEnginesAgree(const uint8_t *data, size_t size)
{
    agreement::Generator<ByteChoices> gen(ByteChoices{data, size});
    const QString expression = gen.expression();
    agreement::Engines engines;
    try {
        engines.setExpr(expression);
        for (int r = 0; r < 4; ++r) {
            double row[agreement::varCount];
            gen.row(row);
            engines.set(row);
            const double fastest = engines.evalFastest();
            const double fast = engines.evalFast();
            if (!agreement::sameResult(fastest, fast)) {
                std::fprintf(stderr, "%s: %s against %s\n", qPrintable(expression),
                             qPrintable(agreement::bitsText(fastest)),
                             qPrintable(agreement::bitsText(fast)));
                fuzzFail("both engines give the same bits");
            }
        }
    } catch (const mu::ParserError &) {
        fuzzFail("the compiled engine refused a generated expression");
    } catch (const mup::ParserError &) {
        fuzzFail("the general engine refused a generated expression");
    }
    return 0;
}

QUVA_FUZZ_ENTRY(fuzzEnginesAgree)
