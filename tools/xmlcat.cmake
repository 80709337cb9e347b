add_executable(quva-xmlcat ${CMAKE_CURRENT_SOURCE_DIR}/xmlcat.cpp)
target_link_libraries(quva-xmlcat PRIVATE quva_xml)
