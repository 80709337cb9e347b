#include "expr/functions/mt19937.h"

#include "expr/expr_context.h"

#include <QTime>

namespace {

constexpr int stateSize = 624;
constexpr int shiftSize = 397;
constexpr quint32 matrixA = 0x9908B0DFu;
constexpr quint32 upperMask = 0x80000000u;
constexpr quint32 lowerMask = 0x7FFFFFFFu;
constexpr quint32 neverSeeded = 625;
constexpr quint32 defaultSeed = 5489u;

void seedWords(ExprRandomState &state, quint32 seed)
{
    state.words[0] = seed;
    for (int i = 1; i < stateSize; ++i) {
        const quint32 previous = state.words[i - 1];
        state.words[i] = 1812433253u * (previous ^ (previous >> 30)) + static_cast<quint32>(i);
    }
    state.index = stateSize;
}

quint32 twist(quint32 current, quint32 next, quint32 far)
{
    const quint32 y = (current & upperMask) | (next & lowerMask);
    return far ^ (y >> 1) ^ ((y & 1u) ? matrixA : 0u);
}

void regenerate(ExprRandomState &state)
{
    quint32 *w = state.words;
    for (int i = 0; i < stateSize; ++i)
        w[i] = twist(w[i], w[(i + 1) % stateSize], w[(i + shiftSize) % stateSize]);
    state.index = 0;
}

} // namespace

void seedRandom(ExprRandomState &state, qint32 seed)
{
    const quint32 value = seed == -1 ? static_cast<quint32>(QTime::currentTime().msec())
                                     : static_cast<quint32>(seed);
    seedWords(state, value);
}

void seedRandomFromContext(ExprContext &context)
{
    seedRandom(context.random, context.randomSeed);
}

quint32 nextRandom(ExprRandomState &state)
{
    if (state.index >= neverSeeded)
        seedWords(state, defaultSeed);
    if (state.index >= static_cast<quint32>(stateSize))
        regenerate(state);
    quint32 y = state.words[state.index++];
    y ^= y >> 11;
    y ^= (y << 7) & 0x9D2C5680u;
    y ^= (y << 15) & 0xEFC60000u;
    y ^= y >> 18;
    return y;
}
