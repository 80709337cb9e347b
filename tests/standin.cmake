# The stand-in for the engine and its report converter, run as processes
# from <build>/standin/, where the build puts it under both names.
quva_add_test(tst_engine_standin quva_shell_services)
add_dependencies(tst_engine_standin engine_standin)
