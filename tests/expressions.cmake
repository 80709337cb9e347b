# The expressions in the window: the language's help and modality clauses,
# the input-variable table, the dialogs, the modality panel and the pages of
# the line selection and the target.
quva_add_test(tst_language_help quva_expr)
quva_add_test(tst_modality_clause quva_expr)
quva_add_test(tst_input_var_table quva_panels)
quva_add_test(tst_nominal_var_panel quva_panels)
quva_add_test(tst_math_parser_check quva_panels)
quva_add_test(tst_select_line_page quva_shell)
quva_add_test(tst_target_definition_page quva_shell)
