# The fuzz targets of fuzz/, each a function of the bytes. The normal suite
# replays their seeds and every input that once broke them
# (tst_fuzz_regressions, inputs in data/fuzz_regressions/<target>/). With
# -DQUVA_FUZZ=ON and clang (scripts/fuzz) each is also a libFuzzer program
# fuzz_<target>.
set(QUVA_FUZZ_TARGETS xml fastest fast engines_agree batch_options cfg_load)
set(_fuzz_sources)
foreach(_t ${QUVA_FUZZ_TARGETS})
  list(APPEND _fuzz_sources fuzz/fuzz_${_t}.cpp)
endforeach()

quva_add_test(tst_fuzz_regressions quva_core)
target_sources(tst_fuzz_regressions PRIVATE ${_fuzz_sources})
string(REPLACE ";" "," _fuzz_names "${QUVA_FUZZ_TARGETS}")
target_compile_definitions(tst_fuzz_regressions PRIVATE QUVA_FUZZ_TARGETS="${_fuzz_names}")

if(QUVA_FUZZ)
  foreach(_t ${QUVA_FUZZ_TARGETS})
    add_executable(fuzz_${_t} fuzz/fuzz_${_t}.cpp fuzz/fuzz_fail_abort.cpp)
    target_link_libraries(fuzz_${_t} PRIVATE quva_core)
    target_compile_definitions(fuzz_${_t} PRIVATE QUVA_LIBFUZZER
      QUVA_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    target_link_options(fuzz_${_t} PRIVATE -fsanitize=fuzzer)
  endforeach()
endif()
