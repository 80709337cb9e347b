#pragma once

#include "core/desc_model.h"
#include "core/working_space.h"
#include "expr/input_var.h"

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QString>
#include <QStringList>
#include <QVector>

class XmlNode;
struct FileWriteFailure;

// The in-memory form of one .CfgXML: every parameter of the engine, the
// per-column settings, the target, the line selection, and what ties the
// record to its two files. Panels and undo commands reach the fields
// directly, by address, so the fields carry the names of the file.
//
// The defaults below are the values a field takes when the file has none.
struct CfgModel
{
    // Takes ownership of `desc` and reads every field from `root`, the
    // QUV_Config element.
    CfgModel(DescModel *desc, const QString &cfgPath, const XmlNode &root);
    ~CfgModel();
    CfgModel(const CfgModel &) = delete;
    CfgModel &operator=(const CfgModel &) = delete;

    DescModel *desc = nullptr; // owned

    // One entry per column of `desc`, by position in its list. The six arrays
    // share one allocation of 20 bytes per column, owned through
    // minSizeModality: the doubles, then fi, illus, monoto, cm.
    double *minSizeModality = nullptr; // -1: the general value applies
    double *penality = nullptr;        // 1
    bool *illus = nullptr;             // the column is illustrative (one byte)
    bool *cm = nullptr;                // center missings (one byte)
    // 'I' ignored, 'F' kept in the second state the file can carry; anything
    // else (0, 1, blank) is active. Starts as the column's derived byte.
    char *fi = nullptr;
    char *monoto = nullptr;            // 'N' none, 'I' increasing, 'D' decreasing

    char targetType = 'C';        // 'C' column, 'F' file, 'E' expression
    char lineSelectionType = 'E'; // 'E' expression, 'F' file, 'S' segment
    double allowedAUCLoss = 0.02;
    // Held as text: its form decides the mode of the recoding panel.
    QString minSizeModalityForNominalVar = QStringLiteral("10.0");
    QString minSizeModalityForOrderedVar = QStringLiteral("10.0");
    double lowerBoundCorrelationReport = 0.85;
    double AUCmax = 85.0; // percent; a fraction in the file, 100 being a marker
    double quantileRegression = 0.5;
    double p1 = 0.2;
    double p2 = 0.45;
    double zTestModalities = 2.5;
    double purifyTarget = -1.0; // -1: off
    int cpuCount = 1;
    double stopComputationAfterXHours = 5.0;
    int nBagging = 1;
    int bootstrapRepeat = 4000;
    int nMaxValSet = 5;
    int nMaxVar = 30;
    int nTestSet = 6;
    int nValSet = 5;
    int randomSeed = 0;
    int hotstart = 0;
    int predictionFile = 0;
    int confidenceInterval = 0;
    int useAUCToOptimizePenalization = 0;
    int deNormalize = 0;
    double lambda = -1.0; // -1: not set by hand, nMaxVar tells the mode
    double alpha = 1.0;   // -1: optimal
    int pruning = 1;      // 0 none, 1 none with importances, 2 fast, 3 slow
    int thirdOptim = 0;
    QString graphicHeader;
    QString cfgFileName;     // absolute path of the .CfgXML; empty for a new one
    QString datasource;      // the whole element as XML text
    QString PartioningModel; // stratification text
    QString version;         // carried from file to file, never interpreted
    QString Weight;          // label of the weight variable; the file holds the name
    QString Treatment;       // label of the treatment flag; the file holds the name
    double penalityForProfile = 1.0;
    double penalityForTreatment = 1.0;
    QString lineSelectionSegmentFile;
    QString lineSelectionFile;
    QString lineSelectionExpression;
    QStringList segmentNames;     // from the segmentation model, not saved
    QVector<bool> segmentActive;  // one entry per segment
    bool lsAddN = false;          // panel switches, not saved
    bool lsTruncate = false;
    QString targetColumn;         // label of the target; the file holds the name
    QString targetFile;
    QString targetExpression;
    bool targetAddN = false;      // panel switch, not saved
    int maxMemoryDS = 500;        // MB
    double maxTargetDensity = 0.4;
    double maxTestDSSize = 0.5;
    QVector<InputVar> lineSelectionVars;
    QVector<InputVar> targetVars;
    QFileSystemWatcher watcher;
    QDateTime cfgLastModified;  // of the .CfgXML at the last save
    QDateTime descLastModified; // of the .DescXML at the last save
    // Position and size of the main window; without the element the
    // position is 0, 0 and the size -1, -1.
    int workingSpaceX = 0;
    int workingSpaceY = 0;
    int workingSpaceW = -1;
    int workingSpaceH = -1;

    int columnCount() const { return desc->columnCount(); }
    // True when the text that goes with targetType is not empty.
    bool hasTarget() const;
};

// Stops watching everything, then watches `first` if it is not empty and
// `second` if `first` is not empty: watchFiles("", x) watches nothing.
void watchFiles(CfgModel &model, const QString &first, const QString &second);

// A description path as the file system finds it: a relative one, as a
// configuration may carry it, is taken from the configuration's folder.
QString resolveDescPath(const QString &descPath, const QString &cfgPath);
// The description file of the record, resolved as above.
QString descFilePath(const CfgModel &model);

// Gives the record the file name `path`, as a save under another name does.
// A relative description path is written anew from the new folder, so that
// the saved file still names the same description; an absolute one stays.
void renameCfgFile(CfgModel &model, const QString &path);

// The whole .CfgXML text of the record, byte for byte as it is saved.
QByteArray cfgFileBytes(const CfgModel &model);

// Saves the record under cfgFileName. The place of the window, when one is
// given, goes into the WorkingSpace fields first; without one they stay as
// they were read. The file is replaced as file_replace.h tells: whole or not
// at all, keeping its permissions and owner. Returns false, with no message,
// when the file could not be written; an existing file is then unchanged,
// and `failure`, when given, says why.
bool saveCfgFile(CfgModel &model, const WorkingSpace *windowPlace = nullptr);
bool saveCfgFile(CfgModel &model, const WorkingSpace *windowPlace, FileWriteFailure *failure);
