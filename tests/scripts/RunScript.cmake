# Runs one scenario script and compares its transcript with the expected one.
#
#   cmake -DQUILLMERE=path/to/quillmere -DSCRIPT=x.qms -DWORK=scratch/dir -P RunScript.cmake
#
# Every run gets a fresh home folder and a fresh per-user settings folder.
# Lines at the top of the script starting with "#!" adjust the run:
#   #! --screen 799x600          extra options for quillmere (replace the defaults of the same name)
#   #! setting GROUP/KEY=VALUE   a per-user setting written before the run, e.g.
#                                #! setting Options/Show Tips at Startup=0
#   #! copy PATH                 a file (relative to the script) copied into the home folder
# The expected transcript is the script's name with ".expected" in place of ".qms".
# Optional: -DSCREEN=WxH overrides the script's screen, -DPLATFORM=xcb runs on
# the display in $DISPLAY instead of offscreen, -DPICTURES=dir keeps a picture
# of each window the layout command checks, and -DRUN=name names the run folder.

get_filename_component(name "${SCRIPT}" NAME_WE)
get_filename_component(dir "${SCRIPT}" DIRECTORY)
set(expected_file "${dir}/${name}.expected")
if(NOT RUN)
    set(RUN "${name}")
endif()
set(run_dir "${WORK}/${RUN}")
file(REMOVE_RECURSE "${run_dir}")
file(MAKE_DIRECTORY "${run_dir}/home" "${run_dir}/config")

set(screen "1024x768")
set(today "11/21/2026")
set(conf "")
file(STRINGS "${SCRIPT}" directives REGEX "^#!")
foreach(line IN LISTS directives)
    string(REGEX REPLACE "^#![ \t]*" "" line "${line}")
    if(line MATCHES "^--screen[ \t]+(.+)$")
        set(screen "${CMAKE_MATCH_1}")
    elseif(line MATCHES "^--today[ \t]+(.+)$")
        set(today "${CMAKE_MATCH_1}")
    elseif(line MATCHES "^setting[ \t]+([^/=]+)/([^=]+)=(.*)$")
        # $XDG_CONFIG_HOME/quillmere.conf, as QSettings writes it: blanks in keys as %20.
        string(REPLACE " " "%20" key "${CMAKE_MATCH_2}")
        string(APPEND conf "[${CMAKE_MATCH_1}]\n${key}=${CMAKE_MATCH_3}\n")
    elseif(line MATCHES "^copy[ \t]+(.+)$")
        file(COPY "${dir}/${CMAKE_MATCH_1}" DESTINATION "${run_dir}/home")
    elseif(NOT line STREQUAL "")
        message(FATAL_ERROR "${SCRIPT}: unknown directive: #! ${line}")
    endif()
endforeach()
file(WRITE "${run_dir}/config/quillmere.conf" "${conf}")
if(SCREEN)
    set(screen "${SCREEN}")
endif()
if(NOT PLATFORM)
    set(PLATFORM offscreen)
endif()
set(extra "")
if(PICTURES)
    file(REMOVE_RECURSE "${PICTURES}")
    set(extra --pictures "${PICTURES}")
endif()

execute_process(
    COMMAND ${CMAKE_COMMAND} -E env
        "XDG_CONFIG_HOME=${run_dir}/config" "QT_QPA_PLATFORM=${PLATFORM}"
        "${QUILLMERE}" --home "${run_dir}/home" --script "${SCRIPT}"
        --today "${today}" --screen "${screen}" ${extra}
    OUTPUT_VARIABLE actual
    ERROR_VARIABLE errors
    RESULT_VARIABLE status
    TIMEOUT 60)
file(WRITE "${run_dir}/actual.txt" "${actual}")

if(NOT status EQUAL 0)
    message("${errors}")
    message(FATAL_ERROR "${name}: quillmere stopped with ${status}")
endif()
file(READ "${expected_file}" expected)
if(NOT actual STREQUAL expected)
    execute_process(COMMAND diff -u "${expected_file}" "${run_dir}/actual.txt")
    message(FATAL_ERROR "${name}: the transcript differs from ${name}.expected")
endif()
