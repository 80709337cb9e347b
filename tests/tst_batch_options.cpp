#include "core/batch_option_parse.h"
#include "core/batch_options.h"
#include "core/cfg_load.h"
#include "core/cfg_model.h"

#include <QtTest>

#include <climits>
#include <cmath>
#include <functional>
#include <memory>

Q_DECLARE_METATYPE(BatchAction)
Q_DECLARE_METATYPE(BatchOutcome)

namespace {

// The configuration in data/batch, loaded afresh for each check; it is
// never saved from here.
std::unique_ptr<CfgModel> loadFixture()
{
    const QString path = QStringLiteral(QUVA_TEST_DATA "/batch/batch");
    return loadCfgFile(path, false, nullptr, QString()).model;
}

// The fixture's fi values: the derived byte of each column, 'I' on loc 12.
QByteArray fixtureActivity()
{
    return QByteArray("\0\1\1\1\1\0\1\0\1\1\0\1I\0\0\0\0", 17);
}

QByteArray activity(const CfgModel &cfg)
{
    return QByteArray(cfg.fi, cfg.columnCount());
}

template <typename T>
QVector<T> columnValues(const T *array, int count)
{
    return QVector<T>(array, array + count);
}

} // namespace

class tst_batch_options : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data();
    void refusals();
    void silentForms_data();
    void silentForms();
    void numbers_data();
    void numbers();
    void texts_data();
    void texts();
    void patterns_data();
    void patterns();
    void expressions_data();
    void expressions();
    void refusalMessage_data();
    void refusalMessage();
    void truncation_data();
    void truncation();

    void fixtureColumns();
    void outcome_data();
    void outcome();
    void columnActivity_data();
    void columnActivity();
    void singleChoice_data();
    void singleChoice();
    void expressionVars();
    void expressionReplacesList();
    void firstColumnOfVars_data();
    void firstColumnOfVars();
    void columnPenality();
    void fields_data();
    void fields();
};

// ---------------------------------------------------------------- refusals

void tst_batch_options::refusals_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<int>("refusal");

    const int none = kRefusalWithoutNumber;
    QTest::newRow("empty") << "" << none;
    QTest::newRow("dash alone") << "-" << none;
    QTest::newRow("one letter") << "x" << none;
    QTest::newRow("no dash") << "seed=1" << none;
    QTest::newRow("slash") << "/I=x" << none;

    QTest::newRow("-AUC=") << "-AUC=5" << 2;
    QTest::newRow("-aucmax without =") << "-aucmax5" << 2;
    QTest::newRow("-AUCMAX: too short for its prefix") << "-AUCMAX" << 2;
    QTest::newRow("-A=") << "-A=" << 2;
    QTest::newRow("-A") << "-A" << 2;
    QTest::newRow("-Ix=") << "-Ix=a" << 2;
    QTest::newRow("-i=") << "-i=" << 2;
    QTest::newRow("-f") << "-f" << 2;
    QTest::newRow("-F:") << "-F:abc" << 2;

    QTest::newRow("-W") << "-W" << 3;
    QTest::newRow("-w=") << "-w=" << 3;
    QTest::newRow("-Wx=") << "-Wx=a" << 3;

    QTest::newRow("-T") << "-T" << 4;
    QTest::newRow("-T=") << "-T=" << 4;
    QTest::newRow("-TC") << "-TC" << 4;
    QTest::newRow("-TCx") << "-TCxa" << 4;
    QTest::newRow("-tE:") << "-tE:a;b;c" << 4;

    QTest::newRow("-TE two parts") << "-TE=a;b" << 5;
    QTest::newRow("-te empty") << "-te=" << 5;
    QTest::newRow("-TE no ;") << "-TE=a>1" << 5;

    QTest::newRow("-L") << "-L" << 6;
    QTest::newRow("-LF") << "-LF" << 6;
    QTest::newRow("-L=ab") << "-L=ab" << 6;
    QTest::newRow("-lFx") << "-lFxab" << 6;

    QTest::newRow("-LE two parts") << "-LE=a;b" << 7;
    QTest::newRow("-le one part") << "-le=x>1" << 7;

    QTest::newRow("-p") << "-p" << 8;
    QTest::newRow("-p1=") << "-p1=" << 8;
    QTest::newRow("-p1x5") << "-p1x5" << 8;
    QTest::newRow("-pe without ;") << "-pe=3" << 8;
    QTest::newRow("-px") << "-px" << 8;

    QTest::newRow("-px=") << "-px=1" << 9;
    QTest::newRow("-pR=") << "-pR=1" << 9;
    QTest::newRow("-pE=") << "-pE=1;a" << 9;

    QTest::newRow("-cp=") << "-cp=4" << 10;
    QTest::newRow("-cpus=") << "-cpus=4" << 10;
    QTest::newRow("-cpU=") << "-cpU=4" << 10;
    QTest::newRow("-cp") << "-cp" << 10;

    QTest::newRow("-cm") << "-cm" << 11;
    QTest::newRow("-cm= without ;") << "-cm=1" << 11;
    QTest::newRow("-cmx") << "-cmx1;a" << 11;

    QTest::newRow("-s") << "-s" << 12;
    QTest::newRow("-seed") << "-seed" << 12;
    QTest::newRow("-sed=") << "-sed=1" << 12;
    QTest::newRow("-seeD=") << "-seeD=1" << 12;

    QTest::newRow("-m") << "-m" << 13;
    QTest::newRow("-mn=") << "-mn=" << 13;
    QTest::newRow("-mnx5") << "-mnx5" << 13;
    QTest::newRow("-mv without ;") << "-mv=5" << 13;

    QTest::newRow("-mx=") << "-mx=1" << 14;
    QTest::newRow("-mN=") << "-mN=1" << 14;

    QTest::newRow("-P1=") << "-P1=1" << 15;
    QTest::newRow("-C") << "-Cpu=1" << 15;
    QTest::newRow("-Seed=") << "-Seed=1" << 15;
    QTest::newRow("-M") << "-Mn=1" << 15;
    QTest::newRow("-x") << "-x" << 15;
    QTest::newRow("-9") << "-9" << 15;
    QTest::newRow("--help") << "--help" << 15;
    QTest::newRow("non-ASCII") << QString::fromUtf8("-\xc3\xa9=1") << 15;
}

