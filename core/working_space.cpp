#include "core/working_space.h"

#include "text/text_convert.h"
#include "xml/xml_node.h"

WorkingSpace workingSpaceOf(const XmlNode &cfgRoot)
{
    const XmlNode space = cfgRoot.childNode("WorkingSpace");
    WorkingSpace place;
    place.x = chk_atoi(space.attribute("x"), place.x);
    place.y = chk_atoi(space.attribute("y"), place.y);
    place.w = chk_atoi(space.attribute("w"), place.w);
    place.h = chk_atoi(space.attribute("h"), place.h);
    return place;
}
