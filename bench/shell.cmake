# The pages of the window on large generated descriptions.
quva_add_bench(variable_page quva_shell)
target_sources(variable_page PRIVATE generated_dataset.cpp generated_dataset.h)
