// Refreshes of the parameter pages and the reactions to the tasks of the log
// page. Each refresh reads the record and writes the controls of its page
// with updatingPanel set; the pages bring their controls with them, and
// until they do, a refresh has nothing to write.

#include "shell/main_window.h"

void QuvaCfgXMLEditor::refreshDataPartitioningPanel()
{
    PanelRefreshScope scope(updatingPanel);
}

void QuvaCfgXMLEditor::refreshModelParameters1Panel()
{
    PanelRefreshScope scope(updatingPanel);
}

void QuvaCfgXMLEditor::refreshModelParameters2Panel()
{
    PanelRefreshScope scope(updatingPanel);
}

void QuvaCfgXMLEditor::refreshVariablesPanel()
{
    PanelRefreshScope scope(updatingPanel);
}

void QuvaCfgXMLEditor::refreshLineSelectionPanel()
{
    PanelRefreshScope scope(updatingPanel);
}

void QuvaCfgXMLEditor::refreshTargetPanel()
{
    PanelRefreshScope scope(updatingPanel);
}

void QuvaCfgXMLEditor::refreshModalityRecodingsPanel()
{
    PanelRefreshScope scope(updatingPanel);
}

void QuvaCfgXMLEditor::refreshCreateModelPanel()
{
    PanelRefreshScope scope(updatingPanel);
}

void QuvaCfgXMLEditor::on_myFinishExe(int, int, int)
{
}

void QuvaCfgXMLEditor::on_myProgressBar(int, QString)
{
}
