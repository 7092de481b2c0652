# Runs a command; it must succeed. What it prints is in `output`.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result WORKING_DIRECTORY ${WORK_DIR}
                  OUTPUT_VARIABLE output ERROR_VARIABLE output COMMAND_ECHO STDOUT)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${result}: ${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(COPY ${EXAMPLE_DATA}/TwoAxisDrive.xpdef ${EXAMPLE_DATA}/TwoAxisDrive.xparam
     DESTINATION ${WORK_DIR})
set(files TwoAxisDrive.xpdef TwoAxisDrive.xparam)

run(${EDIT} ${files})
foreach(row "KTO-2A-16;2;1000" "KTO-2A-16-SLOW;2;500" "KTO-2A-16-SLOW;3;250")
  list(GET row 0 id)
  list(GET row 1 axis)
  list(GET row 2 expected)
  run(${KTOPARAM} get TwoAxisDrive.xparam VelocityLimit --hardware-id ${id} --sub-device ${axis})
  if(NOT output MATCHES "${expected}\n")
    message(FATAL_ERROR "${id}, axis ${axis}: ${expected} expected, not ${output}")
  endif()
endforeach()

set(ENV{QT_QPA_PLATFORM} offscreen)
# Qt's platform plugin lets go of its screen only with the process, which the leak sanitizer takes
# for a leak; the model itself is looked at by its own tests.
set(ENV{ASAN_OPTIONS} detect_leaks=0)
run(${VIEW} ${files} view.png)
file(SIZE ${WORK_DIR}/view.png size)
if(size LESS 1000)
  message(FATAL_ERROR "the picture has ${size} bytes")
endif()