void tst_batch_options::refusals()
{
    QFETCH(QString, option);
    QFETCH(int, refusal);
    const BatchOption o = parseBatchOption(option);
    QCOMPARE(o.action, BatchAction::Refuse);
    QCOMPARE(o.refusal, refusal);
}

// ---------------------------------------------------------------- silent forms

void tst_batch_options::silentForms_data()
{
    QTest::addColumn<QString>("option");
    QTest::newRow("-TX=") << "-TX=abc";
    QTest::newRow("-t1=") << "-t1=5";
    QTest::newRow("-T== is a pattern, -Tx= passes") << "-Tx=";
    QTest::newRow("-LX=") << "-LX=abc";
    QTest::newRow("-l1=") << "-l1=";
    QTest::newRow("-cx=") << "-cx=";
    QTest::newRow("-c") << "-c";
    QTest::newRow("-c=") << "-c=5";
    QTest::newRow("-cP=") << "-cP=5";
    QTest::newRow("-cM=") << "-cM=1;a";
}

void tst_batch_options::silentForms()
{
    QFETCH(QString, option);
    QCOMPARE(parseBatchOption(option).action, BatchAction::Pass);
}

// ---------------------------------------------------------------- values

void tst_batch_options::numbers_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<BatchAction>("action");
    QTest::addColumn<double>("number");

    QTest::newRow("-AUCMAX=85") << "-AUCMAX=85" << BatchAction::SetAUCmax << 85.0;
    QTest::newRow("-aucmax=85") << "-aucmax=85" << BatchAction::SetAUCmax << 85.0;
    QTest::newRow("-AuCmAx=12.5") << "-AuCmAx=12.5" << BatchAction::SetAUCmax << 12.5;
    QTest::newRow("-AUCMAX=100") << "-AUCMAX=100" << BatchAction::SetAUCmax << 100.0;
    QTest::newRow("-AUCMAX=abc") << "-AUCMAX=abc" << BatchAction::SetAUCmax << 0.0;
    QTest::newRow("-AUCMAX=") << "-AUCMAX=" << BatchAction::SetAUCmax << 0.0;
    QTest::newRow("-p1=") << "-p1=0.3" << BatchAction::SetP1 << 0.3;
    QTest::newRow("-p2=") << "-p2=0.6" << BatchAction::SetP2 << 0.6;
    QTest::newRow("-pr=") << "-pr=2.9" << BatchAction::SetPruning << 2.9;
    QTest::newRow("-pa=") << "-pa=-1" << BatchAction::SetAlpha << -1.0;
    QTest::newRow("-pl=") << "-pl=1e-3" << BatchAction::SetLambda << 0.001;
    QTest::newRow("-pl=x") << "-pl=x" << BatchAction::SetLambda << 0.0;
    QTest::newRow("-cpu=x") << "-cpu=x" << BatchAction::SetCpuCount << 0.0;
    QTest::newRow("-cpu=3.7") << "-cpu=3.7" << BatchAction::SetCpuCount << 3.7;
    QTest::newRow("-seed=1.9") << "-seed=1.9" << BatchAction::SetRandomSeed << 1.9;
    QTest::newRow("-seed=") << "-seed=" << BatchAction::SetRandomSeed << 0.0;
    QTest::newRow("-seed=7x") << "-seed=7x" << BatchAction::SetRandomSeed << 0.0;
    QTest::newRow("-mi=") << "-mi=0.03" << BatchAction::SetAllowedAUCLoss << 0.03;
    QTest::newRow("-mm=") << "-mm=1024.9" << BatchAction::SetMaxMemoryDS << 1024.9;
    QTest::newRow("-md=") << "-md=0.3" << BatchAction::SetMaxTargetDensity << 0.3;
    QTest::newRow("-mt=") << "-mt=0.25" << BatchAction::SetMaxTestDSSize << 0.25;
}

