# Installing like a desktop program: into a temporary prefix under DESTDIR,
# and as a Debian package in a scratch root.
add_test(NAME install_prefix
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/install_check.sh ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
add_test(NAME deb_package
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/package_check.sh ${CMAKE_BINARY_DIR})
set(_home ${CMAKE_CURRENT_BINARY_DIR}/home/install)
file(MAKE_DIRECTORY ${_home})
set_tests_properties(install_prefix deb_package PROPERTIES TIMEOUT 600 RUN_SERIAL TRUE
  ENVIRONMENT "HOME=${_home};XDG_CONFIG_HOME=${_home}/.config"
  FIXTURES_REQUIRED real_settings)
