#pragma once

struct CfgModel;
struct ReportSection;

// The section "mode": the named mode that the parameters make, as the
// editor's pages name it ("performance mode", "standard mode", "high
// quality mode", or none), and the parameters behind it with what each
// value means to the engine.
ReportSection modeSection(const CfgModel &cfg);