void tst_batch_options::numbers()
{
    QFETCH(QString, option);
    QFETCH(BatchAction, action);
    QFETCH(double, number);
    const BatchOption o = parseBatchOption(option);
    QCOMPARE(o.action, action);
    QCOMPARE(o.number, number);
}

void tst_batch_options::texts_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<BatchAction>("action");
    QTest::addColumn<QString>("text");

    QTest::newRow("-mn= keeps text") << "-mn=5%" << BatchAction::SetMinSizeNominal << "5%";
    QTest::newRow("-mn= no number formed") << "-mn=010.50" << BatchAction::SetMinSizeNominal
                                           << "010.50";
    QTest::newRow("-mo=") << "-mo=abc" << BatchAction::SetMinSizeOrdered << "abc";
    QTest::newRow("-LF=") << "-LF=lines/a b.txt" << BatchAction::SetLineSelectionFile
                          << "lines/a b.txt";
    QTest::newRow("-lf=") << "-lf=x" << BatchAction::SetLineSelectionFile << "x";
    QTest::newRow("-Lf= empty path") << "-Lf=" << BatchAction::SetLineSelectionFile << "";
}

void tst_batch_options::texts()
{
    QFETCH(QString, option);
    QFETCH(BatchAction, action);
    QFETCH(QString, text);
    const BatchOption o = parseBatchOption(option);
    QCOMPARE(o.action, action);
    QCOMPARE(o.text, text);
}

void tst_batch_options::patterns_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<BatchAction>("action");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<char>("activity");
    QTest::addColumn<double>("number");

    const BatchAction act = BatchAction::SetColumnActivity;
    QTest::newRow("-I") << "-I=*.Dummy.*" << act << "*.Dummy.*" << true << 'I' << 0.0;
    QTest::newRow("-i") << "-i=*.dummy.*" << act << "*.dummy.*" << false << 'I' << 0.0;
    QTest::newRow("-A") << "-A=BINARY.*" << act << "BINARY.*" << true << ' ' << 0.0;
    QTest::newRow("-a") << "-a=x" << act << "x" << false << ' ' << 0.0;
    QTest::newRow("-F") << "-F=x" << act << "x" << true << 'F' << 0.0;
    QTest::newRow("-f") << "-f=x" << act << "x" << false << 'F' << 0.0;
    QTest::newRow("-A=, third U") << "-AUCMAX" << BatchAction::Refuse << "" << false << '\0'
                                  << 0.0;
    QTest::newRow("-W") << "-W=Weight" << BatchAction::SetWeight << "Weight" << true << '\0'
                        << 0.0;
    QTest::newRow("-w") << "-w=weight" << BatchAction::SetWeight << "weight" << false << '\0'
                        << 0.0;
    // The target is matched in any case, whatever the case of its letter.
    const BatchAction tc = BatchAction::SetTargetColumn;
    QTest::newRow("-T=") << "-T=def*" << tc << "def*" << false << '\0' << 0.0;
    QTest::newRow("-t=") << "-t=x" << tc << "x" << false << '\0' << 0.0;
    QTest::newRow("-TC=") << "-TC=Age" << tc << "Age" << false << '\0' << 0.0;
    QTest::newRow("-tc=") << "-tc=Age" << tc << "Age" << false << '\0' << 0.0;
    QTest::newRow("-T==") << "-T==x" << tc << "=x" << false << '\0' << 0.0;
    const BatchAction pe = BatchAction::SetColumnPenality;
    QTest::newRow("-pe=") << "-pe=2;*.RTT.*" << pe << "*.RTT.*" << false << '\0' << 2.0;
    QTest::newRow("-pe= empty value") << "-pe=;x" << pe << "x" << false << '\0' << 0.0;
    QTest::newRow("-pe= empty pattern") << "-pe=2;" << pe << "" << false << '\0' << 2.0;
    QTest::newRow("-pe= third part dropped") << "-pe=1;a;b" << pe << "a" << false << '\0'
                                             << 1.0;
    QTest::newRow("-cm=") << "-cm=1;REG*" << BatchAction::SetVarCm << "REG*" << false << '\0'
                          << 1.0;
    QTest::newRow("-cm=0") << "-cm=0;x" << BatchAction::SetVarCm << "x" << false << '\0' << 0.0;
    QTest::newRow("-mv=") << "-mv=25;*a*" << BatchAction::SetVarMinSizeModality << "*a*"
                          << false << '\0' << 25.0;
}

