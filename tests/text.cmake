quva_add_test(tst_text_convert quva_text)
quva_add_test(tst_base64 quva_text)
quva_add_test(tst_input_var quva_expr)
