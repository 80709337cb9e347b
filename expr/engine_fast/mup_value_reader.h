#pragma once

#include "expr/engine_fast/mup_value.h"

// Readers of literals, tried by the token reader in the order in which they
// were added. Each looks at `expr` from `pos`; on success it sets `value`,
// moves `pos` behind the literal and answers true.

namespace mup {

class IValueReader
{
public:
    virtual ~IValueReader() = default;
    virtual bool IsValue(const QString &expr, int &pos, Value &value) const = 0;
};

// "text", with \\ and \" as the only escapes; code 16 if unterminated.
class StrValReader final : public IValueReader
{
public:
    bool IsValue(const QString &expr, int &pos, Value &value) const override;
};

// 0x followed by hexadecimal digits.
class HexValReader final : public IValueReader
{
public:
    bool IsValue(const QString &expr, int &pos, Value &value) const override;
};

// A decimal number, read by the program's own number reader.
class DblValReader final : public IValueReader
{
public:
    bool IsValue(const QString &expr, int &pos, Value &value) const override;
};

// true and false.
class BoolValReader final : public IValueReader
{
public:
    bool IsValue(const QString &expr, int &pos, Value &value) const override;
};

// # followed by at most 31 binary digits.
class BinValReader final : public IValueReader
{
public:
    static constexpr int maxDigits = 31;
    bool IsValue(const QString &expr, int &pos, Value &value) const override;
};

} // namespace mup
