# quva-expr: checks one expression as the editor does, from the command line.
add_executable(quva-expr ${CMAKE_CURRENT_SOURCE_DIR}/expr.cpp)
target_link_libraries(quva-expr PRIVATE quva_expr)
