# The batch path is timed as a whole process by batch_patch.sh; this builds
# the generator of its input files.
add_executable(gen_batch_config gen_batch_config.cpp)
target_link_libraries(gen_batch_config PRIVATE Qt5::Core)