void tst_batch_options::patterns()
{
    QFETCH(QString, option);
    QFETCH(BatchAction, action);
    QFETCH(QString, pattern);
    QFETCH(bool, caseSensitive);
    QFETCH(char, activity);
    QFETCH(double, number);
    const BatchOption o = parseBatchOption(option);
    QCOMPARE(o.action, action);
    if (action == BatchAction::Refuse)
        return;
    QCOMPARE(o.pattern, pattern);
    QCOMPARE(o.patternCase, caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
    QCOMPARE(o.activity, activity);
    QCOMPARE(o.number, number);
}

void tst_batch_options::expressions_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<BatchAction>("action");
    QTest::addColumn<QStringList>("numericVars");
    QTest::addColumn<QStringList>("stringVars");
    QTest::addColumn<QString>("text");

    const BatchAction te = BatchAction::SetTargetExpression;
    const BatchAction le = BatchAction::SetLineSelectionExpression;
    QTest::newRow("-TE=") << "-TE=a,,b;s1;a+b" << te << QStringList{"a", "b"}
                          << QStringList{"s1"} << "a+b";
    QTest::newRow("-te= all empty") << "-te=;;" << te << QStringList() << QStringList() << "";
    QTest::newRow("-Te= fourth part dropped") << "-Te=a;b;c;d" << te << QStringList{"a"}
                                              << QStringList{"b"} << "c";
    QTest::newRow("-LE=") << "-LE=n;;x > 1" << le << QStringList{"n"} << QStringList()
                          << "x > 1";
    QTest::newRow("-le= blanks kept") << "-le= a ,b;,t,;a" << le << QStringList{" a ", "b"}
                                      << QStringList{"t"} << "a";
}

void tst_batch_options::expressions()
{
    QFETCH(QString, option);
    QFETCH(BatchAction, action);
    QFETCH(QStringList, numericVars);
    QFETCH(QStringList, stringVars);
    QFETCH(QString, text);
    const BatchOption o = parseBatchOption(option);
    QCOMPARE(o.action, action);
    QCOMPARE(o.numericVars, numericVars);
    QCOMPARE(o.stringVars, stringVars);
    QCOMPARE(o.text, text);
}

void tst_batch_options::refusalMessage_data()
{
    QTest::addColumn<int>("refusal");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("message");

    QTest::newRow("no number") << kRefusalWithoutNumber << "x"
                               << "Syntax error in command-line option 'x'";
    QTest::newRow("2") << 2 << "-AUC=5" << "Syntax error (2) in command-line option '-AUC=5'";
    QTest::newRow("15") << 15 << "-Z" << "Syntax error (15) in command-line option '-Z'";
    QTest::newRow("percent in option") << 9 << "-p%=%1"
                                       << "Syntax error (9) in command-line option '-p%=%1'";
}

void tst_batch_options::refusalMessage()
{
    QFETCH(int, refusal);
    QFETCH(QString, option);
    QFETCH(QString, message);
    QCOMPARE(batchRefusalMessage(refusal, option), message);
}

void tst_batch_options::truncation_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("result");
    QTest::newRow("1.9") << 1.9 << 1;
    QTest::newRow("-1.9") << -1.9 << -1;
    QTest::newRow("0") << 0.0 << 0;
    QTest::newRow("1024.9") << 1024.9 << 1024;
    QTest::newRow("NaN") << std::nan("") << 0;
    QTest::newRow("huge") << 1e12 << INT_MAX;
    QTest::newRow("very negative") << -1e12 << INT_MIN;
    QTest::newRow("inf") << HUGE_VAL << INT_MAX;
}

