# Writes the manual page of the catalogue tool from its own --help texts: help2man turns the
# tool's overview into the page, and each command's --help becomes a part of its own.
# Called with TOOL, VERSION and OUTPUT.
execute_process(COMMAND "${TOOL}" --help OUTPUT_VARIABLE overview RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${TOOL} --help failed")
endif()
string(REGEX MATCHALL "\n  [a-z-]+ " command_lines "${overview}")

set(include_text "[COMMAND OPTIONS]\n")
foreach(line IN LISTS command_lines)
    string(STRIP "${line}" command)
    execute_process(COMMAND "${TOOL}" ${command} --help OUTPUT_VARIABLE text RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${TOOL} ${command} --help failed")
    endif()
    # Shown as the tool prints it; only what roff would read as its own markup is escaped.
    string(REPLACE "\\" "\\e" text "${text}")
    string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" text "${text}")
    string(APPEND include_text ".SS ${command}\n.nf\n${text}.fi\n")
endforeach()

get_filename_component(output_folder "${OUTPUT}" DIRECTORY)
set(include_file "${output_folder}/shelvane-catalog.h2m")
file(WRITE "${include_file}" "${include_text}")
execute_process(
    COMMAND help2man --no-info --version-string=${VERSION}
        "--name=make, check, import, export, back up and restore Shelvane catalogue files"
        --include=${include_file} --output=${OUTPUT} "${TOOL}"
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "help2man could not write ${OUTPUT}")
endif()
