# engine_standin: the stand-in for the engine and its report converter. It
# behaves by the name it is started under, so the build puts it under both
# names beside itself and in <build>/standin/, a folder that tests and the
# demo use as the editor's application directory.
file(GLOB _standin CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/engine_standin/*.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/engine_standin/*.h)
add_executable(engine_standin ${_standin})
target_link_libraries(engine_standin PRIVATE quva_app quva_core Qt5::Gui)
set(_standin_dir ${CMAKE_BINARY_DIR}/standin)
add_custom_command(TARGET engine_standin POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E make_directory ${_standin_dir}
  COMMAND ${CMAKE_COMMAND} -E create_symlink $<TARGET_FILE_NAME:engine_standin>
          $<TARGET_FILE_DIR:engine_standin>/quva
  COMMAND ${CMAKE_COMMAND} -E create_symlink $<TARGET_FILE_NAME:engine_standin>
          $<TARGET_FILE_DIR:engine_standin>/xml2html
  COMMAND ${CMAKE_COMMAND} -E create_symlink $<TARGET_FILE:engine_standin> ${_standin_dir}/quva
  COMMAND ${CMAKE_COMMAND} -E create_symlink $<TARGET_FILE:engine_standin>
          ${_standin_dir}/xml2html
  VERBATIM)
