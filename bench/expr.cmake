# Evaluation speed of the two expression engines against native code and,
# when liblua5.4 is installed, against the same expressions compiled by Lua.
find_path(LUA_INCLUDE_DIR lua.h PATH_SUFFIXES lua5.4)
find_library(LUA_LIBRARY lua5.4)
quva_add_bench(expr_eval quva_expr_fastest quva_expr_fast)
if(LUA_INCLUDE_DIR AND LUA_LIBRARY)
  target_include_directories(expr_eval PRIVATE ${LUA_INCLUDE_DIR})
  target_link_libraries(expr_eval PRIVATE ${LUA_LIBRARY})
  target_compile_definitions(expr_eval PRIVATE QUVA_HAVE_LUA=1)
endif()
# Reading time by length of the text: linear in both engines.
quva_add_bench(expr_read quva_expr_fastest quva_expr_fast)
