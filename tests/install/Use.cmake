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
