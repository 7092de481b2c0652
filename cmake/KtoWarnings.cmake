# Compiler warnings of every target of this project: kto_warnings(target).
function(kto_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                           -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual)
  if(KTO_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
                                               QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
                                               QT_DEPRECATED_WARNINGS QT_USE_QSTRINGBUILDER)
endfunction()
