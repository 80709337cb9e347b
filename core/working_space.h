#pragma once

class XmlNode;

// The place of the main window as a configuration stores it in its
// WorkingSpace element: position of the window and size of its own
// rectangle, frame excluded. The record layer only carries the numbers; the
// window reads them from here and gives its own back on save.
struct WorkingSpace
{
    int x = 200;
    int y = 200;
    int w = 500;
    int h = 400;
};

// The WorkingSpace element of a configuration root; each missing attribute,
// or the whole element, takes the default above.
WorkingSpace workingSpaceOf(const XmlNode &cfgRoot);
