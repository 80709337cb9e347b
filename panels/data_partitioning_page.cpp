#include "panels/data_partitioning_page.h"

#include "panels/control_state.h"
#include "panels/number_field.h"
#include "panels/push_value.h"
#include "panels/slider_setup.h"
#include "shell/gui_reporter.h"
#include "shell/settings.h"
#include "ui_data_partitioning_page.h"

namespace {

constexpr int firstTestSetsLimit = 10;

Ui::DataPartitioningPage *formOf(QWidget *page)
{
    auto *ui = new Ui::DataPartitioningPage;
    ui->setupUi(page);
    return ui;
}

// A test dataset is never smaller than one equal share of the test sets. A
// record without test sets (0, or a negative count from a file) sets no
// such floor, so the slider runs from 0 and shows the value as it is.
int smallestTestShare(int testSets)
{
    return testSets > 0 ? 100 / testSets : 0;
}

} // namespace

DataPartitioningPage::DataPartitioningPage(PageContext &context, QWidget *parent)
    : Page(context, parent), ui(formOf(this)),
      memory(context, ui->sMaxMemory, ui->leMaxMemory,
             countCommit(context, &CfgModel::maxMemoryDS, QStringLiteral("max memory"),
                         PageDataPartitioning),
             SliderEditPair::Integer),
      targetDensity(context, ui->sMaxTargetDensity, ui->leMaxTargetDensity,
                    percentCommit(context, &CfgModel::maxTargetDensity,
                                  QStringLiteral("max nbr Validation sets"), PageDataPartitioning)),
      testDSSize(context, ui->sMaxTestDSSize, ui->leMaxTestDSSize,
                 percentCommit(context, &CfgModel::maxTestDSSize,
                               QStringLiteral("max test DS size"), PageDataPartitioning))
{
    PanelRefreshScope scope(context);
    for (QwtSlider *slider : {ui->sNTestSet, ui->sNValSet, ui->sNMaxValSet, ui->sMaxMemory,
                              ui->sMaxTargetDensity, ui->sMaxTestDSSize})
        setUpSliderLook(slider, SliderBackground::Trough, false);
    // The one sampling slider that no refresh gives a range.
    setSliderRange(ui->sMaxTargetDensity, 0, 100, 1);
}

DataPartitioningPage::~DataPartitioningPage()
{
    delete ui;
}

void DataPartitioningPage::setUpAfterLoad()
{
    if (cfg())
        maxTestSetsLimit = qMax(firstTestSetsLimit, cfg()->nValSet);
}

void DataPartitioningPage::refreshControls()
{
    const CfgModel *record = cfg();
    if (!record)
        return;
    refreshPurify(*record);
    refreshSets(*record);
    refreshSampling(*record);
    ui->leStratif->setText(record->PartioningModel);
}

// Purification is on for a positive share; off, its value shows as it is
// (-1 as -100) in a disabled field.
void DataPartitioningPage::refreshPurify(const CfgModel &record)
{
    const bool on = record.purifyTarget > 0;
    ui->cbPurify->setChecked(on);
    setControlsEnabled(
        {ui->lePurify, ui->lPurify1, ui->lPurify2, ui->lPurify3, ui->leStratif, ui->pbBrowse}, on);
    ui->lePurify->setText(percentText(record.purifyTarget));
}

// The maximum of validation sets follows the test sets by itself; its
// slider is for a record of at most one test set, where there is no such
// bound, and runs up to the page's limit then.
void DataPartitioningPage::refreshSets(const CfgModel &record)
{
    ui->nMaxTestSet->setValue(maxTestSetsLimit);
    setIntegerSlider(ui->sNTestSet, 3, maxTestSetsLimit);
    ui->sNTestSet->setValue(record.nTestSet);
    const bool fewSets = record.nTestSet <= 1;
    ui->sNMaxValSet->setEnabled(fewSets);
    setIntegerSlider(ui->sNMaxValSet, 1, fewSets ? maxTestSetsLimit : record.nTestSet - 1);
    ui->sNMaxValSet->setValue(record.nMaxValSet);
    setIntegerSlider(ui->sNValSet, 1, qMax(0, record.nTestSet - 1));
    ui->sNValSet->setValue(record.nValSet);
}

void DataPartitioningPage::refreshSampling(const CfgModel &record)
{
    setSliderRange(ui->sMaxMemory, 50, 1500, 5);
    memory.show(record.maxMemoryDS, QString::number(record.maxMemoryDS));
    ui->lMaxTestSet->setText(QStringLiteral("% of %1 MB").arg(record.maxMemoryDS));
    const int density = int(record.maxTargetDensity * 100);
    targetDensity.show(density, QString::number(density));
    setSliderRange(ui->sMaxTestDSSize, smallestTestShare(record.nTestSet), 100, 1);
    const int testSize = int(record.maxTestDSSize * 100);
    testDSSize.show(testSize, QString::number(testSize));
}

