#pragma once

#include <QString>

class QObject;
class XmlNode;
struct CfgModel;

// Opening a configuration with its description. Each load shows the wait
// cursor while it runs and reports its failures through reportMessage() when
// `showErrors` is set; a failed load returns null and changes nothing.
//
// `window` is the main window (any object with the "pos" and "size"
// properties of a widget), or null; a load gives it the place stored in the
// configuration. With `askOtherWindows`, a file held by another window of
// the product family (windowQuery()) is not opened here twice; `currentPath`
// is the file this window holds already, which needs no asking.

// Opens a .CfgXML and the description it names. The suffix ".CfgXML" is
// added when the path lacks it.
CfgModel *loadCfgFile(QObject *window, QString path, bool showErrors, bool askOtherWindows,
                      const QString &currentPath);

// Opens a .DescXML, with the configuration found beside it or, failing that,
// the default configuration that the description carries.
CfgModel *loadDescFile(QObject *window, QString path, bool showErrors, bool askOtherWindows,
                       const QString &currentPath);

// Builds both records: the description from `descPath`, the configuration
// from `cfgRoot`, or from the description's own QUV_Config when `cfgRoot` is
// empty. A relative `descPath` is taken from the folder of `cfgPath`.
CfgModel *buildModels(const XmlNode &cfgRoot, const QString &cfgPath, const QString &descPath,
                      bool showErrors);

// Gives `window` (may be null) the place of the WorkingSpace element of
// `cfgRoot`; a position beyond the desktop falls back to 200, 200.
void restoreWorkingSpace(QObject *window, const XmlNode &cfgRoot);

// For a process that ends right after its work, such as the batch path.
// While set, the trees that the loads parse are kept to the end of the
// process instead of being freed one string at a time when the load
// returns, and a configuration's description is read on a second thread
// while the configuration itself is parsed. Off by default: an editor that
// loads file after file must leave it off, and was measured to load slower
// with the second thread once its memory has been used and freed.
void setOneShotLoading(bool oneShot);
