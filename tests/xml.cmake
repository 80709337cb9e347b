quva_add_test(tst_xml_parse quva_xml)
quva_add_test(tst_xml_tree quva_xml)
quva_add_test(tst_xml_write quva_xml)
# tst_xml_file runs the tool as a process.
quva_add_test(tst_xml_file quva_xml)
if(TARGET quva-xmlcat)
  add_dependencies(tst_xml_file quva-xmlcat)
endif()

