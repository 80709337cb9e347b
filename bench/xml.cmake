# The XML reader against two other readers of the same bytes; pugixml is a
# benchmark-only dependency.
find_package(pugixml QUIET)
if(pugixml_FOUND)
  quva_add_bench(xml_parse quva_xml pugixml::pugixml)
else()
  message(STATUS "pugixml not found: xml_parse is not built")
endif()
