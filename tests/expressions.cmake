# The expressions in the window: the language's help and modality clauses,
# the input-variable table, the dialogs, the modality panel and the pages of
# the line selection and the target.
quva_add_test(tst_language_help quva_expr)
quva_add_test(tst_modality_clause quva_expr)
