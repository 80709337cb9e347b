# A developer's tool for the README's pictures; not installed.
add_executable(page-picture ${CMAKE_CURRENT_SOURCE_DIR}/page_picture.cpp)
target_link_libraries(page-picture PRIVATE quva_shell)
