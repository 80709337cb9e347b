# The configuration and description records and their files.
quva_add_test(tst_desc_model quva_core)
quva_add_test(tst_cfg_model quva_core)
# Links QtGui so that the desktop's size is known to the window placement.
quva_add_test(tst_cfg_file quva_core Qt5::Gui)
quva_add_test(tst_desc_prefetch quva_core)
