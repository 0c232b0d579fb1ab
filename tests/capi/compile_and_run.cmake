# Compiles SOURCE with COMPILER and FLAGS against the header in INCLUDE and the library in LIBRARY,
# and runs it with ARGUMENT in FOLDER, which is emptied first.
# SPDX-License-Identifier: MIT
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})

# The first block of code in a language of a page in Markdown.
function(take_code page language source)
  file(READ ${page} text)
  string(FIND "${text}" "```${language}\n" begin)
  if(begin EQUAL -1)
    message(FATAL_ERROR "no code in ${language} in ${page}")
  endif()
  string(LENGTH "```${language}\n" fence)
  math(EXPR begin "${begin} + ${fence}")
  string(SUBSTRING "${text}" ${begin} -1 text)
  string(FIND "${text}" "```" end)
  string(SUBSTRING "${text}" 0 ${end} text)
  file(WRITE ${source} "${text}")
endfunction()

if(SOURCE MATCHES "\\.md$")
  if(COMPILER MATCHES "fortran")
    take_code(${SOURCE} fortran ${FOLDER}/example.f90)
    set(SOURCE ${FOLDER}/example.f90)
  else()
    take_code(${SOURCE} c ${FOLDER}/example.c)
    set(SOURCE ${FOLDER}/example.c)
  endif()
endif()

function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${FOLDER} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed (${result}): ${ARGN}")
  endif()
endfunction()

run(${COMPILER} ${FLAGS} -I${INCLUDE} ${SOURCE} -o client -L${LIBRARY} -Wl,-rpath,${LIBRARY}
  -lvelmorankite -lm)
run(./client ${ARGUMENT})
