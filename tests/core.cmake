# The configuration and description records and their files.
quva_add_test(tst_desc_model quva_core)
quva_add_test(tst_cfg_model quva_core)
quva_add_test(tst_cfg_file quva_core)
quva_add_test(tst_desc_prefetch quva_core)
quva_add_test(tst_file_replace quva_core)
# The record layer draws nothing: a program on it alone maps neither QtGui
# nor QtWidgets.
add_test(NAME core_links_without_gui
  COMMAND sh -c "ldd \"$1\" | grep -E 'libQt5(Gui|Widgets)' && exit 1 || exit 0" sh
    $<TARGET_FILE:tst_cfg_file>)
quva_add_test(tst_smart_activate quva_core)
quva_add_test(tst_model_probe quva_core)
