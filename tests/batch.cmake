# Batch command line: the option reader and the wildcard matching on their
# own, and the real executable run on copies of the files in data/batch.
quva_add_test(tst_batch_match quva_core)
quva_add_test(tst_batch_options quva_core)
quva_add_test(tst_batch_cli)
add_dependencies(tst_batch_cli quva-cfg-editor)
# The batch path killed while it saves, on a full file system, and on files
# that are no configuration.
quva_add_test(tst_batch_faults)
add_dependencies(tst_batch_faults quva-cfg-editor)
# Its editors lie beside QuvaServer; moved to a folder without one, their
# windows do not start a server.
set_property(TEST tst_batch_cli APPEND PROPERTY ENVIRONMENT "QUVA_APP_DIR=${quva_no_broker}")
# The decision of a start between information, the batch paths and the window.
quva_add_test(tst_start_up quva_app)
