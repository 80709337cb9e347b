// The fuzz targets in the normal suite: every seed of their corpora and every
// input that once broke one of them runs through the target again, and no
// invariant may break, no sanitizer may object.

#include "fuzz/fuzz_entry.h"

#include <QDir>
#include <QtTest>

namespace {

QStringList brokenInvariants;

using FuzzFunction = int (*)(const uint8_t *, size_t);

struct Target
{
    const char *name;
    FuzzFunction run;
};

const Target targets[] = {
    {"xml", fuzzXml},
    {"fastest", fuzzFastest},
    {"fast", fuzzFast},
    {"engines_agree", fuzzEnginesAgree},
    {"batch_options", fuzzBatchOptions},
    {"cfg_load", fuzzCfgLoad},
};

QStringList inputsIn(const QString &folder)
{
    QStringList paths;
    const QDir dir(folder);
    for (const QString &name : dir.entryList(QDir::Files, QDir::Name))
        paths << dir.filePath(name);
    return paths;
}

} // namespace

void fuzzFail(const char *what)
{
    brokenInvariants << QString::fromUtf8(what);
}

class tst_fuzz_regressions : public QObject
{
    Q_OBJECT

private slots:
    void everyTargetIsReplayed();
    void replay_data();
    void replay();
};

// The build's list of targets and this test's table are the same.
void tst_fuzz_regressions::everyTargetIsReplayed()
{
    QStringList names;
    for (const Target &t : targets)
        names << QLatin1String(t.name);
    QCOMPARE(names.join(','), QStringLiteral(QUVA_FUZZ_TARGETS));
}

void tst_fuzz_regressions::replay_data()
{
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("path");

    const QString source = QStringLiteral(QUVA_SOURCE_DIR "/tests");
    for (int i = 0; i < int(sizeof targets / sizeof targets[0]); ++i) {
        const QString name = QLatin1String(targets[i].name);
        const QStringList seeds = inputsIn(source + "/fuzz/corpus/" + name);
        QVERIFY2(!seeds.isEmpty(), qPrintable("no seeds for " + name));
        for (const QString &path : seeds + inputsIn(source + "/data/fuzz_regressions/" + name))
            QTest::newRow(qPrintable(name + ": " + QFileInfo(path).fileName())) << i << path;
    }
}

void tst_fuzz_regressions::replay()
{
    QFETCH(int, target);
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    brokenInvariants.clear();
    const int result = targets[target].run(reinterpret_cast<const uint8_t *>(bytes.constData()),
                                           size_t(bytes.size()));
    QCOMPARE(result, 0);
    QVERIFY2(brokenInvariants.isEmpty(), qPrintable(brokenInvariants.join('\n')));
}

QTEST_GUILESS_MAIN(tst_fuzz_regressions)
#include "tst_fuzz_regressions.moc"
