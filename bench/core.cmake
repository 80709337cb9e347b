# Loading and saving the two records on a large generated dataset.
quva_add_bench(model_load quva_core)
target_sources(model_load PRIVATE generated_dataset.cpp generated_dataset.h)
