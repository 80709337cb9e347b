// Writes a generated description and configuration for timing the batch path:
//   gen_batch_config DIR COLUMNS dense|sparse
// DIR/bench.DescXML holds numeric variables (7 columns each: main,
// pass-through, 5 dummies), nominal variables (5 columns: main, 4 dummies)
// and binary variables (1 column) adding up to COLUMNS columns.
// DIR/bench.CfgXML names the description by its absolute path; "dense" gives
// every column a Var element, "sparse" every tenth column.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QVector>

#include <cstdio>
#include <cstring>

namespace {

constexpr int numericColumns = 7;
constexpr int nominalColumns = 5;

struct Counts
{
    int numeric = 0;
    int nominal = 0;
    int binary = 0;
};

Counts splitColumns(int columns)
{
    Counts c;
    c.numeric = c.nominal = columns / (numericColumns + nominalColumns);
    c.binary = columns - c.numeric * numericColumns - c.nominal * nominalColumns;
    return c;
}

template <typename T>
QByteArray base64Of(const QVector<T> &values)
{
    return QByteArray(reinterpret_cast<const char *>(values.constData()),
                      int(values.size() * int(sizeof(T))))
        .toBase64();
}

QByteArray numericVar(int i)
{
    const QVector<double> limits{0.0, 10.5, 20.0, 35.25, 80.0};
    const QVector<qint32> dummies{0, 1, 2, 3, 4};
    return "   <COL name=\"num" + QByteArray::number(i) + "\" label=\"Numeric "
        + QByteArray::number(i) + "\" auc=\"0.6\">\n    <LIMITS>" + base64Of(limits)
        + "</LIMITS>\n    <DUMMIES>" + base64Of(dummies) + "</DUMMIES>\n   </COL>\n";
}

QByteArray nominalVar(int i)
{
    const QVector<qint32> dummies{0, 1, 2, 3};
    return "   <COL name=\"cat" + QByteArray::number(i) + "\" label=\"Category "
        + QByteArray::number(i) + "\" auc=\"0.55\">\n    <POSSIBLEVALUES>\n"
        "     <VAL val=\"A\" label=\"Alpha\"/>\n     <VAL val=\"B\" label=\"Beta\"/>\n"
        "     <VAL val=\"C\" label=\"Gamma\"/>\n    </POSSIBLEVALUES>\n    <DUMMIES>"
        + base64Of(dummies) + "</DUMMIES>\n   </COL>\n";
}

QByteArray description(const Counts &c)
{
    QByteArray out = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<DESCRIPTION>\n"
                     " <QUV_Config version='3'/>\n <COLS>\n  <VALUE>\n";
    for (int i = 0; i < c.numeric; ++i)
        out += numericVar(i);
    out += "  </VALUE>\n  <NOMINAL>\n";
    for (int i = 0; i < c.nominal; ++i)
        out += nominalVar(i);
    out += "  </NOMINAL>\n  <BIN>\n";
    for (int i = 0; i < c.binary; ++i)
        out += "   <COL name=\"flag" + QByteArray::number(i) + "\"/>\n";
    out += "  </BIN>\n </COLS>\n</DESCRIPTION>\n";
    return out;
}

QByteArray varElement(int loc)
{
    static const char *const settings[] = {" penality='2'", " minSizeModality='20'",
                                           " monoto='D'"};
    return "<Var loc='" + QByteArray::number(loc) + "'" + settings[loc % 3] + "/>";
}

QByteArray configuration(const QString &descPath, int columns, bool dense)
{
    QByteArray out = "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                     "<QUV_Config version='3'\n graphicHeader='Generated'\n cpuCount='4'\n"
                     " randomSeed='1'>\n <DescriptionFile>\n  "
        + descPath.toUtf8() + "\n </DescriptionFile>\n <Vars>\n  ";
    for (int loc = 0; loc < columns; loc += dense ? 1 : 10)
        out += varElement(loc);
    out += "\n </Vars>\n<Target type='C'>flag0</Target>\n</QUV_Config>";
    return out;
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 4 || (std::strcmp(argv[3], "dense") && std::strcmp(argv[3], "sparse"))) {
        std::fprintf(stderr, "usage: gen_batch_config DIR COLUMNS dense|sparse\n");
        return 2;
    }
    const QDir dir(QString::fromLocal8Bit(argv[1]));
    const int columns = QByteArray(argv[2]).toInt();
    if (!dir.exists() || columns < 1) {
        std::fprintf(stderr, "gen_batch_config: no folder %s or no columns\n", argv[1]);
        return 2;
    }
    const QString descPath = dir.absoluteFilePath(QStringLiteral("bench.DescXML"));
    const bool ok = writeFile(descPath, description(splitColumns(columns)))
        && writeFile(dir.absoluteFilePath(QStringLiteral("bench.CfgXML")),
                     configuration(descPath, columns, !std::strcmp(argv[3], "dense")));
    if (!ok)
        std::fprintf(stderr, "gen_batch_config: cannot write into %s\n", argv[1]);
    return ok ? 0 : 1;
}
