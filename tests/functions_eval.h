#pragma once

// Shared by the tests of the functions of the language: evaluates one
// expression in either engine with the functions registered, and describes
// the outcome in one short text ("i 3", "b 1", "f NULL", "s \"ab\"",
// "s nullS", "error 19", "d 2.5") so that test rows read like the language.

#include "expr/engine_fast/mup_parser.h"
#include "expr/engine_fastest/mu_parser.h"
#include "expr/expr_context.h"
#include "expr/functions/register_functions.h"
#include "expr/null_value.h"
#include "expr/parser_facade.h"

#include <QMetaType>
#include <QTest>
#include <QSharedPointer>
#include <QString>

#include <memory>

// Rows of the description tests hold a callback object.
Q_DECLARE_METATYPE(QSharedPointer<mup::ICallback>)

inline QString describeNumber(double d)
{
    if (quva::isNull(d))
        return QStringLiteral("NULL");
    if (quva::isNanBits(d))
        return QStringLiteral("nan");
    if (d != d)
        return QStringLiteral("nan:") + QString::number(quva::toBits(d), 16);
    return QString::number(d, 'g', 17);
}

inline QString describeValue(const mup::Value &v)
{
    const QChar type = v.GetType();
    if (type == QLatin1Char('s')) {
        if (v.text().isNull())
            return QStringLiteral("s nullS");
        return QStringLiteral("s \"") + v.text() + QLatin1Char('"');
    }
    return QString(type) + QLatin1Char(' ') + describeNumber(v.number());
}

// The Fast parser with every function of the language. `context` may be
// null for a fresh one.
inline QString evalFast(const QString &expression, ExprContext *context = nullptr,
                        QString *message = nullptr)
{
    ExprContext fresh;
    ExprContext *c = context ? context : &fresh;
    mup::ParserX parser(mup::pckALL_NON_COMPLEX);
    registerFastFunctions(parser, c);
    try {
        parser.SetExpr(expression);
        const mup::Value result = parser.Eval();
        return describeValue(result);
    } catch (const mup::ParserError &e) {
        if (message)
            *message = e.GetMsg();
        return QStringLiteral("error %1").arg(int(e.GetCode()));
    }
}

// The compiled engine with its functions; "error" when it refuses.
inline QString evalFastest(const QString &expression, ExprContext *context = nullptr)
{
    ExprContext fresh;
    ExprContext *c = context ? context : &fresh;
    mu::Parser parser(c);
    registerFastestFunctions(parser, c);
    try {
        parser.SetExpr(toStdWString(expression));
        return QStringLiteral("d ") + describeNumber(parser.Eval());
    } catch (const mu::ParserError &) {
        return QStringLiteral("error");
    }
}

// The description tests: one row per function class, holding the callback,
// the name it registers under, its argument count and its help text.
inline void addDescriptionColumns()
{
    QTest::addColumn<QSharedPointer<mup::ICallback>>("callback");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("argc");
    QTest::addColumn<QString>("description");
}

inline void descriptionRow(mup::ICallback *f, const char *name, int argc, const QString &desc)
{
    QTest::newRow(name) << QSharedPointer<mup::ICallback>(f) << QString::fromLatin1(name) << argc
                        << desc;
}

// Checks the current row; a clone must describe itself the same way.
inline void checkDescription()
{
    QFETCH(QSharedPointer<mup::ICallback>, callback);
    QFETCH(QString, name);
    QFETCH(int, argc);
    QFETCH(QString, description);
    QCOMPARE(callback->GetIdent(), name);
    QCOMPARE(callback->GetArgc(), argc);
    QCOMPARE(callback->GetCode(), mup::cmFUNC);
    QCOMPARE(callback->GetDesc(), description);
    QVERIFY(!callback->IsVolatile());
    std::unique_ptr<mup::ICallback> copy(callback->Clone());
    QCOMPARE(copy->GetDesc(), description);
    QCOMPARE(copy->GetIdent(), name);
}
