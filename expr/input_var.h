#pragma once

#include <QByteArray>
#include <QChar>
#include <QString>
#include <QStringList>

class XmlNode;

// One variable of an expression: a name usable in a formula, bound to a
// column of the dataset, with the value the expression is checked against.
// A plain value record, copied freely; lists of them live in the CfgModel.
struct InputVar
{
    // The dataset column as the first element; only that one is used.
    QStringList column;
    // The name in the expression. Two variables of a list may share it.
    QString label;
    // The current value while isNumber is false.
    QString stringValue;
    // The column's display label; empty when it is the column name itself.
    QString label2;
    // One-letter type of the column as the description gives it ('N' nominal).
    QChar meta = QLatin1Char('U');
    // The current value while isNumber is true.
    double value = 0.0;
    bool isNumber = true;

    InputVar() = default;
    // A number variable named after the column; its strings stay null.
    InputVar(const QString &columnName, QChar metaType, double number);
    // A string variable named after the column; its number is 0.
    InputVar(const QString &columnName, QChar metaType, const QString &text);
    // Reads an <InputVar> element. A missing label is the column name as it
    // stands, even when that is no legal identifier.
    explicit InputVar(const XmlNode &element);
};

// A legal expression identifier made from a column name: trimmed, every
// character other than 0-9, a-z, A-Z and '_' replaced by '_', and a '_' put
// in front of a leading digit. "2014 sales (€)" gives "_2014_sales____".
QString makeVarName(const QString &name);

// Appends the element as one line of a configuration file:
//     <InputVar column='C' label='L' label2='M' isNumber='0' meta='T' value='V'/>
// label only when it differs from the column, label2 only when not empty,
// isNumber only for a string variable. A number is written in the files'
// six-digit form, so NULL goes out as "nan" and comes back as a plain NaN.
void appendInputVarXml(QByteArray &out, const InputVar &var);