void tst_batch_options::truncation()
{
    QFETCH(double, value);
    QFETCH(int, result);
    QCOMPARE(truncateOptionNumber(value), result);
}

// ---------------------------------------------------------------- on a record

// The column names the other checks and the golden files rely on.
void tst_batch_options::fixtureColumns()
{
    const auto cfg = loadFixture();
    QVERIFY(cfg);
    QStringList names;
    for (const DatasetColumn &c : cfg->desc->columns)
        names << columnFullName(c);
    const QStringList expected{
        "VALUE.RTT.Age", "VALUE.PASSTHROUGH.Age", "VALUE.Dummy.Age.missing",
        "VALUE.Dummy.Age.18 <x<= 30", "VALUE.Dummy.Age.30 <x<= 60", "VALUE.RTT.Income",
        "VALUE.PASSTHROUGH.Income", "NOMINAL.RTT.Region", "NOMINAL.Dummy.Region.North",
        "NOMINAL.Dummy.Region.South", "PROFILE.RTT.Job", "PROFILE.Dummy.Job.Unemployed",
        "BINARY.RTT.Home owner", "BINARY.RTT.Default", "BINARY.RTT.DEFAULT",
        "BINARY.RTT.Weight", "BINARY.RTT.weight"};
    QCOMPARE(names, expected);
    QCOMPARE(activity(*cfg), fixtureActivity());
    QCOMPARE(cfg->desc->vars.size(), 10);
    QCOMPARE(cfg->desc->vars.at(4)->name, QStringLiteral("empty_nom"));
    QCOMPARE(cfg->desc->vars.at(4)->columnCount, 0);
}

void tst_batch_options::outcome_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<BatchOutcome>("outcome");
    QTest::addColumn<int>("refusal");
    QTest::newRow("applied") << "-seed=4" << BatchOutcome::Applied << 0;
    QTest::newRow("applied, no match") << "-W=nothing" << BatchOutcome::Applied << 0;
    QTest::newRow("passed -cx=") << "-cx=" << BatchOutcome::Passed << 0;
    QTest::newRow("passed -TX=") << "-TX=a" << BatchOutcome::Passed << 0;
    QTest::newRow("passed -LX=") << "-LX=a" << BatchOutcome::Passed << 0;
    QTest::newRow("refused, no number") << "seed" << BatchOutcome::Refused
                                        << kRefusalWithoutNumber;
    QTest::newRow("refused -AUC=") << "-AUC=3" << BatchOutcome::Refused << 2;
    QTest::newRow("refused -cpus=") << "-cpus=3" << BatchOutcome::Refused << 10;
    QTest::newRow("refused -Z") << "-Z" << BatchOutcome::Refused << 15;
}

void tst_batch_options::outcome()
{
    QFETCH(QString, option);
    QFETCH(BatchOutcome, outcome);
    QFETCH(int, refusal);
    const auto cfg = loadFixture();
    QVERIFY(cfg);
    const BatchOptionResult r = applyBatchOption(*cfg, option);
    QCOMPARE(r.outcome, outcome);
    QCOMPARE(r.refusal, refusal);
}

void tst_batch_options::columnActivity_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QVector<int>>("positions");
    QTest::addColumn<char>("value");

    const QVector<int> dummies{2, 3, 4, 8, 9, 11};
    QTest::newRow("-I dummies") << QStringList{"-I=*.Dummy.*"} << dummies << 'I';
    QTest::newRow("-I case-sensitive") << QStringList{"-I=*.dummy.*"} << QVector<int>() << 'I';
    QTest::newRow("-i any case") << QStringList{"-i=*.dummy.*"} << dummies << 'I';
    QTest::newRow("-F") << QStringList{"-F=*.PASSTHROUGH.*"} << QVector<int>{1, 6} << 'F';
    QTest::newRow("-f") << QStringList{"-f=*.passthrough.*"} << QVector<int>{1, 6} << 'F';
    QTest::newRow("-A") << QStringList{"-A=BINARY.*"} << QVector<int>{12, 13, 14, 15, 16}
                        << ' ';
    QTest::newRow("-a") << QStringList{"-a=binary.rtt.home*"} << QVector<int>{12} << ' ';
    QTest::newRow("-A case-sensitive") << QStringList{"-A=binary.*"} << QVector<int>() << ' ';
    QTest::newRow("modality with blanks") << QStringList{"-I=*.18 <x<= 30"} << QVector<int>{3}
                                          << 'I';
    QTest::newRow("later wins") << QStringList{"-I=*", "-F=*.Region*"} << QVector<int>{7, 8, 9}
                                << 'F';
}

