# Installs what stands in `build`, builds the program in `host` on it, and looks at what that prints.
set(tree ${work}/tree)
set(program ${work}/program)
file(REMOVE_RECURSE ${tree} ${program})

# run(<command>...): what it prints is in `output`.
macro(run)
  execute_process(COMMAND ${ARGV} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
endmacro()

run(${CMAKE_COMMAND} --install ${build} --prefix ${tree})
run(${tree}/bin/vantry -v)

run(${CMAKE_COMMAND} -S ${host} -B ${program} -G ${generator}
  -D CMAKE_PREFIX_PATH=${tree}
  -D CMAKE_BUILD_TYPE=${build_type}
  -D CMAKE_CXX_COMPILER=${compiler}
  -D CMAKE_CXX_COMPILER_LAUNCHER=${launcher}
  -D CMAKE_CXX_FLAGS=${flags})
run(${CMAKE_COMMAND} --build ${program})

run(${program}/host ${host}/drawing.zrd ${work}/drawing.jvx)
file(READ ${work}/drawing.jvx model)
string(REGEX REPLACE "date=\"[^\"]*\"" "date=\"DATE\"" model "${model}")

# expect(<text> <file>): the text is that of the file.
function(expect text file)
  file(READ ${CMAKE_CURRENT_LIST_DIR}/${file} expected)
  if(NOT text STREQUAL expected)
    message(FATAL_ERROR "What came is\n${text}\nand not as in ${file}")
  endif()
endfunction()

expect("${output}" expected.txt)
expect("${model}" expected.jvx)
