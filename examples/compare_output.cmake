# Runs COMMAND (a list), and fails when its output differs from the file EXPECTED or its status from STATUS.
execute_process(COMMAND ${COMMAND} OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
file(READ ${EXPECTED} expected)
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "the output is not that of ${EXPECTED}:\n${output}${errors}")
endif()
if(NOT status EQUAL STATUS)
  message(FATAL_ERROR "the exit status is ${status}, not ${STATUS}\n${errors}")
endif()
