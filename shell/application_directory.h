#pragma once

#include <QString>

// The folder where the editor finds the programs of its family that lie
// beside it: the engine (quva), the report converter (xml2html), the window
// broker's server (QuvaServer) and the sound player; and where that server
// finds the editor (quva-cfg-editor). It is the running program's own
// folder, unless the environment's QUVA_APP_DIR names another one (a test,
// or a try of stand-ins kept apart from the program).
QString applicationDirectory();
