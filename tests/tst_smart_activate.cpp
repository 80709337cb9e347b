// Smart Activate's choice of rows, on the record alone.

#include "core/cfg_model.h"
#include "core/smart_activate.h"

#include "xml/xml_node.h"

#include <QtTest>

#include <memory>

namespace {

// Rows of the golden description: age 0-4, income 5-6, purpose 7-9,
// has_phone 10, default_flag 11.
std::unique_ptr<CfgModel> record(const char *fi)
{
    const XmlNode descRoot =
        readXmlFile(QStringLiteral(QUVA_TEST_DATA "/core/golden.DescXML"), "DESCRIPTION");
    auto model = std::make_unique<CfgModel>(new DescModel(QStringLiteral("golden.DescXML"), descRoot),
                                            QString(), parseXmlText("<QUV_Config/>", "QUV_Config", nullptr));
    for (int i = 0; i < model->columnCount(); ++i)
        model->fi[i] = fi[i] == '.' ? 0 : fi[i];
    return model;
}

QVector<int> rowsOf(const CfgModel &model, const QVector<char *> &addresses)
{
    QVector<int> rows;
    for (char *a : addresses)
        rows << int(a - model.fi);
    return rows;
}

} // namespace

class tst_smart_activate : public QObject
{
    Q_OBJECT

private slots:
    void rows_data();
    void rows();
    void runsMustBeAdjacent();
};

void tst_smart_activate::rows_data()
{
    QTest::addColumn<QByteArray>("fi"); // one letter a row; '.' is the byte 0
    QTest::addColumn<QVector<int>>("rows");
    QTest::newRow("nothing ignored") << QByteArray("............") << QVector<int>{};
    QTest::newRow("dummies of an active variable") << QByteArray("..IIF.......")
                                                   << QVector<int>{2, 3};
    QTest::newRow("wholly ignored variable stays") << QByteArray(".......III..")
                                                   << QVector<int>{};
    QTest::newRow("F counts as active") << QByteArray(".....FI.....") << QVector<int>{6};
    QTest::newRow("blank counts as active") << QByteArray("I I.........") << QVector<int>{0, 2};
    QTest::newRow("one-row variables alone") << QByteArray("..........II") << QVector<int>{};
    QTest::newRow("everything ignored") << QByteArray("IIIIIIIIIIII") << QVector<int>{};
}

void tst_smart_activate::rows()
{
    QFETCH(QByteArray, fi);
    QFETCH(QVector<int>, rows);
    const auto model = record(fi.constData());
    QCOMPARE(rowsOf(*model, collectSmartActivateRows(*model)), rows);
}

// Two runs of the same name apart are two runs: each is judged alone.
void tst_smart_activate::runsMustBeAdjacent()
{
    auto model = record("I.I....I....");
    // Give row 7 the name of age: age's rows are 0-4, then 7 stands alone.
    model->desc->columns[7].name = model->desc->columns[0].name;
    QCOMPARE(rowsOf(*model, collectSmartActivateRows(*model)), (QVector<int>{0, 2}));
}

QTEST_GUILESS_MAIN(tst_smart_activate)
#include "tst_smart_activate.moc"
