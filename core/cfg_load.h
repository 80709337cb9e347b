#pragma once

#include "core/working_space.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

class XmlNode;
struct CfgModel;

// Opening a configuration with its description. Each load shows the wait
// cursor while it runs and reports its failures through reportMessage() when
// `showErrors` is set; a failed load returns no record and changes nothing.

// Asked before a file is opened that another window of the product family
// may hold already. 0: nobody has it, go on. 1: another window has it and
// the user keeps it there. 2: the user had the other window take it over.
using OtherWindowCheck = std::function<int(const QString &path)>;

// What a load gives back to the window that asked for it.
struct CfgLoad
{
    std::unique_ptr<CfgModel> model; // null when the load failed
    // The window place stored in the configuration, set as soon as the
    // configuration was read, even when its description then fails.
    std::optional<WorkingSpace> place;
    // Another window took the file over: this process should end with 0.
    bool endProcess = false;
};

// Opens a .CfgXML and the description it names. The suffix ".CfgXML" is
// added when the path lacks it. With a check, a path other than
// `currentPath` (the file this window holds) is first asked about.
CfgLoad loadCfgFile(QString path, bool showErrors, const OtherWindowCheck &askOtherWindows,
                    const QString &currentPath);

// Opens a .DescXML, with the configuration found beside it or, failing that,
// the default configuration that the description carries. Any answer of the
// check but 0 abandons the load; the process never ends here.
CfgLoad loadDescFile(QString path, bool showErrors, const OtherWindowCheck &askOtherWindows,
                     const QString &currentPath);

// Builds both records: the description from `descPath`, the configuration
// from `cfgRoot`, or from the description's own QUV_Config when `cfgRoot` is
// empty. A relative `descPath` is taken from the folder of `cfgPath`. The
// caller owns the result.
CfgModel *buildModels(const XmlNode &cfgRoot, const QString &cfgPath, const QString &descPath,
                      bool showErrors);

// For a process that ends right after its work, such as the batch path.
// While set, the trees that the loads parse are kept to the end of the
// process instead of being freed one string at a time when the load
// returns, and a configuration's description is read on a second thread
// while the configuration itself is parsed. Off by default: an editor that
// loads file after file must leave it off, and was measured to load slower
// with the second thread once its memory has been used and freed.
void setOneShotLoading(bool oneShot);
