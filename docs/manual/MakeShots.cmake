# Takes the manual's pictures from the program itself: runs shots.qms on a
# fresh home folder with the scenario runner, which saves each "screenshot"
# as a PNG, and puts them in the manual's "shots" folder.
#   cmake -DPROGRAM=... -DSCRIPT=... -DOUT=... -DWORK=... -P MakeShots.cmake
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/config)
# A fresh start: no tip window over the pictures.
file(WRITE ${WORK}/config/quillmere.conf "[Options]\nShow%20Tips%20at%20Startup=0\n")
set(ENV{XDG_CONFIG_HOME} ${WORK}/config)
if(NOT DEFINED ENV{QT_QPA_PLATFORM})
    set(ENV{QT_QPA_PLATFORM} offscreen)
endif()
execute_process(COMMAND ${PROGRAM} --home ${WORK} --script ${SCRIPT} --today 11/21/2026
                        --screen 1024x768
                RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "The manual's pictures were not made:\n${errors}")
endif()
file(GLOB shots ${WORK}/shots/*.png)
file(MAKE_DIRECTORY ${OUT})
file(COPY ${shots} DESTINATION ${OUT})
list(LENGTH shots count)
message(STATUS "${count} pictures in ${OUT}")
