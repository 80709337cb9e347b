# The apply page, and the run of the engine with its reports, on the
# stand-ins of the engine and the converter.
quva_add_test(tst_panel_apply quva_shell)
add_dependencies(tst_panel_apply engine_standin)
quva_add_test(tst_model_run quva_shell)
add_dependencies(tst_model_run engine_standin)
