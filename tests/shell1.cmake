# Settings, execute panel, text editors, table views, variable list window.

# A child for the execute panel tests: prints what its arguments say, with
# pauses between the pieces so that they arrive as separate chunks.
add_executable(progress_printer progress_printer.cpp)

quva_add_test(tst_settings quva_shell)
quva_add_test(tst_execute_panel quva_shell)
add_dependencies(tst_execute_panel progress_printer)
target_compile_definitions(tst_execute_panel PRIVATE
  PROGRESS_PRINTER="$<TARGET_FILE:progress_printer>")
quva_add_test(tst_text_editors quva_edit)
quva_add_test(tst_var_list_window quva_shell)
quva_add_test(tst_table_views quva_edit)
quva_add_test(tst_cfg_document quva_shell)
quva_add_test(tst_window_place quva_shell)
quva_add_test(tst_page_table quva_shell)