// --- the sets ----------------------------------------------------------------

// The one slider of the page that changes three fields in one step: the
// maximum of validation sets follows the test sets, and the rotating
// validation sets fall with them but never rise. Each move is an entry of
// its own.
void DataPartitioningPage::on_sNTestSet_valueChanged(double val)
{
    CfgModel *record = cfg();
    if (updatingPanel() || !record || val == record->nTestSet)
        return;
    const int shares = int(val - 1.0);
    push(new UpdateTemplateVectorCommand<int>(
        {&record->nTestSet, &record->nMaxValSet, &record->nValSet},
        {int(val), shares, qMin(record->nValSet, shares)}, QStringLiteral("nbr Test sets"),
        PageDataPartitioning, false));
}

void DataPartitioningPage::on_sNValSet_valueChanged(double val)
{
    pushChangedValue(context, &CfgModel::nValSet, int(val), QStringLiteral("nbr Validation sets"),
                     PageDataPartitioning);
}

void DataPartitioningPage::on_sNMaxValSet_valueChanged(double val)
{
    pushChangedValue(context, &CfgModel::nMaxValSet, int(val),
                     QStringLiteral("max nbr Validation sets"), PageDataPartitioning);
}

void DataPartitioningPage::on_nMaxTestSet_valueChanged(int val)
{
    pushChangedValueAt(context, &maxTestSetsLimit, val, QStringLiteral("max nbr test sets"),
                       PageDataPartitioning);
}

// --- sampling ----------------------------------------------------------------

void DataPartitioningPage::on_sMaxMemory_sliderMoved(double val)
{
    memory.moved(val);
}

void DataPartitioningPage::on_sMaxMemory_valueChanged(double val)
{
    memory.released(val);
}

void DataPartitioningPage::on_leMaxMemory_editingFinished()
{
    memory.edited();
}

void DataPartitioningPage::on_sMaxTargetDensity_sliderMoved(double val)
{
    targetDensity.moved(val);
}

// The slider's command carries the text of the validation sets; the line
// edit beside it has its own. The undo list has always shown it so.
void DataPartitioningPage::on_sMaxTargetDensity_valueChanged(double val)
{
    targetDensity.released(val);
}

void DataPartitioningPage::on_leMaxTargetDensity_editingFinished()
{
    pushChangedValue(context, &CfgModel::maxTargetDensity,
                     fractionOfPercent(ui->leMaxTargetDensity->displayText()),
                     QStringLiteral("max target density"), PageDataPartitioning);
}

void DataPartitioningPage::on_sMaxTestDSSize_sliderMoved(double val)
{
    testDSSize.moved(val);
}

void DataPartitioningPage::on_sMaxTestDSSize_valueChanged(double val)
{
    testDSSize.released(val);
}

void DataPartitioningPage::on_leMaxTestDSSize_editingFinished()
{
    testDSSize.edited();
}

// --- purification ------------------------------------------------------------

// Checking starts from 5 percent; unchecking stores the marker of "off".
void DataPartitioningPage::on_cbPurify_clicked(bool val)
{
    pushValue(context, &CfgModel::purifyTarget, val ? 0.05 : -1.0, QStringLiteral("checkB purify"),
              PageDataPartitioning, false);
}

void DataPartitioningPage::on_lePurify_editingFinished()
{
    pushChangedValue(context, &CfgModel::purifyTarget,
                     fractionOfPercent(ui->lePurify->displayText()),
                     QStringLiteral("purify target"), PageDataPartitioning);
}

void DataPartitioningPage::on_leStratif_editingFinished()
{
    pushChangedValue(context, &CfgModel::PartioningModel, ui->leStratif->displayText(),
                     QStringLiteral("stratify"), PageDataPartitioning, false);
}

// Only a model file is taken, by its ending in exactly this case; any other
// answer, a cancel included, changes nothing and says nothing.
void DataPartitioningPage::on_pbBrowse_clicked()
{
    const QString path = askOpenFileName(this, QStringLiteral("Open Quva model file"), universDir(),
                                         QStringLiteral("Model file (*.ModelXML)"));
    if (path.endsWith(QLatin1String(".ModelXML")))
        pushValue(context, &CfgModel::PartioningModel, path, QStringLiteral("model "),
                  PageDataPartitioning, false);
}
