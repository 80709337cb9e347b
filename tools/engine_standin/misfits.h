#pragma once

#include <QStringList>

class XmlNode;
struct CfgModel;

// What in a configuration does not fit its description, one sentence each:
// a target, weight or treatment that names no variable of the description,
// a target other than the one the description fixes, input variables of an
// expression on unknown columns, settings of columns the description lacks,
// no active column, and target or selection files that are not there.
// `cfgRoot` is the configuration as read, for what the record drops.
QStringList configurationMisfits(const CfgModel &cfg, const XmlNode &cfgRoot);
