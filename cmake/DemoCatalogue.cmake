# Makes the demo catalogue with the catalogue tool unless a catalogue is already there.
if(EXISTS "${CATALOGUE}")
    return()
endif()
execute_process(COMMAND "${TOOL}" sample "${CATALOGUE}" RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "Could not make the demo catalogue ${CATALOGUE}")
endif()
