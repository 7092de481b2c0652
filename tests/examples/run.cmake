# Runs a command; it must succeed. Its results are in `output`.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result WORKING_DIRECTORY ${WORK_DIR}
                  OUTPUT_VARIABLE output ERROR_VARIABLE messages COMMAND_ECHO STDOUT)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${result}: ${output}${messages}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

# Runs a command whose results must be one line.
function(expect line)
  run(${ARGN})
  if(NOT output STREQUAL "${line}\n")
    message(FATAL_ERROR "\"${line}\" expected, not ${output}")
  endif()
endfunction()

function(expect_value value)
  run(${KTOPARAM} get ${ARGN})
  if(NOT output MATCHES "[ \t]${value}\n$")
    message(FATAL_ERROR "${ARGN}: ${value} expected, not ${output}")
  endif()
endfunction()

set(files TwoAxisDrive.xpdef TwoAxisDrive.xparam)
function(copy_files)
  file(REMOVE_RECURSE ${WORK_DIR})
  foreach(name ${files})
    file(COPY ${EXAMPLE_DATA}/${name} DESTINATION ${WORK_DIR})
  endforeach()
endfunction()

# Each run halves the velocity limit; the definitions stay as they are.
copy_files()
foreach(row "TwoAxisDrive;1000" "TwoAxisDrive.xparam;500")
  list(GET row 0 name)
  list(GET row 1 limit)
  expect("Axis X: KSM-080-2390-30, 20 mm per turn, at most ${limit} mm/s, Cyclic position, cycle 1000 us"
         ${READER} ${WORK_DIR}/${name})
endforeach()
run(${CMAKE_COMMAND} -E compare_files ${EXAMPLE_DATA}/TwoAxisDrive.xpdef TwoAxisDrive.xpdef)

set(pump ${WORK_DIR}/Pump)
expect("Writing ${pump}.xpdef and ${pump}.xparam" ${CREATE} ${pump})
expect_value(automatic Pump.xparam Mode --def Pump.xpdef --hardware-id PUMP-1 --sub-device 1)
run(${KTOPARAM} show Pump.xparam)
if(NOT output MATCHES ": Feed pump\n")
  message(FATAL_ERROR "The name of the sub-device is missing: ${output}")
endif()

copy_files()
run(${EDIT} ${files})
foreach(row "KTO-2A-16;2;1000" "KTO-2A-16-SLOW;2;500" "KTO-2A-16-SLOW;3;250")
  list(GET row 0 id)
  list(GET row 1 axis)
  list(GET row 2 limit)
  expect_value(${limit} TwoAxisDrive.xparam VelocityLimit --hardware-id ${id} --sub-device ${axis})
endforeach()

if(VIEW)
  set(ENV{QT_QPA_PLATFORM} offscreen)
  # Qt's platform plugin lets go of its screen only with the process, which the leak sanitizer takes
  # for a leak; the model itself is looked at by its own tests.
  set(ENV{ASAN_OPTIONS} detect_leaks=0)
  run(${VIEW} ${files} view.png)
  file(SIZE ${WORK_DIR}/view.png size)
  if(size LESS 1000)
    message(FATAL_ERROR "the picture has ${size} bytes")
  endif()
endif()

set(files TwoAxisDrive.xpdef TwoAxisDrive.xparam Motors.xparam MachineSettings.xset
    SpindleCompensation.xcomp)
copy_files()
expect("fine" ${USAGE} ${WORK_DIR})