void tst_batch_options::columnActivity()
{
    QFETCH(QStringList, options);
    QFETCH(QVector<int>, positions);
    QFETCH(char, value);
    const auto cfg = loadFixture();
    QVERIFY(cfg);
    for (const QString &option : options)
        QCOMPARE(applyBatchOption(*cfg, option).outcome, BatchOutcome::Applied);
    QByteArray expected = options.first() == QLatin1String("-I=*")
        ? QByteArray(cfg->columnCount(), 'I')
        : fixtureActivity();
    for (int p : positions)
        expected[p] = value;
    QCOMPARE(activity(*cfg), expected);
}

void tst_batch_options::singleChoice_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("weight");
    QTest::addColumn<QString>("targetColumn");
    QTest::addColumn<char>("targetType");

    // The fixture's target is the variable "bad", label "Default".
    const QString def = QStringLiteral("Default");
    QTest::newRow("-W sensitive") << QStringList{"-W=Weight"} << "Weight" << def << 'C';
    QTest::newRow("-W no match keeps") << QStringList{"-W=Weight", "-W=WEIGHT"} << "Weight"
                                       << def << 'C';
    QTest::newRow("-w takes the later") << QStringList{"-w=WEIGHT"} << "weight" << def << 'C';
    QTest::newRow("-w star") << QStringList{"-w=*"} << "weight" << def << 'C';
    QTest::newRow("-T= later of two") << QStringList{"-T=default"} << "" << "DEFAULT" << 'C';
    QTest::newRow("-T= capital, any case") << QStringList{"-T=DEFAULT"} << "" << "DEFAULT"
                                           << 'C';
    QTest::newRow("-TC=") << QStringList{"-TC=home*"} << "" << "Home owner" << 'C';
    QTest::newRow("-tc=") << QStringList{"-tc=AGE"} << "" << "Age" << 'C';
    QTest::newRow("-T= sets the type") << QStringList{"-LF=x", "-TE=;;a", "-T=income"} << ""
                                       << "Income" << 'C';
    QTest::newRow("-T= no match leaves the type")
        << QStringList{"-TE=;;a", "-T=nothing"} << "" << def << 'E';
}

void tst_batch_options::singleChoice()
{
    QFETCH(QStringList, options);
    QFETCH(QString, weight);
    QFETCH(QString, targetColumn);
    QFETCH(char, targetType);
    const auto cfg = loadFixture();
    QVERIFY(cfg);
    QCOMPARE(cfg->targetColumn, QStringLiteral("Default"));
    for (const QString &option : options)
        QCOMPARE(applyBatchOption(*cfg, option).outcome, BatchOutcome::Applied);
    QCOMPARE(cfg->Weight, weight);
    QCOMPARE(cfg->targetColumn, targetColumn);
    QCOMPARE(cfg->targetType, targetType);
}

void tst_batch_options::expressionVars()
{
    const auto cfg = loadFixture();
    QVERIFY(cfg);
    QCOMPARE(applyBatchOption(*cfg, "-TE=a,,x y,;s1,s2;a*2 > s1").outcome,
             BatchOutcome::Applied);
    QCOMPARE(cfg->targetType, 'E');
    QCOMPARE(cfg->targetExpression, QStringLiteral("a*2 > s1"));
    QCOMPARE(cfg->targetColumn, QStringLiteral("Default"));
    const QVector<InputVar> &vars = cfg->targetVars;
    QCOMPARE(vars.size(), 4);
    const QStringList columns{"x y", "a", "s2", "s1"};
    const QStringList labels{"x_y", "a", "s2", "s1"};
    for (int i = 0; i < vars.size(); ++i) {
        QCOMPARE(vars.at(i).column, QStringList{columns.at(i)});
        QCOMPARE(vars.at(i).label, labels.at(i));
        QCOMPARE(vars.at(i).meta, QChar('U'));
        QCOMPARE(vars.at(i).isNumber, i < 2);
        QCOMPARE(vars.at(i).value, 0.0);
        QVERIFY(vars.at(i).stringValue.isEmpty());
        QVERIFY(vars.at(i).label2.isEmpty());
    }

    QCOMPARE(applyBatchOption(*cfg, "-le=n1,n2;t1;n1 + n2").outcome, BatchOutcome::Applied);
    QCOMPARE(cfg->lineSelectionType, 'E');
    QCOMPARE(cfg->lineSelectionExpression, QStringLiteral("n1 + n2"));
    QStringList lineLabels;
    for (const InputVar &v : cfg->lineSelectionVars)
        lineLabels << v.label + (v.isNumber ? "#" : "$");
    QCOMPARE(lineLabels, (QStringList{"n2#", "n1#", "t1$"}));
}

