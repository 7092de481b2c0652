# Installs the build into an empty folder, then builds and runs the outside project against it.
set(PREFIX ${WORK_DIR}/prefix)
set(files ${EXAMPLE_DATA}/TwoAxisDrive.xpdef ${EXAMPLE_DATA}/TwoAxisDrive.xparam
          ${EXAMPLE_DATA}/SpindleCompensation.xcomp)
set(flags)
if(SANITIZE)
  set(flags -fsanitize=${SANITIZE})
endif()

# Runs a command; it must succeed. What it prints is in `output`.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result
                  OUTPUT_VARIABLE output ERROR_VARIABLE output COMMAND_ECHO STDOUT)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

function(run_consumer program)
  run(${program} ${files})
  if(NOT output STREQUAL "KTO-2A-16 KTO-2A-32\n<?xml\n")
    message(FATAL_ERROR "unexpected output of ${program}: ${output}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX})

run(${CMAKE_COMMAND} -S ${PROJECT_DIR} -B ${WORK_DIR}/build -G ${GENERATOR}
    -D CMAKE_PREFIX_PATH=${PREFIX} -D CMAKE_CXX_COMPILER=${CXX} -D CMAKE_CXX_FLAGS=${flags})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run_consumer(${WORK_DIR}/build/consumer)

set(ENV{PKG_CONFIG_PATH} ${PREFIX}/${LIBDIR}/pkgconfig)
run(pkg-config --cflags --libs ktoParameterPlot)
separate_arguments(package UNIX_COMMAND "${output}")
# -fPIC is what Qt itself asks of its users.
run(${CXX} -std=c++17 -fPIC ${flags} ${PROJECT_DIR}/main.cpp -o ${WORK_DIR}/consumer ${package})
set(ENV{LD_LIBRARY_PATH} ${PREFIX}/${LIBDIR})
run_consumer(${WORK_DIR}/consumer)

# The installed tool finds the installed libraries by itself.
unset(ENV{LD_LIBRARY_PATH})
run(${PREFIX}/bin/ktoparam detect ${files})
