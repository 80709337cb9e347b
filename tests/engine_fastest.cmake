# The compiled expression engine, and the tests that hold it against the other
# engine.
quva_add_test(tst_engine_fastest quva_expr_fastest)
quva_add_test(tst_engine_fastest_compile quva_expr_fastest)
quva_add_test(tst_expr_differential quva_expr_fastest quva_expr_fast)
quva_add_test(tst_expr_alloc quva_expr_fastest quva_expr_fast)
