// quva-expr run as a process: the three lines it prints for a sample of each
// family of functions, the binding of variables, the options of the context,
// and its failures.

#include <QProcess>
#include <QProcessEnvironment>
#include <QtTest>

class tst_quva_expr_tool : public QObject
{
    Q_OBJECT

private slots:
    void output_data();
    void output();
    void failureGoesToStandardError();
    void badCommandLine_data();
    void badCommandLine();
    void localTimeWithoutUtc();
    void help_data();
    void help();
};

namespace {

struct Run
{
    int exitCode = -1;
    QString out;
    QString err;
};

Run runTool(const QStringList &args, const QProcessEnvironment &env =
                                          QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(QUVA_EXPR_TOOL), args);
    Run run;
    if (!process.waitForFinished(30000)) {
        process.kill();
        process.waitForFinished();
        return run;
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

QString lines(const char *engine, const char *check, const QString &value)
{
    return QStringLiteral("engine: %1\ncheck: %2\nvalue: %3\n")
        .arg(QString::fromLatin1(engine), QString::fromLatin1(check), value);
}

} // namespace

void tst_quva_expr_tool::output_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("expected");
    const QStringList utcDays = {"--utc", "--date-format", "yyyy-MM-dd", "--et-unit", "3"};
    const double firstDraw = 3499211612u * 2.3283064365386963e-10;
    const QString drawText = QString::number(firstDraw, 'g', 17);

    QTest::newRow("NULL variable") << QStringList{"-n", "x=nan", "isNull(x)"}
                                   << lines("Fastest parser", "true", "d 1");
    QTest::newRow("NULL") << QStringList{"_null"} << lines("Fastest parser", "true", "d NULL");
    QTest::newRow("17 digits") << QStringList{"1/3"}
                               << lines("Fastest parser", "true", "d 0.33333333333333331");
    QTest::newRow("later binding wins") << QStringList{"-n", "a=1", "-n", "a=2", "a == 2"}
                                        << lines("Fastest parser", "true", "d 1");
    QTest::newRow("addn") << QStringList{"--addn", "_n_max"}
                          << lines("Fastest parser", "true", "d 1");
    QTest::newRow("seed") << QStringList{"--seed", "5489", "rand1()"}
                          << lines("Fastest parser", "true", "d " + drawText);
    QTest::newRow("numeric in Fast") << QStringList{"nvl(_nullS,\"x\")"}
                                     << lines("Fast parser", "false", "s \"x\"");
    QTest::newRow("conversion") << QStringList{"ftoa(1234567)"}
                                << lines("Fast parser", "false", "s \"1.23457e+06\"");
    QTest::newRow("escaped string") << QStringList{"-s", "s=a\"b\\c", "s"}
                                    << lines("Fast parser", "false", "s \"a\\\"b\\\\c\"");
    QTest::newRow("null string") << QStringList{"_nullS"}
                                 << lines("Fast parser", "false", "s nullS");
    QTest::newRow("string function") << QStringList{"-s", "s=abc", "indexOf(s,\"c\")"}
                                     << lines("Fast parser", "true", "i 2");
    QTest::newRow("boolean") << QStringList{"startsWith(\"abc\",\"B\")"}
                             << lines("Fast parser", "false", "b 0");
    QTest::newRow("NULL boolean") << QStringList{"\"a\" == _nullS"}
                                  << lines("Fast parser", "true", "b NULL");
    QTest::newRow("ipv4") << QStringList{"ip4tof(\"1.2.3.4\")"}
                          << lines("Fast parser", "true", "i 16909060");
    QTest::newRow("ipv4 range") << QStringList{"ip4RangeHigh(\"10.1.2.3/8\")"}
                                << lines("Fast parser", "true", "i 184549376");
    QTest::newRow("toET") << (utcDays + QStringList{"toET(\"1970-01-02\")"})
                          << lines("Fastest parser", "true", "d 1");
    QTest::newRow("toDate with origin")
        << (utcDays + QStringList{"--et-origin", "20000101 00:00:00", "toDate(1)"})
        << lines("Fast parser", "false", "s \"2000-01-02\"");
    QTest::newRow("dateDiffInMonth")
        << (utcDays + QStringList{"dateDiffInMonth(\"2021-01-31\",\"2021-02-01\")"})
        << lines("Fast parser", "true", "i 1");
    QTest::newRow("no format") << QStringList{"toET(\"1970-01-02\")"}
                               << lines("Fastest parser", "true", "d NULL");
    QTest::newRow("empty") << QStringList{""} << lines("??? parser", "", "none");
}

void tst_quva_expr_tool::output()
{
    QFETCH(QStringList, args);
    QFETCH(QString, expected);
    const Run run = runTool(args);
    QCOMPARE(run.out, expected);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.exitCode, 0);
}

void tst_quva_expr_tool::failureGoesToStandardError()
{
    const Run run = runTool({"-n", "x=1", "x + y"});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, lines("??? parser", "", "none"));
    QCOMPARE(run.err, QStringLiteral("Undefined token \"y\" found at position 4\n"
                                     "  Error Token:y\n  Error at position:4\n"));
}

void tst_quva_expr_tool::badCommandLine_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::newRow("no expression") << QStringList{};
    QTest::newRow("option without value") << QStringList{"1", "--et-unit"};
    QTest::newRow("unit no number") << QStringList{"--et-unit", "x", "1"};
    QTest::newRow("binding without name") << QStringList{"-n", "=3", "1"};
    QTest::newRow("unknown option") << QStringList{"--frobnicate", "1"};
    QTest::newRow("two expressions") << QStringList{"1", "2"};
    QTest::newRow("no number for -n") << QStringList{"-n", "x=abc", "x"};
    QTest::newRow("empty number for -n") << QStringList{"-n", "x=", "x"};
}

void tst_quva_expr_tool::badCommandLine()
{
    QFETCH(QStringList, args);
    const Run run = runTool(args);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QVERIFY(run.err.contains(QLatin1String("usage: quva-expr")));
}

void tst_quva_expr_tool::localTimeWithoutUtc()
{
    // One hour east of UTC the 2nd of January begins 23 hours after the
    // origin of 1970 in UTC.
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("TZ"), QStringLiteral("CET-1"));
    const Run local = runTool({"--date-format", "yyyy-MM-dd", "--et-unit", "2",
                               "toET(\"1970-01-02\")"},
                              env);
    QCOMPARE(local.out, lines("Fastest parser", "true", "d 23"));
    const Run utc = runTool({"--utc", "--date-format", "yyyy-MM-dd", "--et-unit", "2",
                             "toET(\"1970-01-02\")"},
                            env);
    QCOMPARE(utc.out, lines("Fastest parser", "true", "d 24"));
}

void tst_quva_expr_tool::help_data()
{
    QTest::addColumn<QString>("option");
    QTest::newRow("--help") << "--help";
    QTest::newRow("-h") << "-h";
}

void tst_quva_expr_tool::help()
{
    QFETCH(QString, option);
    const Run run = runTool({option});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    for (const char *piece : {"usage: quva-expr", "-n NAME=NUMBER", "-s NAME=TEXT", "--addn",
                              "--seed", "--date-format", "--et-origin", "--et-unit", "--utc",
                              "Exit status"})
        QVERIFY2(run.out.contains(QLatin1String(piece)), piece);
}

QTEST_GUILESS_MAIN(tst_quva_expr_tool)
#include "tst_quva_expr_tool.moc"
