#include "generated_dataset.h"

#include <QFile>

#include <cstring>
#include <initializer_list>
#include <utility>

namespace {

template <class T>
QByteArray base64Of(std::initializer_list<T> values)
{
    QByteArray bytes;
    for (T v : values) {
        char raw[sizeof(T)];
        std::memcpy(raw, &v, sizeof v);
        bytes.append(raw, int(sizeof v));
    }
    return bytes.toBase64();
}

QByteArray generatedDescription(int numericCount, int nominalCount, int binaryCount)
{
    const QByteArray limits = base64Of<double>({0.0, 12.5, 40.0, 97.25, 1200.0});
    const QByteArray oneDummy = base64Of<qint32>({2});
    const QByteArray threeDummies = base64Of<qint32>({0, 1, 3});
    QByteArray out = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<DESCRIPTION>\n"
                     " <QUV_Config version=\"1.0\">\n"
                     "  <datasource type=\"c\" sep=\";\">big.csv</datasource>\n"
                     "  <Target>bin_0</Target>\n </QUV_Config>\n <COLS>\n  <VALUE>\n";
    for (int i = 0; i < numericCount; ++i) {
        out += "   <COL name=\"num_" + QByteArray::number(i) + "\" label=\"Numeric variable "
            + QByteArray::number(i) + "\" auc=\"0.61\">\n    <LIMITS>" + limits
            + "</LIMITS>\n    <DUMMIES>" + oneDummy + "</DUMMIES>\n   </COL>\n";
    }
    out += "  </VALUE>\n  <NOMINAL>\n";
    for (int i = 0; i < nominalCount; ++i) {
        out += "   <COL name=\"nom_" + QByteArray::number(i) + "\" label=\"Nominal variable "
            + QByteArray::number(i) + "\">\n    <POSSIBLEVALUES>\n"
            "     <VAL val=\"a\" label=\"Alpha\"/>\n     <VAL val=\"b\" label=\"Beta\"/>\n"
            "     <VAL val=\"c\"/>\n    </POSSIBLEVALUES>\n    <DUMMIES>" + threeDummies
            + "</DUMMIES>\n   </COL>\n";
    }
    out += "  </NOMINAL>\n  <BIN>\n";
    for (int i = 0; i < binaryCount; ++i) {
        out += "   <COL name=\"bin_" + QByteArray::number(i) + "\" label=\"Flag "
            + QByteArray::number(i) + "\">\n    <DUMMIES>" + base64Of<qint32>({0})
            + "</DUMMIES>\n   </COL>\n";
    }
    out += "  </BIN>\n </COLS>\n</DESCRIPTION>\n";
    return out;
}

QByteArray generatedConfiguration(int columnCount)
{
    QByteArray vars;
    for (int loc = 0; loc < columnCount; ++loc) {
        vars += "<Var loc='" + QByteArray::number(loc) + "'";
        switch (loc % 3) {
        case 0:
            vars += " fi='I'";
            break;
        case 1:
            vars += " penality='1.25'";
            break;
        default:
            vars += " monoto='I' minSizeModality='2.5' cm='1'";
            break;
        }
        vars += "/>";
    }
    return "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<QUV_Config version='1.0'\n"
           " nTestSet='6'>\n <DescriptionFile>\n  big.DescXML\n </DescriptionFile>\n <Vars>\n  "
        + vars
        + "\n </Vars>\n<Target type='C'>bin_0</Target>\n <Weight>num_3</Weight>\n</QUV_Config>";
}

} // namespace

GeneratedDataset::GeneratedDataset(double scale)
    : numeric(int(10000 * scale)), nominal(int(5000 * scale)), binary(int(5000 * scale))
{
    descBytes = generatedDescription(numeric, nominal, binary);
    cfgBytes = generatedConfiguration(columnCount());
    descPath = dir.filePath("big.DescXML");
    cfgPath = dir.filePath("big.CfgXML");
    for (const auto &[path, bytes] : {std::pair{descPath, descBytes}, {cfgPath, cfgBytes}}) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the generated files");
    }
}
