# Loading and saving the two records on a large generated dataset.
quva_add_bench(model_load quva_core)
