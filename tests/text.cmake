quva_add_test(tst_text_convert quva_xml)
quva_add_test(tst_base64 quva_xml)
quva_add_test(tst_input_var quva_expr)
