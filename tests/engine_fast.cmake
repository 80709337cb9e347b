# The Fast expression engine: values and literals, reader errors and message
# texts, operators and functions, evaluation of the list.
foreach(_t tst_engine_fast_values tst_engine_fast_errors tst_engine_fast_operators
           tst_engine_fast_eval)
  if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${_t}.cpp)
    quva_add_test(${_t} quva_expr_fast)
  endif()
endforeach()
