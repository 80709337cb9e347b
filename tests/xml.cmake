quva_add_test(tst_xml_parse quva_xml)
quva_add_test(tst_xml_tree quva_xml)
quva_add_test(tst_xml_write quva_xml)
# tst_xml_file runs the tool as a process.
quva_add_test(tst_xml_file quva_xml)
if(TARGET quva-xmlcat)
  add_dependencies(tst_xml_file quva-xmlcat)
endif()

# Fuzz entry for the reader and writer, clang only and never in the default
# build: cmake -DCMAKE_CXX_COMPILER=clang++ -DQUVA_XML_FUZZ=ON
option(QUVA_XML_FUZZ "Build the libFuzzer entry of the XML reader (clang)" OFF)
if(QUVA_XML_FUZZ AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  add_executable(fuzz_xml fuzz_xml.cpp)
  target_link_libraries(fuzz_xml PRIVATE quva_xml)
  target_compile_options(fuzz_xml PRIVATE -fsanitize=fuzzer,address,undefined)
  target_link_options(fuzz_xml PRIVATE -fsanitize=fuzzer,address,undefined)
endif()
