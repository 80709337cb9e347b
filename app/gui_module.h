#pragma once

// The window, its pages and everything that draws live in a module of their
// own, loaded only when the program needs a screen. The batch path without
// a display then maps no GUI library at all and starts in a fraction of the
// time.

// The module's one exported function: builds the GUI application object from
// the command line and runs the interactive window, or the batch path with
// its message boxes. Returns the exit code of the process.
using GuiEntry = int (*)(int argc, char **argv);
constexpr char guiEntryName[] = "quvaGuiMain";
constexpr char guiModuleFileName[] = "quva-cfg-editor-gui.so";

// Loads the module from beside the program (or from lib/quva of the
// installation prefix) and returns its entry. When it cannot be loaded,
// writes why on standard error and returns null.
GuiEntry loadGuiModule();
