#pragma once

#include "expr/engine_fast/mup_callback.h"
#include "expr/engine_fast/mup_value_reader.h"
#include "expr/engine_fast/mup_variable.h"

#include <QString>

#include <map>
#include <memory>
#include <vector>

// Everything that a ParserX knows by name. The maps are sorted by name, so a
// walk from the back tries longer operator names before their own beginnings.

namespace mup {

struct Symbols
{
    std::map<QString, std::unique_ptr<IOprtBin>> binaryOperators;
    std::map<QString, std::unique_ptr<IOprtInfix>> prefixOperators;
    std::map<QString, std::unique_ptr<IOprtPostfix>> postfixOperators;
    std::map<QString, std::unique_ptr<ICallback>> functions;
    std::map<QString, Variable> variables;
    std::map<QString, Value> constants;
    std::vector<std::unique_ptr<IValueReader>> valueReaders;
};

} // namespace mup
