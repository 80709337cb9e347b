# The functions of the language, the check facade and the tool quva-expr.
quva_add_test(tst_functions_numeric quva_expr)
quva_add_test(tst_functions_string quva_expr)
quva_add_test(tst_functions_ipv4 quva_expr)
quva_add_test(tst_functions_date quva_expr)
quva_add_test(tst_parser_facade quva_panels)
quva_add_test(tst_quva_expr_tool Qt5::Core)
add_dependencies(tst_quva_expr_tool quva-expr)
target_compile_definitions(tst_quva_expr_tool PRIVATE QUVA_EXPR_TOOL="$<TARGET_FILE:quva-expr>")
