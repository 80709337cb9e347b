# The window broker: the wire, the server QuvaServer and its parts, the
# editor's client and raise listener, and two real editors meeting.
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
# Two editors on one file: the first a real editor started by the server,
# the second this driver, the real window whose questions are answered
# from its command line.
add_executable(editor_driver editor_driver.cpp)
target_link_libraries(editor_driver PRIVATE quva_shell)
quva_add_test(tst_broker_editors quva_shell)
add_dependencies(tst_broker_editors editor_driver QuvaServer quva-cfg-editor)
target_compile_definitions(tst_broker_editors PRIVATE
  EDITOR_DRIVER="$<TARGET_FILE:editor_driver>")
