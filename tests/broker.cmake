# The window broker: the wire, the server QuvaServer and its parts, the
# editor's client and raise listener.
quva_add_test(tst_broker_wire quva_broker_wire)
quva_add_test(tst_server_command quva_server)
quva_add_test(tst_holder_table quva_server)
quva_add_test(tst_quva_server quva_broker_wire)
add_dependencies(tst_quva_server QuvaServer quva-cfg-editor)
# The server draws nothing: it maps neither QtGui nor QtWidgets.
add_test(NAME server_links_without_gui
  COMMAND sh -c "ldd \"$1\" | grep -E 'libQt5(Gui|Widgets)' && exit 1 || exit 0" sh
    $<TARGET_FILE:QuvaServer>)
quva_add_test(tst_broker_client quva_shell_services)
add_dependencies(tst_broker_client QuvaServer)
quva_add_test(tst_raise_listener quva_shell)
