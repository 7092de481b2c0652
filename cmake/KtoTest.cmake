# QtTest watches over a test from a thread of its own, and the thread sanitizer, which does not see
# into Qt, reports a race with the end of that. This option of QtTest's, meant for its own use, does
# without the thread; ctest limits the time of a test anyway.
if(KTO_SANITIZE MATCHES "thread")
  set(KTO_TEST_OPTIONS -callgrindchild)
endif()

# kto_add_test(name [sources…] [LINK libraries…]): one QtTest executable, <name>.cpp unless given.
# KTO_TEST_DATA names the folder of the test files, KTO_EXAMPLE_DATA that of the example files.
function(kto_add_test name)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  set(sources ${ARG_UNPARSED_ARGUMENTS})
  if(NOT sources)
    set(sources ${name}.cpp)
  endif()
  add_executable(${name} ${sources})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  kto_warnings(${name})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE
    KTO_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
    KTO_EXAMPLE_DATA="${PROJECT_SOURCE_DIR}/examples/data")
  target_link_libraries(${name} PRIVATE Qt5::Test ${ARG_LINK})
  add_test(NAME ${name} COMMAND ${name} ${KTO_TEST_OPTIONS})
endfunction()