void tst_batch_options::expressionReplacesList()
{
    const auto cfg = loadFixture();
    QVERIFY(cfg);
    QCOMPARE(applyBatchOption(*cfg, "-LE=a,b,c;;a").outcome, BatchOutcome::Applied);
    QCOMPARE(cfg->lineSelectionVars.size(), 3);
    QCOMPARE(applyBatchOption(*cfg, "-LE=;z;z == 'q'").outcome, BatchOutcome::Applied);
    QCOMPARE(cfg->lineSelectionVars.size(), 1);
    QCOMPARE(cfg->lineSelectionVars.at(0).label, QStringLiteral("z"));
    QVERIFY(!cfg->lineSelectionVars.at(0).isNumber);
    QCOMPARE(applyBatchOption(*cfg, "-LF=sel.txt").outcome, BatchOutcome::Applied);
    QCOMPARE(cfg->lineSelectionType, 'F');
    QCOMPARE(cfg->lineSelectionFile, QStringLiteral("sel.txt"));
    QCOMPARE(cfg->lineSelectionVars.size(), 1);
}

void tst_batch_options::firstColumnOfVars_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QVector<int>>("cmSet");
    QTest::addColumn<QVector<int>>("minSizeSet");

    QTest::newRow("-cm by name, any case") << QStringList{"-cm=1;REG*"} << QVector<int>{7}
                                           << QVector<int>();
    QTest::newRow("-cm labels do not count") << QStringList{"-cm=1;Home*"} << QVector<int>()
                                             << QVector<int>();
    QTest::newRow("-cm=nan is on") << QStringList{"-cm=nan;age"} << QVector<int>{0}
                                   << QVector<int>();
    QTest::newRow("-cm=0 clears") << QStringList{"-cm=2;*", "-cm=0;bad*"}
                                  << QVector<int>{0, 5, 7, 10, 12, 15, 16} << QVector<int>();
    QTest::newRow("-cm= no number is off") << QStringList{"-cm=x;*"} << QVector<int>()
                                           << QVector<int>();
    QTest::newRow("-mv") << QStringList{"-mv=25;*a*"} << QVector<int>()
                         << QVector<int>{0, 13, 14, 15};
    QTest::newRow("-mv without columns") << QStringList{"-mv=25;empty*"} << QVector<int>()
                                         << QVector<int>();
    QTest::newRow("-cm without columns") << QStringList{"-cm=1;empty_nom"} << QVector<int>()
                                         << QVector<int>();
}

void tst_batch_options::firstColumnOfVars()
{
    QFETCH(QStringList, options);
    QFETCH(QVector<int>, cmSet);
    QFETCH(QVector<int>, minSizeSet);
    const auto cfg = loadFixture();
    QVERIFY(cfg);
    for (const QString &option : options)
        QCOMPARE(applyBatchOption(*cfg, option).outcome, BatchOutcome::Applied);
    const int n = cfg->columnCount();
    QVector<bool> cm(n, false);
    for (int p : cmSet)
        cm[p] = true;
    QCOMPARE(columnValues(cfg->cm, n), cm);
    QVector<double> minSize(n, -1.0);
    for (int p : minSizeSet)
        minSize[p] = 25.0;
    QCOMPARE(columnValues(cfg->minSizeModality, n), minSize);
}

void tst_batch_options::columnPenality()
{
    const auto cfg = loadFixture();
    QVERIFY(cfg);
    const int n = cfg->columnCount();
    QVector<double> expected(n, 1.0);
    expected[5] = 2.0; // from the file
    QCOMPARE(columnValues(cfg->penality, n), expected);
    QCOMPARE(applyBatchOption(*cfg, "-pe=3;*.DUMMY.*").outcome, BatchOutcome::Applied);
    for (int p : {2, 3, 4, 8, 9, 11})
        expected[p] = 3.0;
    QCOMPARE(columnValues(cfg->penality, n), expected);
    QCOMPARE(applyBatchOption(*cfg, "-pe=;value.*").outcome, BatchOutcome::Applied);
    for (int p = 0; p < 7; ++p)
        expected[p] = 0.0;
    QCOMPARE(columnValues(cfg->penality, n), expected);
}

