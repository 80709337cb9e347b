#pragma once

#include <QString>

struct CfgModel;

// The attributes of the QUV_Config element, in the order the writer puts
// them out. The reader takes the same list; the member default of each field
// is what an absent attribute gives, except for AUCmax (see its kind).
struct CfgRootAttribute
{
    enum Kind {
        Integer,     // plain decimal
        Number,      // the stream form of a double
        // Written escaped. The version too, which the engine's own files hold
        // as plain text: written as held, a version holding a quote, '<' or
        // '&' would make a file that no reader takes.
        EscapedText,
        AucMax,      // percent in the record, a fraction in the file
    };
    const char *name;
    Kind kind;
    int CfgModel::*integer;
    double CfgModel::*number;
    QString CfgModel::*text;
};

extern const CfgRootAttribute cfgRootAttributes[];
extern const int cfgRootAttributeCount;

// The file value of AUCmax when absent, as a fraction.
constexpr double defaultAUCmaxFraction = 0.85;
