# Configures and builds the outside project in the folder, with more arguments for CMake.
function(build_consumer build)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/consumer -B ${build} -G ${GENERATOR}
            -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -D CMAKE_BUILD_TYPE=${CONFIG}
            -D IMPORT=${IMPORT} ${ARGN}
        COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND ${CMAKE_COMMAND} --build ${build} --parallel 2 COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Runs the outside project's program on a board and looks at what it says and writes.
function(run_consumer program)
    set(board ${FOLDER}/board.cvg)
    set(written ${FOLDER}/written.cvg)
    file(WRITE ${board} [[
<IPC-2581>
<Ecad name="outside">
<CadData>
<Step name="installed">
</Step>
</CadData>
</Ecad>
</IPC-2581>
]])
    file(REMOVE ${written})
    execute_process(COMMAND ${program} ${board} ${written} OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
    if(NOT said STREQUAL "${VERSION}\n")
        message(FATAL_ERROR "The program tells version ${said}, not ${VERSION}")
    endif()
    file(READ ${written} text)
    if(NOT text MATCHES "<Step name=\"installed\"")
        message(FATAL_ERROR "The program wrote:\n${text}")
    endif()
endfunction()

# The same for the program that imports: a whole board, and one that is cut.
function(run_importer program)
    set(board ${FOLDER}/import.xml)
    file(WRITE ${board} "<IPC-2581><Ecad><CadData><Step name='installed'/></CadData></Ecad></IPC-2581>")
    execute_process(COMMAND ${program} ${board} OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
    if(NOT said STREQUAL "installed\n")
        message(FATAL_ERROR "The importing program says: ${said}")
    endif()
    file(WRITE ${board} "<IPC-2581>\n<Ecad>\n")
    execute_process(COMMAND ${program} ${board} OUTPUT_VARIABLE said RESULT_VARIABLE result)
    if(NOT said MATCHES "^line [0-9]+\n$" OR NOT result EQUAL 1)
        message(FATAL_ERROR "The importing program takes a cut board: ${said}")
    endif()
endfunction()