void tst_batch_options::fields_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("-AUCMAX=85") << "-AUCMAX=85" << "AUCmax" << QVariant(85.0);
    QTest::newRow("-auCMax=85") << "-auCMax=85" << "AUCmax" << QVariant(85.0);
    QTest::newRow("-AUCMAX=100") << "-AUCMAX=100" << "AUCmax" << QVariant(100.0);
    QTest::newRow("-p1=") << "-p1=0.25" << "p1" << QVariant(0.25);
    QTest::newRow("-p2=") << "-p2=0.5" << "p2" << QVariant(0.5);
    QTest::newRow("-pr=2.7") << "-pr=2.7" << "pruning" << QVariant(2);
    QTest::newRow("-pa=") << "-pa=-1" << "alpha" << QVariant(-1.0);
    QTest::newRow("-pl=") << "-pl=0.001" << "lambda" << QVariant(0.001);
    QTest::newRow("-cpu=x") << "-cpu=x" << "cpuCount" << QVariant(0);
    QTest::newRow("-cpu=4.9") << "-cpu=4.9" << "cpuCount" << QVariant(4);
    QTest::newRow("-seed=1.9") << "-seed=1.9" << "randomSeed" << QVariant(1);
    QTest::newRow("-seed=-1.9") << "-seed=-1.9" << "randomSeed" << QVariant(-1);
    QTest::newRow("-mn=") << "-mn=5%" << "minSizeModalityForNominalVar" << QVariant("5%");
    QTest::newRow("-mo=") << "-mo=abc" << "minSizeModalityForOrderedVar" << QVariant("abc");
    QTest::newRow("-mi=") << "-mi=0.03" << "allowedAUCLoss" << QVariant(0.03);
    QTest::newRow("-mm=") << "-mm=1024.9" << "maxMemoryDS" << QVariant(1024);
    QTest::newRow("-md=") << "-md=0.3" << "maxTargetDensity" << QVariant(0.3);
    QTest::newRow("-mt=") << "-mt=0.25" << "maxTestDSSize" << QVariant(0.25);
    QTest::newRow("-LF=") << "-LF=a b.txt" << "lineSelectionFile" << QVariant("a b.txt");
}

void tst_batch_options::fields()
{
    QFETCH(QString, option);
    QFETCH(QString, field);
    QFETCH(QVariant, value);
    const auto cfg = loadFixture();
    QVERIFY(cfg);
    const CfgModel &c = *cfg;
    const QHash<QString, std::function<QVariant()>> read{
        {"AUCmax", [&] { return QVariant(c.AUCmax); }},
        {"p1", [&] { return QVariant(c.p1); }},
        {"p2", [&] { return QVariant(c.p2); }},
        {"pruning", [&] { return QVariant(c.pruning); }},
        {"alpha", [&] { return QVariant(c.alpha); }},
        {"lambda", [&] { return QVariant(c.lambda); }},
        {"cpuCount", [&] { return QVariant(c.cpuCount); }},
        {"randomSeed", [&] { return QVariant(c.randomSeed); }},
        {"minSizeModalityForNominalVar", [&] { return QVariant(c.minSizeModalityForNominalVar); }},
        {"minSizeModalityForOrderedVar", [&] { return QVariant(c.minSizeModalityForOrderedVar); }},
        {"allowedAUCLoss", [&] { return QVariant(c.allowedAUCLoss); }},
        {"maxMemoryDS", [&] { return QVariant(c.maxMemoryDS); }},
        {"maxTargetDensity", [&] { return QVariant(c.maxTargetDensity); }},
        {"maxTestDSSize", [&] { return QVariant(c.maxTestDSSize); }},
        {"lineSelectionFile", [&] { return QVariant(c.lineSelectionFile); }},
    };
    QVERIFY(read.contains(field));
    const QVariant before = read.value(field)();
    QVERIFY2(before != value, "the fixture already holds the value");
    QCOMPARE(applyBatchOption(*cfg, option).outcome, BatchOutcome::Applied);
    const QVariant after = read.value(field)();
    QCOMPARE(after.type(), value.type());
    QCOMPARE(after, value);
}

QTEST_GUILESS_MAIN(tst_batch_options)
#include "tst_batch_options.moc"
