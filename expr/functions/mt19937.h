#pragma once

#include <QtGlobal>

struct ExprContext;
struct ExprRandomState;

// The generator behind rand, rand1 and randN: MT19937, with the classic
// seeding recurrence (multiplier 1812433253), tempering and regeneration.
// Its state lives in the ExprContext so that a check with a fixed seed draws
// the same numbers every time.

// Seeds the state. A seed of -1 takes the millisecond part (0 to 999) of the
// current time instead.
void seedRandom(ExprRandomState &state, qint32 seed);

// Seeds the state from the context's randomSeed.
void seedRandomFromContext(ExprContext &context);

// The next 32-bit number. A state that was never seeded (index 625) seeds
// itself with 5489 first.
quint32 nextRandom(ExprRandomState &state);
